// Station texts as people type them, and the lenient number reading they have always had.

#include "link/StationList.h"
#include "support/ScriptedPrompt.h"

#include <gtest/gtest.h>

namespace quillon::test {
namespace {

const QString kTooLarge = QStringLiteral("The station num can't be more than 32!");
const QString kBackwards = QStringLiteral("The station num before'-' must be less than after '-'!");
const QString kRepeated = QStringLiteral("The station num can't be repeat!");

TEST(StationList, AcceptedTexts)
{
    const struct {
        const char* text;
        std::vector<int> stations;
    } cases[] = {
        {"1,3,5-12", {1, 3, 5, 6, 7, 8, 9, 10, 11, 12}},
        {"5-5", {5}},
        {"", {}},
        {"abc", {0}},              // no digits: station 0
        {"1,,3", {1, 0, 3}},       // an empty piece is a 0
        {"4,", {4, 0}},            // so is the one after a closing comma
        {"-3", {0, 1, 2, 3}},      // a range from nothing starts at 0
        {"000005,1", {5, 1}},      // six characters are fine before a comma
        {"7x,32", {7, 32}},        // digits up to the first other character
        {" 2, 30-31", {2, 30, 31}},
        {"32-32", {32}},
    };
    for (const auto& c : cases) {
        ScriptedPrompt prompt;
        std::vector<int> list{99};
        EXPECT_EQ(ParseStationList(QString::fromLatin1(c.text), list), 1) << c.text;
        EXPECT_EQ(list, c.stations) << c.text;
        EXPECT_TRUE(prompt.Texts().isEmpty()) << c.text;
    }
}

TEST(StationList, RefusedTextsShowOneMessageAndLeaveTheListEmpty)
{
    const struct {
        const char* text;
        const QString& message;
    } cases[] = {
        {"7-5", kBackwards},
        {"31-33", kTooLarge},     // fails at 33
        {"1,1", kRepeated},
        {"1-4,3", kRepeated},
        {"33", kTooLarge},
        {"1,000005", kTooLarge},  // the last piece: six characters are too many
        {"1,12345678", kTooLarge},
        {"1-123456", kTooLarge},  // more than five characters behind the '-'
        {"0-99999", kTooLarge},   // a wide range stops at 33
        {"5--3", kBackwards},
        {"a,b", kRepeated},       // two stations 0
    };
    for (const auto& c : cases) {
        ScriptedPrompt prompt;
        std::vector<int> list{99};
        EXPECT_EQ(ParseStationList(QString::fromLatin1(c.text), list), 0) << c.text;
        EXPECT_TRUE(list.empty()) << c.text;
        EXPECT_EQ(prompt.Texts(), QStringList{c.message}) << c.text;
    }
}

TEST(StationList, JoinedForTheStatusBar)
{
    EXPECT_EQ(JoinStations({1, 3, 12}), QStringLiteral("1,3,12"));
    EXPECT_EQ(JoinStations({}), QString());
}

}  // namespace
}  // namespace quillon::test
