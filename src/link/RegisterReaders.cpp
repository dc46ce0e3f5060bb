#include "link/RegisterReaders.h"

#include "link/ModbusFrame.h"
#include "link/Registers.h"

#include <array>

namespace quillon {

ReplyVerdict ReadHoldingRegisters(CDriveSerial& link, int station, std::uint16_t reg, int count,
                                  ReplyCaller caller, SendForm form, std::uint16_t* values)
{
    std::array<unsigned char, kRequestLength> tx{};
    if (BuildReadFrame(tx, station, reg, count) == 0)
        return ReplyVerdict{false, ErrTypeText(ErrComm), false};
    std::array<unsigned char, ReadReplyLength(kMaxRegistersPerFrame)> rx{};
    const auto rxLength = static_cast<unsigned long>(ReadReplyLength(count));
    const ErrType result = form == SendForm::Paced
                               ? link.SendFrame(tx.data(), tx.size(), rx.data(), rxLength)
                               : link.CommandSend(tx.data(), tx.size(), rx.data(), rxLength);
    ReplyVerdict verdict = JudgeReply(caller, result, rx.data(), ModbusFn::ReadHolding, station);
    if (verdict.ok) {
        for (int i = 0; i < count; ++i)
            values[i] = FrameWord(rx.data(), 3 + 2 * i);
    }
    return verdict;
}

namespace {

// One register with CommandSend; the verdict's text is shown at once.
int ReadShown(CDriveSerial& link, int station, std::uint16_t reg, ReplyCaller caller,
              std::uint16_t& value)
{
    const ReplyVerdict v =
        ReadHoldingRegisters(link, station, reg, 1, caller, SendForm::Direct, &value);
    ShowVerdict(v);
    return v.ok ? 1 : 0;
}

}  // namespace

int ReadRunStatus(CDriveSerial& link, int station, int& running)
{
    std::uint16_t v = 0;
    if (!ReadShown(link, station, RegStatusWord, ReplyCaller::RunStatus, v))
        return 0;
    running = (v & StatusBit::Running) ? 1 : 0;
    return 1;
}

int ReadPasswordState(CDriveSerial& link, int station, int& locked)
{
    std::uint16_t v = 0;
    if (!ReadShown(link, station, RegParameterPassword, ReplyCaller::PasswordState, v))
        return 0;
    locked = v == PasswordState::Locked ? 1 : 0;
    return 1;
}

int ReadRunSource(CDriveSerial& link, int station, int& value)
{
    std::uint16_t v = 0;
    if (!ReadShown(link, station, RegRunSource, ReplyCaller::RunSourceAtConnect, v))
        return 0;
    value = v;
    return 1;
}

int ReadCapacity(CDriveSerial& link, int station, int& value)
{
    std::uint16_t v = 0;
    if (!ReadShown(link, station, RegCapacityCode, ReplyCaller::Identification, v))
        return 0;
    value = v;
    return 1;
}

int ReadVersion(CDriveSerial& link, int station, float& version)
{
    std::uint16_t v = 0;
    if (!ReadShown(link, station, RegSoftwareVersion, ReplyCaller::Identification, v))
        return 0;
    version = static_cast<float>(v * 0.001);
    return 1;
}

int ReadModelWord(CDriveSerial& link, int station, int& value)
{
    std::uint16_t v = 0;
    if (!ReadShown(link, station, RegModelWord, ReplyCaller::Identification, v))
        return 0;
    value = v;
    return 1;
}

int ReadRegister(CDriveSerial& link, int station, std::uint16_t reg, int& value)
{
    std::uint16_t v = 0;
    // The group read's row never shows anything by itself: its word is only kept.
    if (!ReadHoldingRegisters(link, station, reg, 1, ReplyCaller::GroupRead, SendForm::Direct, &v).ok)
        return 0;
    value = v;
    return 1;
}

int ReadParameterText(CDriveSerial& link, std::uint16_t reg, int station, QString& text)
{
    std::uint16_t v = 0;
    if (!ReadShown(link, station, reg, ReplyCaller::PageAccess, v))
        return 0;
    text = QString::number(v);
    return 1;
}

ReplyVerdict ReadIdentification(CDriveSerial& link, int station, ReplyCaller caller,
                                Identification& id)
{
    std::uint16_t v[2] = {};
    ReplyVerdict verdict =
        ReadHoldingRegisters(link, station, RegCapacityCode, 2, caller, SendForm::Paced, v);
    if (verdict.ok) {
        id.capacity = v[0];
        id.version = v[1];
    }
    return verdict;
}

QString VersionText(int versionThousandths)
{
    return QString::asprintf("%.3f", versionThousandths * 0.001);
}

}  // namespace quillon
