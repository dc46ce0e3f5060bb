#pragma once
// The frame log: every request the link sends and the reply it got, with the times and the
// transaction's result, for the engineer who must show a drive's maker what went over the line.
// One sink at a time takes the records (the CLI's --log-frames file, the Frame log window).
// With no sink installed a transaction pays one relaxed atomic load and nothing else.
//
// Threads. Records come from whatever thread ran the transaction, several links at once in a
// fleet backup; the sink is called under the log's lock, one record at a time, and removing a
// sink waits for a call under way to end, so a sink may go away once it is removed.

#include <QByteArray>
#include <QDateTime>
#include <QFile>
#include <QString>
#include <atomic>

namespace quillon {

struct FrameRecord {
    QString link;  // what the link is connected to ("/dev/ttyUSB0", "127.0.0.1:10001")
    QDateTime sent;
    QDateTime answered;
    QByteArray request;
    QByteArray reply;  // the bytes that came back, as many as did
    int result = 0;    // the transaction's ErrType
};

class IFrameSink {
public:
    virtual ~IFrameSink() = default;
    virtual void OnFrame(const FrameRecord& record) = 0;
};

// Installs `sink` (not owned; nullptr: none) and returns the previous one.
IFrameSink* SetFrameSink(IFrameSink* sink);

// Whether a sink wants records: the link asks before it gathers one.
bool FrameLogActive();
// Hands `record` to the sink, if there still is one.
void LogFrame(const FrameRecord& record);

// Bytes as upper-case hex pairs separated by blanks: "01 03 0D 00".
QString HexBytes(const QByteArray& bytes);

// Two lines, each ending in a line feed: the request and the reply, time to the millisecond,
// direction and link, hex bytes; the reply line closes with the time it took and the result
// ("OK" or the transaction's failure word):
//   08:45:01.123  >  127.0.0.1:10001  01 03 0D 00 00 01 87 66
//   08:45:01.140  <  127.0.0.1:10001  01 03 02 00 C9 79 D2  (17 ms) OK
QString FormatFrameRecord(const FrameRecord& record);

// A sink that appends the formatted records to a file, flushed after each.
class CFrameLogFile final : public IFrameSink {
public:
    // Opens `path` for appending; Ok() false (Error() says why) when it can't.
    explicit CFrameLogFile(const QString& path);
    bool Ok() const { return m_file.isOpen(); }
    QString Error() const { return m_file.errorString(); }
    void OnFrame(const FrameRecord& record) override;

private:
    QFile m_file;
};

// Installs a sink for the lifetime of a scope.
class ScopedFrameSink {
public:
    explicit ScopedFrameSink(IFrameSink& sink) : m_previous(SetFrameSink(&sink)) {}
    ~ScopedFrameSink() { SetFrameSink(m_previous); }
    ScopedFrameSink(const ScopedFrameSink&) = delete;
    ScopedFrameSink& operator=(const ScopedFrameSink&) = delete;

private:
    IFrameSink* m_previous;
};

}  // namespace quillon
