#include "exchange/XlsRead.h"

#include <QDataStream>
#include <QFile>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>
#include <freexl.h>

namespace quillon {
namespace {

constexpr unsigned kMaxColumns = 256;
constexpr unsigned kMaxRows = 65536;  // the format's own bound
// Cells looked at in one workbook: far beyond any file of ours, and a bound on what a forged
// sheet size can cost.
constexpr qint64 kMaxCells = 4 * 1024 * 1024;
constexpr int kReaderTimeoutMs = 30000;                 // for one answer from the reading process
constexpr qsizetype kMaxAnswerBytes = 512 * 1024 * 1024;

class CXlsHandle {
public:
    explicit CXlsHandle(const QString& path) {
        if (freexl_open(QFile::encodeName(path).constData(), &m_handle) != FREEXL_OK) {
            if (m_handle) freexl_close(m_handle);
            m_handle = nullptr;
        }
    }
    ~CXlsHandle() {
        if (m_handle) freexl_close(m_handle);
    }
    CXlsHandle(const CXlsHandle&) = delete;
    CXlsHandle& operator=(const CXlsHandle&) = delete;
    const void* get() const { return m_handle; }

private:
    const void* m_handle = nullptr;
};

QString CellText(const FreeXL_CellValue& v) {
    switch (v.type) {
    case FREEXL_CELL_INT: return QString::number(v.value.int_value);
    case FREEXL_CELL_DOUBLE: return QString::number(v.value.double_value, 'g', 15);
    case FREEXL_CELL_TEXT:
    case FREEXL_CELL_SST_TEXT:
    case FREEXL_CELL_DATE:
    case FREEXL_CELL_DATETIME:
    case FREEXL_CELL_TIME: return v.value.text_value ? QString::fromUtf8(v.value.text_value) : QString();
    default: return {};
    }
}

// The reading itself, in whichever process runs it.
std::optional<Workbook> ReadWithFreexl(const QString& path, QString& error) {
    CXlsHandle xls(path);
    unsigned int count = 0;
    if (!xls.get() || freexl_get_info(xls.get(), FREEXL_BIFF_SHEET_COUNT, &count) != FREEXL_OK) {
        error = QStringLiteral("the file is not a legacy workbook or is damaged");
        return std::nullopt;
    }
    Workbook book;
    qint64 cells = 0;
    for (unsigned short s = 0; s < count && s < 4096; ++s) {
        const char* name = nullptr;
        unsigned int rows = 0;
        unsigned short columns = 0;
        if (freexl_get_worksheet_name(xls.get(), s, &name) != FREEXL_OK ||
            freexl_select_active_worksheet(xls.get(), s) != FREEXL_OK ||
            freexl_worksheet_dimensions(xls.get(), &rows, &columns) != FREEXL_OK) {
            error = QStringLiteral("sheet %1 of the workbook is damaged").arg(s);
            return std::nullopt;
        }
        cells += std::min<qint64>(qint64(rows) + 1, kMaxRows) * std::min<qint64>(qint64(columns) + 1, kMaxColumns);
        if (cells > kMaxCells) {
            error = QStringLiteral("the workbook is too large for a parameter or graph file");
            return std::nullopt;
        }
        WorkSheet sheet{name ? QString::fromUtf8(name) : QString(), {}};
        // The sizes are read as counts; should a file give the last index instead, the one more
        // row and column looked at costs nothing (freexl refuses a cell outside the sheet).
        for (unsigned r = 0; r <= rows && r < kMaxRows; ++r)
            for (unsigned c = 0; c <= columns && c < kMaxColumns; ++c) {
                FreeXL_CellValue v{};
                if (freexl_get_cell_value(xls.get(), r, static_cast<unsigned short>(c), &v) != FREEXL_OK) continue;
                const QString text = CellText(v);
                if (!text.isEmpty()) sheet.SetCell(static_cast<int>(r), static_cast<int>(c), text);
            }
        book.sheets.push_back(std::move(sheet));
    }
    return book;
}

// What the reading process hands back: its error, or the sheets.
QByteArray Serialize(const std::optional<Workbook>& book, const QString& error) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << bool(book) << error;
    if (!book) return bytes;
    out << qint64(book->sheets.size());
    for (const WorkSheet& sheet : book->sheets) {
        out << sheet.name << qint64(sheet.rows.size());
        for (const auto& row : sheet.rows) {
            out << qint64(row.size());
            for (const QString& cell : row) out << cell;
        }
    }
    return bytes;
}

std::optional<Workbook> Deserialize(const QByteArray& bytes, QString& error) {
    QDataStream in(bytes);
    bool ok = false;
    in >> ok >> error;
    if (!ok || in.status() != QDataStream::Ok) return std::nullopt;
    Workbook book;
    qint64 sheets = 0;
    in >> sheets;
    for (qint64 s = 0; s < sheets && in.status() == QDataStream::Ok; ++s) {
        WorkSheet sheet;
        qint64 rows = 0;
        in >> sheet.name >> rows;
        for (qint64 r = 0; r < rows && in.status() == QDataStream::Ok; ++r) {
            qint64 cells = 0;
            in >> cells;
            std::vector<QString> row;
            for (qint64 c = 0; c < cells && in.status() == QDataStream::Ok; ++c) row.emplace_back(), in >> row.back();
            sheet.rows.push_back(std::move(row));
        }
        book.sheets.push_back(std::move(sheet));
    }
    if (in.status() != QDataStream::Ok) {
        error = QStringLiteral("the legacy reader's answer was cut short");
        return std::nullopt;
    }
    return book;
}

}  // namespace

std::optional<Workbook> ReadXls(const QString& path, QString& error) {
    // freexl is not hardened against crafted files (a damaged one can make it read past its own
    // buffers), so it reads in a child process: a file that upsets it ends that process, not the
    // program, and is reported as damaged.
    int fds[2];
    if (::pipe2(fds, O_CLOEXEC) != 0) {
        error = QStringLiteral("can't start the legacy reader: %1").arg(QString::fromLocal8Bit(std::strerror(errno)));
        return std::nullopt;
    }
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::close(fds[0]);
        // Whatever the library or a checker says on its way down is no message of ours: the
        // parent reports the file as damaged.
        if (const int null = ::open("/dev/null", O_WRONLY | O_CLOEXEC); null >= 0) ::dup2(null, STDERR_FILENO);
        QString childError;
        const QByteArray answer = Serialize(ReadWithFreexl(path, childError), childError);
        for (qsizetype done = 0; done < answer.size();) {
            const ssize_t n = ::write(fds[1], answer.constData() + done, static_cast<size_t>(answer.size() - done));
            if (n <= 0 && errno != EINTR) ::_exit(1);
            if (n > 0) done += n;
        }
        ::_exit(0);
    }
    ::close(fds[1]);
    if (pid < 0) {
        ::close(fds[0]);
        error = QStringLiteral("can't start the legacy reader: %1").arg(QString::fromLocal8Bit(std::strerror(errno)));
        return std::nullopt;
    }
    QByteArray answer;
    bool gaveUp = false;
    char piece[65536];
    for (;;) {
        pollfd p{fds[0], POLLIN, 0};
        const int ready = ::poll(&p, 1, kReaderTimeoutMs);
        if (ready < 0 && errno == EINTR) continue;
        if (ready <= 0) {
            gaveUp = true;
            break;
        }
        const ssize_t n = ::read(fds[0], piece, sizeof piece);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        answer.append(piece, n);
        if (answer.size() > kMaxAnswerBytes) {
            gaveUp = true;
            break;
        }
    }
    ::close(fds[0]);
    if (gaveUp) ::kill(pid, SIGKILL);
    int status = 0;
    while (::waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
    if (gaveUp || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        error = QStringLiteral("the file is not a legacy workbook or is damaged");
        return std::nullopt;
    }
    return Deserialize(answer, error);
}

}  // namespace quillon
