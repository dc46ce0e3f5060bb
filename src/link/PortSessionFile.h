#pragma once
// PZ4comfile.ini: the port of the last good link and the names people gave their network
// modules. Plain text, one value a line, each line ending in a line feed:
//   1. the port list's text: "COM1" and the like, or "TCPIP"
//   2. only after "TCPIP": the MAC of the module linked to
//   3. the number of modules that follow, "%d" (no such line when there are none)
//   4. per module two lines: its MAC, and its name or a single blank when it has none
// Kept in the program's folder, else the user's configuration folder, else the temporary folder
// (SessionPlaces.h); read from the first of them that has it. A file shorter than 4 bytes is ignored.

#include <QByteArray>
#include <QString>
#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace quillon {

inline constexpr const char* kPortSessionFileName = "PZ4comfile.ini";
inline constexpr const char* kTcpPortText = "TCPIP";

struct PortSession {
    QString portText;
    QString mac;  // the module linked to; only with "TCPIP"
    std::vector<std::pair<QString, QString>> names;  // MAC, name (empty when it has none)
};

std::array<QString, 3> PortSessionPlaces();
QString PortSessionPrimaryPath();   // the program folder's place
QString PortSessionFallbackPath();  // the temporary folder's place, the last one

// Junk lines give what can be taken from them: a count larger than the pairs that follow
// reads the pairs there are.
PortSession ParsePortSession(const std::vector<QString>& lines);
QByteArray FormatPortSession(const PortSession& session);

// nullopt when neither place can be read or the file is shorter than 4 bytes.
std::optional<PortSession> ReadPortSession();
// False when neither place can be written; the person is told why (SaveSessionFile).
bool WritePortSession(const PortSession& session);

}  // namespace quillon
