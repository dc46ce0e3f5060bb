#pragma once
// A byte channel to a drive bus: a serial port, a TCP connection to a network module, or a
// simulated drive in the same process. CSerial runs Modbus transactions over any of them.
//
// Threading: a channel is created, closed and destroyed on the I/O thread of the CSerial that
// owns it (LinkThread.h), which runs no event loop, so implementations may keep Qt objects
// with thread affinity and nothing happens on them between calls. Its byte I/O (Send, Receive,
// DiscardInput) runs there too, unless AnyThreadIo() says it may run on whichever thread asks,
// one thread at a time: then a transaction costs no hand-over between threads.

#include <QString>

namespace quillon {

enum class ChannelStatus {
    Ok,       // bytes were delivered (Receive) or sent (Send)
    Timeout,  // nothing arrived within the time allowed
    Lost,     // the device or peer is gone
};

class Channel {
public:
    virtual ~Channel() = default;

    // Whether Send, Receive and DiscardInput may run on any thread, one at a time.
    virtual bool AnyThreadIo() const { return false; }

    virtual bool IsOpen() const = 0;
    virtual void Close() = 0;

    // Throws away everything received so far that nobody has read.
    virtual void DiscardInput() = 0;

    // Sends all `length` bytes, waiting at most `timeoutMs` for them to leave. Lost when the
    // line is gone (the channel then counts as closed); Timeout when they could not be handed
    // over in time.
    virtual ChannelStatus Send(const unsigned char* data, int length, int timeoutMs) = 0;

    // Waits at most `timeoutMs` for input, then copies up to `max` bytes into `buffer` and sets
    // `got`. Returns at once when input is already waiting. Ok with `got` > 0, or Timeout /
    // Lost with `got` == 0. A lost line stays lost; closing the channel is its owner's job.
    virtual ChannelStatus Receive(unsigned char* buffer, int max, int& got, int timeoutMs) = 0;

    // What the channel is connected to, for messages ("/dev/ttyUSB0", "127.0.0.1:10001").
    virtual QString Describe() const = 0;
};

}  // namespace quillon
