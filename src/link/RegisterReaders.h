#pragma once
// The small readers through which the program queries single registers of a drive, and the
// identification read. Each reader sends one read frame, takes the value from the reply and
// reports a failure at once in a message box, in the words its row of the caller table gives
// (ReplyJudge.h). All return 1 on success and 0 on failure, and leave their output alone on
// failure.

#include "link/DriveSerial.h"
#include "link/ReplyJudge.h"

#include <QString>
#include <cstdint>

namespace quillon {

// How a frame goes to the link: straight through CommandSend, or paced through SendFrame (the
// form of everything a click or a timer starts that may follow another frame at once).
enum class SendForm { Direct, Paced };

// One read of `count` registers from `reg`. The reply (ReadReplyLength(count) bytes, at most
// kMaxRegistersPerFrame registers) lands in `values`. Nothing is shown: the verdict says what
// the caller would report.
ReplyVerdict ReadHoldingRegisters(CDriveSerial& link, int station, std::uint16_t reg, int count,
                                  ReplyCaller caller, SendForm form, std::uint16_t* values);

// Run status bit 0 of RegStatusWord.
int ReadRunStatus(CDriveSerial& link, int station, int& running);
// Password state of RegParameterPassword: `locked` is 1 when it reads 2, else 0.
int ReadPasswordState(CDriveSerial& link, int station, int& locked);
// Parameter 00-02, the run command source.
int ReadRunSource(CDriveSerial& link, int station, int& value);
// RegCapacityCode: the drive's model code.
int ReadCapacity(CDriveSerial& link, int station, int& value);
// RegSoftwareVersion as a number: the register times 0.001.
int ReadVersion(CDriveSerial& link, int station, float& version);
// RegModelWord.
int ReadModelWord(CDriveSerial& link, int station, int& value);

// One register, silently: the callers (the group write's checks) add their own word.
int ReadRegister(CDriveSerial& link, int station, std::uint16_t reg, int& value);
inline int ReadRegister0104(CDriveSerial& l, int s, int& v) { return ReadRegister(l, s, 0x0104, v); }
inline int ReadRegister0105(CDriveSerial& l, int s, int& v) { return ReadRegister(l, s, 0x0105, v); }
inline int ReadRegister0106(CDriveSerial& l, int s, int& v) { return ReadRegister(l, s, 0x0106, v); }
inline int ReadRegister0107(CDriveSerial& l, int s, int& v) { return ReadRegister(l, s, 0x0107, v); }
inline int ReadRegister0108(CDriveSerial& l, int s, int& v) { return ReadRegister(l, s, 0x0108, v); }
inline int ReadRegister0109(CDriveSerial& l, int s, int& v) { return ReadRegister(l, s, 0x0109, v); }
inline int ReadRegister0200(CDriveSerial& l, int s, int& v) { return ReadRegister(l, s, 0x0200, v); }
inline int ReadRegister0201(CDriveSerial& l, int s, int& v) { return ReadRegister(l, s, 0x0201, v); }

// Any register as "%d", for the editing pages; failures in the pages' words.
int ReadParameterText(CDriveSerial& link, std::uint16_t reg, int station, QString& text);

// The identification read: RegCapacityCode and RegSoftwareVersion in one frame of two
// registers (a 9-byte reply), sent with SendFrame.
struct Identification {
    int capacity = 0;  // the model code
    int version = 0;   // thousandths
};
ReplyVerdict ReadIdentification(CDriveSerial& link, int station, ReplyCaller caller,
                                Identification& id);

// "%.3f" of a version register (thousandths), as the status bar shows it.
QString VersionText(int versionThousandths);

}  // namespace quillon
