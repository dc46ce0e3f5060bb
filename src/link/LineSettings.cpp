#include "link/LineSettings.h"

#include <algorithm>
#include <iterator>

namespace quillon {

bool IsSupportedLine(const LineSettings& line)
{
    return line.m_nBaud >= kBaudRates[0] && line.m_nBaud <= std::end(kBaudRates)[-1] &&
           (line.m_nDataBits == 7 || line.m_nDataBits == 8) &&
           (line.m_nStopBits == 1 || line.m_nStopBits == 2);
}

bool IsDriveBaudRate(int baud)
{
    return std::find(std::begin(kBaudRates), std::end(kBaudRates), baud) != std::end(kBaudRates);
}

bool ParityFromByte(int value, Parity& parity)
{
    switch (value) {
    case 0: parity = Parity::None; return true;
    case 1: parity = Parity::Odd; return true;
    case 2: parity = Parity::Even; return true;
    default: return false;
    }
}

QString LineText(const LineSettings& line)
{
    const char p = line.m_parity == Parity::None ? 'N' : line.m_parity == Parity::Odd ? 'O' : 'E';
    return QStringLiteral("%1 %2%3%4").arg(line.m_nBaud).arg(line.m_nDataBits).arg(QLatin1Char(p))
        .arg(line.m_nStopBits);
}

QString PeerAddress::AddressText() const
{
    return QStringLiteral("%1.%2.%3.%4")
        .arg((m_nAddress >> 24) & 0xFF)
        .arg((m_nAddress >> 16) & 0xFF)
        .arg((m_nAddress >> 8) & 0xFF)
        .arg(m_nAddress & 0xFF);
}

}  // namespace quillon
