#include "link/FrameLog.h"

#include "link/LinkResult.h"

#include <mutex>

namespace quillon {
namespace {

std::atomic<bool> g_bFrameLogOn{false};
std::mutex g_frameLogMutex;
IFrameSink* g_frameSink = nullptr;  // guarded by g_frameLogMutex

QString Line(const QDateTime& at, char direction, const QString& link, const QByteArray& bytes) {
    QString line = QStringLiteral("%1  %2  %3")
        .arg(at.toString(QStringLiteral("HH:mm:ss.zzz")), QChar::fromLatin1(direction), link);
    if (!bytes.isEmpty()) line += QStringLiteral("  ") + HexBytes(bytes);
    return line;
}

}  // namespace

IFrameSink* SetFrameSink(IFrameSink* sink) {
    std::lock_guard lock(g_frameLogMutex);
    IFrameSink* previous = g_frameSink;
    g_frameSink = sink;
    g_bFrameLogOn.store(sink != nullptr, std::memory_order_relaxed);
    return previous;
}

bool FrameLogActive() { return g_bFrameLogOn.load(std::memory_order_relaxed); }

void LogFrame(const FrameRecord& record) {
    std::lock_guard lock(g_frameLogMutex);
    if (g_frameSink) g_frameSink->OnFrame(record);
}

QString HexBytes(const QByteArray& bytes) {
    return QString::fromLatin1(bytes.toHex(' ').toUpper());
}

QString FormatFrameRecord(const FrameRecord& r) {
    const QString verdict = r.result == ErrNone ? QStringLiteral("OK") : ErrTypeText(r.result);
    return Line(r.sent, '>', r.link, r.request) + u'\n' + Line(r.answered, '<', r.link, r.reply) +
           QStringLiteral("  (%1 ms) %2\n").arg(r.sent.msecsTo(r.answered)).arg(verdict);
}

CFrameLogFile::CFrameLogFile(const QString& path) : m_file(path) {
    m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text);
}

void CFrameLogFile::OnFrame(const FrameRecord& record) {
    m_file.write(FormatFrameRecord(record).toUtf8());
    m_file.flush();
}

}  // namespace quillon
