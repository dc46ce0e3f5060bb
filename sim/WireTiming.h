#pragma once
// Timing of a Modbus RTU line: what a transaction costs on the wire at a baud rate. The
// simulated drive paces its replies by it (--wire-timing) and the link benchmark takes its
// wire minimum from it, so both speak of the same line.

namespace quillon::sim {

// Bits of one character on the line: start, 8 data, parity or second stop, stop.
inline constexpr int kBitsPerChar = 11;
// Default pause of the drive between the end of a request and the start of its reply.
inline constexpr double kDefaultTurnaroundMs = 1.0;

struct WireTiming {
    int baud = 19200;
    double turnaroundMs = kDefaultTurnaroundMs;

    double CharSeconds() const { return static_cast<double>(kBitsPerChar) / baud; }
    // The silence that ends a frame: 3.5 characters, and a fixed 1.75 ms above 19200 baud.
    double SilenceSeconds() const { return baud > 19200 ? 0.00175 : 3.5 * CharSeconds(); }
    // From the first byte of a request to the last byte of its reply: the request's bytes,
    // the silence by which the drive knows the request has ended, its turnaround, and the
    // reply's bytes.
    double ExchangeSeconds(int requestBytes, int replyBytes) const
    {
        return (requestBytes + replyBytes) * CharSeconds() + SilenceSeconds() +
               turnaroundMs / 1000.0;
    }
    // From the first byte of a request to the first byte of the reply.
    double ReplyStartSeconds(int requestBytes) const
    {
        return requestBytes * CharSeconds() + SilenceSeconds() + turnaroundMs / 1000.0;
    }
};

}  // namespace quillon::sim
