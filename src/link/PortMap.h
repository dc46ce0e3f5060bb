#pragma once
// Which device stands behind "COM1".."COMn" on this machine.
//
// The connection logic and the session files know serial ports by COM number only. Pinned
// entries come first: the environment variable QUILLON_PORTS, then the file ports.map beside
// the program (or, when there is none, in the user's configuration folder), both as "COM1=/dev/ttyUSB0,COM7=/tmp/sim0" (entries split at commas or line
// breaks; blank lines and lines starting with '#' are ignored; the variable wins over the file
// for the same COM number). Then every serial device the system lists takes the lowest free
// numbers: USB and ACM adapters first, then on-board UARTs, each kind in name order, so the
// numbering stays the same from one start to the next. Pseudo-terminals (a simulated drive) are
// never listed by the system and are reached by pinning only.

#include <QString>
#include <vector>

namespace quillon {

inline constexpr const char* kPortsEnvVar = "QUILLON_PORTS";
inline constexpr const char* kPortsFileName = "ports.map";

struct PortEntry {
    int m_nCom = 0;          // 1 for COM1
    QString m_strDevice;     // the path that is opened
    QString m_strDisplay;    // shown beside the COM name: /dev/serial/by-id/... where one exists
    bool m_bPinned = false;  // from QUILLON_PORTS or ports.map
    QString m_strDescription;  // what the adapter calls itself ("FT232R USB UART"); may be empty

    bool operator==(const PortEntry&) const = default;
};

// A serial device as the system lists it.
struct FoundDevice {
    QString m_strPath;       // "/dev/ttyUSB0"
    QString m_strStableName; // "/dev/serial/by-id/usb-...-port0", empty if there is none
    QString m_strDescription; // the adapter's own description, empty if it gives none
};

// COM number of a port name: "COM3" gives 3, "\\.\COM12" gives 12; 0 for anything else.
int ComNumberFromName(const QString& portName);

// The pinned entries of one text, in order. Malformed entries are skipped.
std::vector<PortEntry> ParsePinnedPorts(const QString& text);

// The port list from pinned entries (environment first, then file) and found devices. A device
// that a pinned entry already names (by its resolved path) is not listed again.
std::vector<PortEntry> BuildPortTable(const std::vector<PortEntry>& fromEnvironment,
                                      const std::vector<PortEntry>& fromFile,
                                      std::vector<FoundDevice> devices);

// The entry as the port list shows it: the COM name, the adapter's description and the device
// (its stable by-id name where there is one), so a person knows which adapter is which:
// "COM3   FT232R USB UART   /dev/serial/by-id/usb-FTDI_FT232R_USB_UART_A50285BI-if00-port0".
QString PortListText(const PortEntry& entry);

// The port list of this machine now. `appDir` is the program's directory (where ports.map
// lies); empty means the process-wide program directory.
std::vector<PortEntry> ScanPorts(const QString& appDir = QString());

// Device path of a port name ("COM3"), or an empty text when no device stands behind it.
QString DeviceForPortName(const QString& portName, const QString& appDir = QString());

}  // namespace quillon
