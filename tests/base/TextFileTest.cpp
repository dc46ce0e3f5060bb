// Reading the data files beside the program: whole files and the size limit.

#include "base/TextFile.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quillon;

namespace {

QString WriteFile(const QTemporaryDir& dir, const QString& name, const QByteArray& bytes) {
    const QString path = dir.filePath(name);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    EXPECT_EQ(file.write(bytes), bytes.size());
    return path;
}

QByteArray Pattern(qsizetype size) {
    QByteArray bytes(size, Qt::Uninitialized);
    for (qsizetype i = 0; i < size; ++i) bytes[i] = static_cast<char>('a' + i % 23);
    return bytes;
}

}  // namespace

TEST(TextFile, WholeFileAtEverySizeAroundAReadPiece) {
    QTemporaryDir dir;
    for (const qsizetype size : {0, 1, 65535, 65536, 65537, 3 * 65536 + 7}) {
        const QByteArray content = Pattern(size);
        const auto bytes = ReadSmallFile(WriteFile(dir, QStringLiteral("f%1").arg(size), content));
        ASSERT_TRUE(bytes) << size;
        EXPECT_EQ(*bytes, content) << size;
    }
}

TEST(TextFile, LimitIsInclusiveAndAnythingLargerIsRefused) {
    QTemporaryDir dir;
    const auto atLimit = ReadSmallFile(WriteFile(dir, "at", QByteArray(kMaxDataFileBytes, 'x')));
    ASSERT_TRUE(atLimit);
    EXPECT_EQ(atLimit->size(), kMaxDataFileBytes);
    EXPECT_FALSE(ReadSmallFile(WriteFile(dir, "over", QByteArray(kMaxDataFileBytes + 1, 'x'))));
    EXPECT_FALSE(ReadSmallFile(dir.filePath("missing")));
}

// A device with no size and no end is refused once it passes the limit instead of being read
// for ever.
TEST(TextFile, EndlessDeviceIsRefusedAtTheLimit) {
    if (!QFile::exists("/dev/zero")) GTEST_SKIP() << "no /dev/zero";
    EXPECT_FALSE(ReadSmallFile(QStringLiteral("/dev/zero")));
}

TEST(TextFile, LinesEndAtLineFeedWithOrWithoutCarriageReturn) {
    const std::vector<QString> lines = SplitTextLines("a\r\nb\n\nc\r\rd");
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0], "a");
    EXPECT_EQ(lines[1], "b");
    EXPECT_EQ(lines[2], "");
    EXPECT_EQ(lines[3], "c\r\rd");
}
