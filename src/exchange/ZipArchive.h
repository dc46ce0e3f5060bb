#pragma once
// A read-only zip package in memory, through minizip's unzip with memory callbacks. Only the
// named member reads are needed by the workbook reader.

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <optional>

namespace quillon {

class CZipReader {
public:
    explicit CZipReader(QByteArrayView data);
    ~CZipReader();
    CZipReader(const CZipReader&) = delete;
    CZipReader& operator=(const CZipReader&) = delete;

    bool IsOpen() const { return m_zip != nullptr; }
    // The bytes of the member `name`; nullopt when there is none, it is damaged, or it would take
    // the bytes unpacked by this reader past 256 MB (a package that unpacks to more is no
    // workbook of ours, whatever its members claim).
    std::optional<QByteArray> Read(const QString& name);

    struct Memory {
        QByteArrayView data;
        qint64 pos = 0;
    };

private:
    Memory m_memory;
    void* m_zip = nullptr;
    qint64 m_budget = 256 * 1024 * 1024;
};

}  // namespace quillon
