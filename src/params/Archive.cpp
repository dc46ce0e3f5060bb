#include "params/Archive.h"

#include "base/TextConv.h"

namespace quillon {

void CArchiveReader::Need(qsizetype bytes, const char* what) const {
    if (bytes > Remaining())
        throw ArchiveError(QStringLiteral("the file ends at byte %1, in the middle of %2")
                               .arg(m_data.size())
                               .arg(QLatin1String(what)));
}

qint32 CArchiveReader::ReadInt() {
    Need(4, "a number");
    const auto* p = reinterpret_cast<const unsigned char*>(m_data.data() + m_pos);
    const quint32 u =
        quint32(p[0]) | quint32(p[1]) << 8 | quint32(p[2]) << 16 | quint32(p[3]) << 24;
    m_pos += 4;
    return static_cast<qint32>(u);
}

QString CArchiveReader::ReadText() {
    const qsizetype at = m_pos;
    const qint32 length = ReadInt();
    if (length < 0)
        throw ArchiveError(
            QStringLiteral("the text at byte %1 has a negative length (%2)").arg(at).arg(length));
    if (length > kMaxArchiveTextBytes)
        throw ArchiveError(QStringLiteral("the text at byte %1 is %2 bytes long; a project file's "
                                          "texts are shorter than 100 bytes")
                               .arg(at)
                               .arg(length));
    Need(length, "a text");
    // Files saved by older Windows tools hold their texts in GB18030; ours are UTF-8.
    const QString text = DecodeLegacyText(m_data.sliced(m_pos, length));
    m_pos += length;
    return text;
}

void CArchiveWriter::WriteInt(qint32 value) {
    const auto u = static_cast<quint32>(value);
    const char bytes[4] = {char(u & 0xFF), char(u >> 8 & 0xFF), char(u >> 16 & 0xFF),
                           char(u >> 24 & 0xFF)};
    m_bytes.append(bytes, 4);
}

void CArchiveWriter::WriteText(const QString& text) {
    const QByteArray bytes = ArchiveTextBytes(text);
    WriteInt(static_cast<qint32>(bytes.size()));
    m_bytes.append(bytes);
}

QByteArray ArchiveTextBytes(const QString& text, qsizetype maxBytes) {
    QByteArray bytes = text.toUtf8();
    if (bytes.size() <= maxBytes) return bytes;
    // Step back over continuation bytes (10xxxxxx) so that no character is cut in half.
    qsizetype cut = maxBytes;
    while (cut > 0 && (static_cast<unsigned char>(bytes[cut]) & 0xC0) == 0x80) --cut;
    bytes.truncate(cut);
    return bytes;
}

}  // namespace quillon
