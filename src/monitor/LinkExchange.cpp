#include "monitor/LinkExchange.h"

namespace quillon {

void LinkExchange::Run(CDriveSerial* link)
{
    m_bRan = true;
    std::fill(rx.begin(), rx.end(), 0);
    if (!link)
        result = ErrComm;
    else if (paced)
        result = link->SendFrame(tx.data(), tx.size(), rx.data(), rx.size());
    else
        result = link->CommandSend(tx.data(), tx.size(), rx.data(), rx.size());
}

LinkExchange ReadExchange(int station, std::uint16_t reg, int count)
{
    LinkExchange e;
    BuildReadFrame(e.tx, station, reg, count);
    e.rx.assign(static_cast<std::size_t>(ReadReplyLength(count)), 0);
    return e;
}

LinkExchange WriteExchange(int station, std::uint16_t reg, std::uint16_t value)
{
    LinkExchange e;
    BuildWriteSingleFrame(e.tx, station, reg, value);
    e.rx.assign(kWriteReplyLength, 0);
    return e;
}

}  // namespace quillon
