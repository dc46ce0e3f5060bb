// Lenient text-to-number conversions of display values.

#include "base/TextConv.h"

#include <clocale>
#include <gtest/gtest.h>

using namespace quillon;

TEST(TextConv, ConversionsStopAtTheFirstForeignCharacter) {
    EXPECT_EQ(Atoi(u"12a"), 12);
    EXPECT_EQ(Atoi(u"  -7"), -7);
    EXPECT_EQ(Atoi(u"abc"), 0);
    EXPECT_EQ(Atoi(u""), 0);
    EXPECT_EQ(Atoi(u"99999999999"), 2147483647);
    EXPECT_DOUBLE_EQ(Atof(u"50.00"), 50.0);
    EXPECT_DOUBLE_EQ(Atof(u" -1.5x"), -1.5);
    EXPECT_DOUBLE_EQ(Atof(u".5"), 0.5);
    EXPECT_DOUBLE_EQ(Atof(u"x1"), 0.0);
    EXPECT_DOUBLE_EQ(Atof(u"+-1"), 0.0);
    EXPECT_EQ(Strtoul(u"10011", 2), 19u);
    EXPECT_EQ(Strtoul(u"12345", 8), 012345u);
    EXPECT_EQ(FormatFixed(0.015 * 100, 1), "1.5");
}

TEST(TextConv, DecimalPointDoesNotDependOnTheLocale) {
    const char* previous = std::setlocale(LC_NUMERIC, nullptr);
    const std::string saved = previous ? previous : "C";
    // A locale with a decimal comma, where one is installed; the check holds in "C" as well.
    if (!std::setlocale(LC_NUMERIC, "de_DE.UTF-8")) std::setlocale(LC_NUMERIC, "C");
    EXPECT_DOUBLE_EQ(Atof(u"50.25"), 50.25);
    EXPECT_EQ(FormatFixed(50.25, 2), "50.25");
    std::setlocale(LC_NUMERIC, saved.c_str());
}
