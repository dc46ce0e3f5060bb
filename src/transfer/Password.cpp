#include "transfer/Password.h"

#include "base/Prompt.h"
#include "base/SessionState.h"
#include "base/TextConv.h"
#include "link/DriveSerial.h"
#include "link/ModbusFrame.h"
#include "link/RegisterReaders.h"
#include "link/Registers.h"
#include "transfer/TransferCommands.h"
#include "transfer/TransferWindows.h"

#include <algorithm>
#include <array>

namespace quillon {
namespace {

const char* const kRepeatDiffers = "The repeat password is not same as new password!";
const char* const kBeyondRange = "Beyond the range!";
const char* const kNotDecimal = "The password must be the DEC value!!";
const char* const kSetFailure = "Set password failure!";
const char* const kDisableError = "Disable password error !";
const char* const kNoPassword = "The station num hasn't exist password!";

QString Text(const char* text) { return QString::fromLatin1(text); }

// The range check reads the text as atoi does, so "12a" passes it as 12.
std::optional<QString> CheckRange(const QString& password) {
    if (Atoi(password) > kPasswordMax) return Text(kBeyondRange);
    return std::nullopt;
}

std::optional<QString> CheckDigits(const QString& password) {
    const bool digits = std::all_of(password.begin(), password.end(),
                                    [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (!digits) return Text(kNotDecimal);
    return std::nullopt;
}

enum class SendOutcome { Ok, TransportFailed, WrongFunction };

// One password frame with SendFrame and an 8-byte reply; a transport failure is told here.
SendOutcome SendPassword(CDriveSerial& link, int station, int value) {
    std::array<unsigned char, kRequestLength> tx{};
    BuildPasswordFrame(station, value, tx.data());
    std::array<unsigned char, kWriteReplyLength> rx{};
    const ErrType result = link.SendFrame(tx.data(), tx.size(), rx.data(), rx.size());
    if (result != ErrNone) {
        Prompt().Message(ErrTypeText(result));
        return SendOutcome::TransportFailed;
    }
    return rx[1] == ModbusFn::WriteSingle ? SendOutcome::Ok : SendOutcome::WrongFunction;
}

// A new password: the same value twice in a row.
void SendNewPassword(CDriveSerial& link, int station, int value) {
    for (int i = 0; i < 2; ++i) {
        const SendOutcome outcome = SendPassword(link, station, value);
        if (outcome == SendOutcome::TransportFailed) return;
        if (outcome == SendOutcome::WrongFunction) {
            Prompt().Message(Text(kSetFailure));
            return;
        }
    }
}

// Sends the current password once; true when the drive took the frame. `wrongFunctionText`
// is what a reply with another function byte shows.
bool SendUnlock(CDriveSerial& link, int station, int value, const char* wrongFunctionText) {
    const SendOutcome outcome = SendPassword(link, station, value);
    if (outcome == SendOutcome::WrongFunction) Prompt().Message(Text(wrongFunctionText));
    return outcome == SendOutcome::Ok;
}

// The station a password command works on; nullopt when the person cancelled.
std::optional<int> AskStation(const SessionState& session) {
    return Prompt().ChooseStation(QString::fromLatin1(kStationSelectCaption), session.m_stations);
}

}  // namespace

std::optional<QString> CheckPasswordSet(const QString& password, const QString& repeat) {
    if (password != repeat) return Text(kRepeatDiffers);
    if (auto failed = CheckRange(password)) return failed;
    return CheckDigits(password);
}

std::optional<QString> CheckPasswordInput(const QString& password) {
    if (auto failed = CheckRange(password)) return failed;
    return CheckDigits(password);
}

std::optional<QString> CheckChangePassword(const QString& oldPassword, const QString& newPassword,
                                           const QString& repeat) {
    if (auto failed = CheckPasswordInput(oldPassword)) return failed;
    return CheckPasswordSet(newPassword, repeat);
}

void BuildPasswordFrame(int station, int value, unsigned char* frame) {
    BuildWriteSingleFrame(std::span<unsigned char>(frame, kRequestLength), station,
                          RegParameterPassword, static_cast<std::uint16_t>(value));
}

namespace {

// The station a password command works on and whether its parameters are locked now.
struct PasswordTarget {
    CDriveSerial* link;
    int station;
    int locked;
};

// Asks for the station and reads its password state; nullopt when the person cancelled, there
// is no link, or the read failed (its message already shown).
std::optional<PasswordTarget> ChoosePasswordTarget(SessionState& session, ITransferWindows& windows) {
    const std::optional<int> station = AskStation(session);
    CDriveSerial* link = windows.Link();
    if (!station || !link) return std::nullopt;
    PasswordTarget target{link, *station, 0};
    if (!OnLink(windows, [&] { return ReadPasswordState(*link, *station, target.locked); }))
        return std::nullopt;
    return target;
}

}  // namespace

namespace {

// Sends `password` to unlock the target's parameters and reads the state back: true when they
// are open now. A failed send shows `sendFailure`; a drive still locked shows the disable error.
bool Unlock(const PasswordTarget& target, const QString& password, const char* sendFailure) {
    if (!SendUnlock(*target.link, target.station, Atoi(password), sendFailure)) return false;
    int locked = 0;
    if (!ReadPasswordState(*target.link, target.station, locked)) return false;
    if (locked) Prompt().Message(Text(kDisableError));
    return !locked;
}

}  // namespace

void RunPasswordSet(SessionState& session, ITransferWindows& windows) {
    const std::optional<PasswordTarget> target = ChoosePasswordTarget(session, windows);
    if (!target) return;
    if (!target->locked) {
        const std::optional<QString> password = windows.AskPasswordSet();
        if (password)
            windows.LinkWork(
                [&] { SendNewPassword(*target->link, target->station, Atoi(*password)); });
        return;
    }
    const std::optional<ChangePasswordEntry> change = windows.AskChangePassword();
    if (!change ||
        !OnLink(windows, [&] { return Unlock(*target, change->oldPassword, kDisableError); }))
        return;
    windows.LinkWork(
        [&] { SendNewPassword(*target->link, target->station, Atoi(change->newPassword)); });
}

void RunPasswordClear(SessionState& session, ITransferWindows& windows) {
    const std::optional<PasswordTarget> target = ChoosePasswordTarget(session, windows);
    if (!target) return;
    if (!target->locked) {
        Prompt().Message(Text(kNoPassword));
        return;
    }
    const std::optional<QString> password = windows.AskPasswordInput();
    if (password) OnLink(windows, [&] { return Unlock(*target, *password, kSetFailure); });
}

}  // namespace quillon
