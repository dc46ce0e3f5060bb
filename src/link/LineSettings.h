#pragma once
// Line settings of a serial link, and the IPv4 address of a network module.

#include <QString>
#include <cstdint>

namespace quillon {

enum class Parity { None, Odd, Even };

struct LineSettings {
    int m_nBaud = 19200;         // the drive offers 4800, 9600, 19200 and 38400
    int m_nDataBits = 8;         // 7 or 8
    Parity m_parity = Parity::None;
    int m_nStopBits = 1;         // 1 or 2
};

// The four baud rates a drive offers, by their index in 09-02 and the session files.
inline constexpr int kBaudRates[] = {4800, 9600, 19200, 38400};

// True for settings the link opens a line with: 4800 to 38400 baud, 7 or 8 data bits, 1 or 2
// stop bits. (A hand-over from another tool may name a rate between the four.)
bool IsSupportedLine(const LineSettings& line);

// True when the baud rate is one of the four a drive can be set to.
bool IsDriveBaudRate(int baud);

// Parity from the byte InitComm takes: 0 none, 1 odd, 2 even. Other values give false.
bool ParityFromByte(int value, Parity& parity);

// "19200 8N2", for messages and diagnostics.
QString LineText(const LineSettings& line);

// The network module's socket address: family, port and IPv4 address, host byte order. The
// device search fills it; the "TCPIP" path of the link connects to it.
struct PeerAddress {
    std::uint16_t m_nFamily = 2;     // IPv4
    std::uint16_t m_nPort = 0;       // 0: the module's default data port (kModuleDataPort)
    std::uint32_t m_nAddress = 0;    // 127.0.0.1 is 0x7F000001

    // Dotted decimal of the address part, as the connection dialog prints it.
    QString AddressText() const;
};

// TCP port on which a network module passes Modbus RTU frames to and from its serial line
// unchanged (frames keep their CRC). Used when the peer address names no port.
inline constexpr std::uint16_t kModuleDataPort = 10001;

}  // namespace quillon
