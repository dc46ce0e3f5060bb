#pragma once
// The binary conventions of the project file. Whole numbers are 32-bit signed little-endian. A
// text is a 32-bit length followed by that many bytes, no terminator; its bytes are UTF-8, the
// code page of the system the program runs on (a text that is not valid UTF-8 comes from an
// older Windows tool and is read as GB18030). A text is always shorter than 100 bytes, a limit
// of the format that every reader of it relies on: the writer never makes a longer one and the
// reader refuses one.
//
// The reader never reads past its data: every read checks what is left first and raises
// ArchiveError, which the open turns into a failed open.

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <stdexcept>

namespace quillon {

inline constexpr qsizetype kMaxArchiveTextBytes = 99;

class ArchiveError : public std::runtime_error {
public:
    explicit ArchiveError(const QString& what) : std::runtime_error(what.toStdString()) {}
};

class CArchiveReader {
public:
    explicit CArchiveReader(QByteArrayView data) : m_data(data) {}

    qint32 ReadInt();
    QString ReadText();

    qsizetype Remaining() const { return m_data.size() - m_pos; }
    qsizetype Position() const { return m_pos; }

private:
    void Need(qsizetype bytes, const char* what) const;

    QByteArrayView m_data;
    qsizetype m_pos = 0;
};

class CArchiveWriter {
public:
    void WriteInt(qint32 value);
    // Texts longer than 99 bytes are cut at the last whole character that fits.
    void WriteText(const QString& text);

    const QByteArray& Bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

// The bytes a text is stored with, cut to at most `maxBytes` at a character boundary.
QByteArray ArchiveTextBytes(const QString& text, qsizetype maxBytes = kMaxArchiveTextBytes);

}  // namespace quillon
