#include "link/ReplyJudge.h"

#include "base/Prompt.h"

namespace quillon {
namespace {

const QString kCommError = QStringLiteral("Communication error!");

QString StationPrefix(int station)
{
    return QStringLiteral("Station Num %1").arg(station);
}

// Text of a transport failure (result != 0) for each caller.
QString TransportText(ReplyCaller caller, int result, int station, int group)
{
    switch (caller) {
    case ReplyCaller::GroupRead:
    case ReplyCaller::Identification:
        return ErrTypeText(result);
    case ReplyCaller::GroupWrite:
        return StationPrefix(station) + QStringLiteral(":write parameter group %1 ").arg(group) +
               ErrTypeText(result);
    case ReplyCaller::RunStatus:
    case ReplyCaller::ControlPanel:
        // 1 and 2 have their words, 3 the general one; any other value fails silently.
        return (result >= ErrCrc && result <= ErrComm) ? ErrTypeText(result) : QString();
    case ReplyCaller::RunSourceAtConnect:
    case ReplyCaller::TakeOverIdentification:
        return kCommError;
    case ReplyCaller::PasswordState:
        return QStringLiteral("Read parameter password error!");
    case ReplyCaller::PageAccess:
        return (result >= ErrCrc && result <= ErrComm) ? StationPrefix(station) + ErrTypeText(result)
                                                       : QString();
    case ReplyCaller::Polling:
        return QString();
    }
    return QString();
}

// Text of an exception reply (result 0, other function byte) for each caller.
QString ExceptionReplyText(ReplyCaller caller, unsigned char code, int station, int group)
{
    switch (caller) {
    case ReplyCaller::GroupRead:
    case ReplyCaller::Identification:
        return ExceptionText(code);
    case ReplyCaller::GroupWrite:
        return StationPrefix(station) + QStringLiteral(":write parameter group %1 ").arg(group) +
               ExceptionText(code);
    case ReplyCaller::RunStatus:
    case ReplyCaller::ControlPanel:
    case ReplyCaller::RunSourceAtConnect:
    case ReplyCaller::TakeOverIdentification:
    case ReplyCaller::Polling:
        return kCommError;
    case ReplyCaller::PasswordState:
        return QStringLiteral("Read parameter password error!");
    case ReplyCaller::PageAccess:
        return ExceptionErrorText(code, station);
    }
    return QString();
}

}  // namespace

ReplyVerdict JudgeReply(ReplyCaller caller, int result, const unsigned char* reply,
                        unsigned char sentFunction, int station, int group)
{
    ReplyVerdict v;
    if (result != ErrNone) {
        v.text = TransportText(caller, result, station, group);
        return v;
    }
    if (reply[1] == sentFunction) {
        v.ok = true;
        return v;
    }
    v.exception = true;
    v.text = ExceptionReplyText(caller, reply[2], station, group);
    return v;
}

void ShowVerdict(const ReplyVerdict& verdict)
{
    if (!verdict.text.isEmpty())
        Prompt().Message(verdict.text);
}

}  // namespace quillon
