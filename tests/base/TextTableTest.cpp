#include "base/TextTable.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <climits>
#include <cstring>

using namespace quillon;

namespace {

// Counts printf conversions, treating "%%" as a literal percent sign. Returns -1 when a '%' is
// not followed by a conversion the program's formatting knows.
int CountConversions(const char* text)
{
    int count = 0;
    for (const char* p = text; *p; ++p) {
        if (*p != '%')
            continue;
        ++p;
        if (*p == '%')
            continue;
        while (*p && std::strchr("-+ #0123456789.", *p))
            ++p;
        if (!*p || !std::strchr("dusfxXc", *p))
            return -1;
        ++count;
    }
    return count;
}

}  // namespace

TEST(TextTable, OrderedUniqueAndEveryEntryFoundByItsId)
{
    const auto table = TextTable();
    ASSERT_FALSE(table.empty());
    for (std::size_t i = 1; i < table.size(); ++i)
        EXPECT_LT(table[i - 1].id, table[i].id) << "entry " << i;

    // Every entry, first and last included, is reached by the lookup and comes back whole.
    for (const TextEntry& e : table) {
        ASSERT_NE(e.text, nullptr) << e.id;
        EXPECT_GT(std::strlen(e.text), 0u) << e.id;
        EXPECT_EQ(LoadText(e.id), QString::fromUtf8(e.text)) << e.id;
        // Stored as valid UTF-8: decoding and encoding again gives the same bytes.
        EXPECT_EQ(QString::fromUtf8(e.text).toUtf8(), QByteArray(e.text)) << e.id;
    }
}

TEST(TextTable, UnknownIdGivesEmptyText)
{
    const auto table = TextTable();
    for (int id : {0, -1, INT_MIN, INT_MAX, table.front().id - 1, table.back().id + 1, 61451,
                   61583}) {
        EXPECT_TRUE(LoadText(id).isEmpty()) << id;
    }
    // Messages that have an id but never had fixed words carry words of our own.
    EXPECT_FALSE(LoadText(TextId::RunSourceNotZero).isEmpty());
    EXPECT_FALSE(LoadText(TextId::VoltageClassMismatch).isEmpty());
}

TEST(TextTable, WordsAreKeptExactly)
{
    EXPECT_EQ(LoadText(TextId::Project), QStringLiteral("Project"));
    EXPECT_EQ(LoadText(TextId::Parameter), QStringLiteral("Parameter"));
    EXPECT_EQ(LoadText(TextId::Unlink), QStringLiteral("Unlink"));
    EXPECT_EQ(LoadText(TextId::NoDisplay), QStringLiteral("No display"));
    // Capital "O" and "P" as on screen.
    EXPECT_EQ(LoadText(TextId::CantOpenPort), QStringLiteral("Can't Open the Port!"));
    EXPECT_EQ(LoadText(TextId::CantOpenFile), QStringLiteral("Can't open the file!"));
    EXPECT_EQ(LoadText(TextId::CantFindHelp), QStringLiteral("Can't find file Help.chm!"));
    // Missing space after the comma, odd grammar: kept.
    EXPECT_EQ(LoadText(TextId::DataFileLost),
              QStringLiteral("Some a file lost,please setup Quillon again."));
    EXPECT_EQ(LoadText(TextId::AutoRefreshRunning),
              QStringLiteral("PC software is under auto-refresh,Please stop auto-refresh first!"));
    EXPECT_EQ(LoadText(TextId::FileVersionTooNew),
              QStringLiteral("The software version is too old, can't open the file! please "
                             "download the latest version!"));
    // "communcation" is misspelt on screen and stays so.
    EXPECT_EQ(LoadText(TextId::StationCommError),
              QStringLiteral("The station num %d communcation error!"));

    // The model reader compares the first five characters of a line with this text.
    EXPECT_EQ(LoadText(TextId::TypePrefix), QStringLiteral("TYPE:"));
    EXPECT_EQ(LoadText(TextId::TypePrefix).size(), 5);
}

TEST(TextTable, FormatTextsKeepTheirConversions)
{
    for (const TextEntry& e : TextTable())
        EXPECT_GE(CountConversions(e.text), 0) << e.id << ": stray '%' in \"" << e.text << '"';

    // The station message takes exactly the station's address.
    const QByteArray station = LoadText(TextId::StationCommError).toUtf8();
    EXPECT_EQ(CountConversions(station.constData()), 1);
    EXPECT_EQ(QString::asprintf(station.constData(), 7),
              QStringLiteral("The station num 7 communcation error!"));

    // The other messages are shown as they stand, so a '%' in them would be printed raw.
    for (int id : {TextId::CantOpenPort, TextId::CantFindHelp, TextId::AutoRefreshRunning,
                   TextId::CantOpenFile, TextId::FileVersionTooNew, TextId::DataFileLost}) {
        const QByteArray text = LoadText(id).toUtf8();
        EXPECT_EQ(CountConversions(text.constData()), 0) << id;
    }
}
