#include "exchange/ZipArchive.h"

#include <algorithm>
#include <cstring>
#include <unzip.h>

namespace quillon {
namespace {

using Memory = CZipReader::Memory;

voidpf ZCALLBACK MemOpen(voidpf opaque, const void*, int) { return opaque; }

uLong ZCALLBACK MemRead(voidpf, voidpf stream, void* buf, uLong size) {
    auto* m = static_cast<Memory*>(stream);
    const qint64 left = m->data.size() - m->pos;
    const qint64 n = std::clamp<qint64>(static_cast<qint64>(size), 0, std::max<qint64>(left, 0));
    if (n > 0) std::memcpy(buf, m->data.data() + m->pos, static_cast<size_t>(n));
    m->pos += n;
    return static_cast<uLong>(n);
}

uLong ZCALLBACK MemWrite(voidpf, voidpf, const void*, uLong) { return 0; }

ZPOS64_T ZCALLBACK MemTell(voidpf, voidpf stream) {
    return static_cast<ZPOS64_T>(static_cast<Memory*>(stream)->pos);
}

long ZCALLBACK MemSeek(voidpf, voidpf stream, ZPOS64_T offset, int origin) {
    auto* m = static_cast<Memory*>(stream);
    qint64 base = 0;
    if (origin == ZLIB_FILEFUNC_SEEK_CUR) base = m->pos;
    else if (origin == ZLIB_FILEFUNC_SEEK_END) base = m->data.size();
    else if (origin != ZLIB_FILEFUNC_SEEK_SET) return -1;
    if (offset > static_cast<ZPOS64_T>(m->data.size())) return -1;
    const qint64 target = base + static_cast<qint64>(offset);
    if (target < 0 || target > m->data.size()) return -1;
    m->pos = target;
    return 0;
}

int ZCALLBACK MemClose(voidpf, voidpf) { return 0; }
int ZCALLBACK MemError(voidpf, voidpf) { return 0; }

}  // namespace

CZipReader::CZipReader(QByteArrayView data) : m_memory{data, 0} {
    zlib_filefunc64_def io{};
    io.zopen64_file = MemOpen;
    io.zread_file = MemRead;
    io.zwrite_file = MemWrite;
    io.ztell64_file = MemTell;
    io.zseek64_file = MemSeek;
    io.zclose_file = MemClose;
    io.zerror_file = MemError;
    io.opaque = &m_memory;
    m_zip = unzOpen2_64("memory", &io);
}

CZipReader::~CZipReader() {
    if (m_zip) unzClose(m_zip);
}

std::optional<QByteArray> CZipReader::Read(const QString& name) {
    if (!m_zip) return std::nullopt;
    // Part names are compared without case, as packages are.
    if (unzLocateFile(m_zip, name.toUtf8().constData(), 2) != UNZ_OK) return std::nullopt;
    if (unzOpenCurrentFile(m_zip) != UNZ_OK) return std::nullopt;
    QByteArray bytes;
    char piece[16384];
    int n = 0;
    while ((n = unzReadCurrentFile(m_zip, piece, sizeof piece)) > 0) {
        bytes.append(piece, n);
        if (bytes.size() > m_budget) break;
    }
    const int closed = unzCloseCurrentFile(m_zip);  // checks the CRC of a member read whole
    if (n < 0 || bytes.size() > m_budget || closed != UNZ_OK) {
        m_budget = 0;  // a damaged package is not read further
        return std::nullopt;
    }
    m_budget -= bytes.size();
    return bytes;
}

}  // namespace quillon
