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

TEST(TextTable, EveryEntryFoundByItsIdAndUnknownIdsGiveNothing)
{
    const auto table = TextTable();
    for (const TextEntry& e : table)
        EXPECT_EQ(LoadText(e.id), QString::fromUtf8(e.text)) << e.id;
    for (int id : {0, -1, INT_MIN, INT_MAX, table.front().id - 1, table.back().id + 1, 61451})
        EXPECT_TRUE(LoadText(id).isEmpty()) << id;
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
