#pragma once
// What a transaction with a drive can end in, and the words the program shows for it.

#include <QString>

namespace quillon {

// Result of one transaction (CSerial::CommandSend). Callers compare with the numbers: any value
// other than 0, 1 and 2 is a communication fault.
enum ErrType : int {
    ErrNone = 0,     // a reply arrived and passed the CRC; the caller judges its function byte
    ErrCrc = 1,      // the reply's CRC was wrong
    ErrTimeout = 2,  // no complete reply within the response time-out
    ErrComm = 3,     // the line is closed, lost or refused the request
};

// The word of a failed transaction: "CRC parity error!", "TimeOut!", or "Communication error!"
// for every other non-zero value. An empty text for ErrNone.
QString ErrTypeText(int result);

// The text of a drive's exception byte (offset 2 of an exception reply). The drive answers with
// the letters 'Q' 'R' 'S' 'T'; everything else, the standard Modbus codes included, falls back
// to "Writing Mode Error ". The trailing blanks belong to the texts.
QString ExceptionText(unsigned char code);

// "Station Num %d", a line feed and ExceptionText(code), in one message box.
QString ExceptionErrorText(unsigned char code, int station);
void ShowExceptionError(unsigned char code, int station);

}  // namespace quillon
