#pragma once
// Byte I/O straight on a POSIX descriptor (a serial device or a connected TCP socket), for
// channels whose transactions run on the calling thread. Only kernel calls: no Qt object is
// touched, so any one thread at a time may use a descriptor that a Qt object on another thread
// opened, as long as that thread runs no event loop for it.

#include "link/Channel.h"

#include <QtGlobal>

namespace quillon::fdio {

#ifdef Q_OS_UNIX
inline constexpr bool kAvailable = true;
#else
inline constexpr bool kAvailable = false;
#endif

enum class Kind { Terminal, Socket };

// Sends all bytes, waiting up to `timeoutMs` when the descriptor can't take them at once.
ChannelStatus Send(int fd, Kind kind, const unsigned char* data, int length, int timeoutMs);
// Waits up to `timeoutMs` for input, then reads up to `max` bytes. End of file, a hang-up or
// a read error is a lost line.
ChannelStatus Receive(int fd, unsigned char* buffer, int max, int& got, int timeoutMs);
// Throws away the input waiting on the descriptor.
void Discard(int fd, Kind kind);

}  // namespace quillon::fdio
