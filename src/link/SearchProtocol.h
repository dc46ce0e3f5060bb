#pragma once
// The datagrams of the device search and of the address assignment, on UDP port 30718. Shared
// by the program and the simulated module, so both speak exactly what is written here.
//
// Search (the module's own protocol):
//   query, 4 bytes:           00 00 00 F6
//   reply, up to 1024 bytes:  byte 3 is F7; bytes 24..29 are the module's MAC. Nothing else in
//                             it is looked at; a datagram without F7 at byte 3 is no reply.
//
// Address assignment (ours). A module is reached by its MAC alone, never by its address, so the
// request works whatever address the module has now, also one outside the local network: it
// is sent to the search address (a broadcast) and every module hears it.
//   request, 14 bytes:        00 00 00 F8, MAC (6 bytes), new IPv4 address (4 bytes, network
//                             order)
//   answer, 15 bytes:         00 00 00 F9, MAC (6 bytes), address in use now (4 bytes), status:
//                             0 the new address was taken, 1 it was refused
// The module with that MAC answers to the request's sender, from its address in use; every
// other module keeps quiet.

#include <QByteArray>
#include <QString>
#include <array>
#include <cstdint>
#include <optional>

namespace quillon {

inline constexpr std::uint16_t kSearchPort = 30718;
inline constexpr int kSearchDatagramSize = 1024;  // receive buffer of the search
inline constexpr int kSearchTimeoutMs = 2000;     // the search ends this long after the last datagram

inline constexpr int kTagOffset = 3;
inline constexpr unsigned char kQueryTag = 0xF6;
inline constexpr unsigned char kReplyTag = 0xF7;
inline constexpr unsigned char kSetAddressTag = 0xF8;
inline constexpr unsigned char kSetAddressAnswerTag = 0xF9;
inline constexpr int kReplyMacOffset = 24;
inline constexpr int kReplyLength = kReplyMacOffset + 6;  // what a module sends
inline constexpr int kSetAddressLength = 14;
inline constexpr int kSetAddressAnswerLength = 15;

using MacBytes = std::array<std::uint8_t, 6>;

// "%.2x-%.2x-%.2x-%.2x-%.2x-%.2x" of six bytes.
QString MacText(const MacBytes& mac);
// Six hex pairs separated by '-' (either case); nullopt for anything else.
std::optional<MacBytes> ParseMac(const QString& text);
// A dotted-decimal IPv4 address, host byte order; nullopt for anything else.
std::optional<std::uint32_t> ParseIpv4(const QString& text);
QString Ipv4Text(std::uint32_t address);

QByteArray SearchQuery();
QByteArray SearchReply(const MacBytes& mac);
// The MAC of a search reply; nullopt for a datagram that is no reply. The datagram is read as
// the search reads it: into a zeroed buffer of kSearchDatagramSize bytes, so a short reply
// yields zero bytes where it ends.
std::optional<MacBytes> SearchReplyMac(const QByteArray& datagram);

QByteArray SetAddressRequest(const MacBytes& mac, std::uint32_t address);
struct SetAddressMessage {
    MacBytes mac{};
    std::uint32_t address = 0;
    int status = 0;  // answers only
};
std::optional<SetAddressMessage> ParseSetAddressRequest(const QByteArray& datagram);
QByteArray SetAddressAnswer(const MacBytes& mac, std::uint32_t address, int status);
std::optional<SetAddressMessage> ParseSetAddressAnswer(const QByteArray& datagram);

}  // namespace quillon
