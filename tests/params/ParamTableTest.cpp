// The parameter table's validate-and-convert: the scalings, the limits (model-dependent ones
// included), the option lists and the digit groups.

#include "params/ParamTable.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

const ParamSpec& P(const char* code) {
    const ParamSpec* spec = FindParam(QString::fromLatin1(code));
    if (!spec) throw std::invalid_argument(code);
    return *spec;
}

// The register the text goes out with, or -1 with the refusal.
int Sent(const char* code, const char* text, int model = 1205, LimitCheck check = LimitCheck::Page) {
    const Converted c = ConvertAndValidate(P(code), QString::fromUtf8(text), model, check);
    return c.Ok() ? c.value : -1;
}

ConvertError Error(const char* code, const char* text, int model = 1205,
                   LimitCheck check = LimitCheck::Page) {
    return ConvertAndValidate(P(code), QString::fromUtf8(text), model, check).error;
}

TEST(ParamTable, EachScalingOfTheWriteButton) {
    EXPECT_EQ(Sent("00-11", "0.29"), 29);   // 0.29 x 100 is 28.999...: the 0.001 keeps it
    EXPECT_EQ(Sent("00-14", "10"), 100);
    EXPECT_EQ(ConvertAndValidate(P("00-11"), "5", 1205).text, "5.00");
    EXPECT_EQ(Sent("F27", "00101"), 5);     // binary digits
    EXPECT_EQ(Sent("03-09", "01011"), 11);
    EXPECT_EQ(Sent("12-00", "00017"), 15);  // octal digits
    EXPECT_EQ(Sent("03-13", "0.29"), 29);
    EXPECT_EQ(Sent("10-05", "9.99"), 999);
    // 03-13 and 10-05 add 0.0001 before the cut, the others 0.001.
    EXPECT_EQ(ButtonWriteValue(P("03-13"), "0.2995"), 29);
    EXPECT_EQ(ButtonWriteValue(P("10-05"), "0.2995"), 29);
    EXPECT_EQ(ButtonWriteValue(P("00-11"), "0.2995"), 30);
    EXPECT_EQ(Sent("F09", "7"), 7);          // F09 keeps the entry plus one
    EXPECT_EQ(Sent("13-08", "1160"), 1160);  // the reset code itself
    // The group write cuts the bare product, with the 0.0001 nudge on a few rows, and 01-01
    // loses its decimals there.
    EXPECT_EQ(GroupWriteValue(6, 1, "0.29"), 28);
    EXPECT_EQ(GroupWriteValue(5, 1, "0.29"), 29);
    EXPECT_EQ(GroupWriteValue(1, 1, "50.5"), 500);
    EXPECT_EQ(ButtonWriteValue(P("01-01"), "50.5"), 505);
    EXPECT_EQ(RegisterToText(P("12-00"), 012345), "12345");
    EXPECT_EQ(RegisterToText(P("13-08"), 0), "0000");
}

TEST(ParamTable, LimitsFixedAndByModel) {
    EXPECT_EQ(Error("00-12", "0.01"), ConvertError::None);
    EXPECT_EQ(Error("00-12", "0.00"), ConvertError::BeyondRange);
    EXPECT_EQ(Error("00-13", "598.99"), ConvertError::None);
    EXPECT_EQ(Error("00-13", "599.00"), ConvertError::BeyondRange);
    EXPECT_EQ(Error("02-02", "150.0"), ConvertError::None);  // shows 100.0, tests 200.0
    EXPECT_EQ(Error("05-01", "620.00"), ConvertError::BeyondRange);  // shows 650.00, tests 599.00
    EXPECT_EQ(Error("01-13", "8193"), ConvertError::BeyondRange);
    EXPECT_EQ(Error("01-13", "12a"), ConvertError::NotANumber);
    EXPECT_EQ(Error("00-11", "1.2.3"), ConvertError::NotANumber);
    // The rated current by model, and the page's own limits for a model the table lacks.
    EXPECT_EQ(Error("02-01", "3.8"), ConvertError::None);
    EXPECT_EQ(Error("02-01", "3.9"), ConvertError::BeyondRange);
    EXPECT_EQ(Error("02-01", "13.6", 405), ConvertError::None);
    EXPECT_EQ(Error("02-01", "2.7", 204), ConvertError::BeyondRange);
    EXPECT_EQ(LimitsOf(P("02-01"), 204)->text, "0.1~6553.5");
    EXPECT_EQ(Error("F11", "6.0", 402), ConvertError::None);
    // Page 5784 tests its rated rows with a wider margin at the button.
    EXPECT_EQ(Error("02-00", "3.700005", 1205, LimitCheck::Page), ConvertError::BeyondRange);
    EXPECT_EQ(Error("02-00", "3.700005", 1205, LimitCheck::Button), ConvertError::None);
    // 11-14 passes the page with the class-400 range and fails at the button.
    EXPECT_EQ(Error("11-14", "700.0", 402, LimitCheck::Page), ConvertError::None);
    EXPECT_EQ(Error("11-14", "700.0", 402, LimitCheck::Button), ConvertError::BeyondRange);
    EXPECT_EQ(Error("01-01", "500.0", 401), ConvertError::None);
    EXPECT_EQ(Error("01-01", "500.0", 201), ConvertError::BeyondRange);
}

TEST(ParamTable, OptionListsDigitGroupsAndReadOnlyRows) {
    EXPECT_EQ(Error("00-05", "6"), ConvertError::None);
    EXPECT_EQ(Error("00-05", "7"), ConvertError::NoSuchEntry);
    EXPECT_EQ(Error("00-05", "-1"), ConvertError::NoSuchEntry);
    EXPECT_EQ(Error("13-02", "26"), ConvertError::ReadOnly);
    EXPECT_EQ(Error("F09", "0"), ConvertError::NoSuchEntry);
    EXPECT_EQ(Error("13-08", "1250"), ConvertError::NoSuchEntry);  // 13-08 offers three codes
    EXPECT_EQ(Error("F32", "1360"), ConvertError::None);
    EXPECT_EQ(Error("09-02", "1"), ConvertError::ReadOnly);
    EXPECT_EQ(Error("F27", "10101"), ConvertError::BadDigits);  // its first two digits are fixed
    EXPECT_EQ(Error("12-00", "00018"), ConvertError::BadDigits);
    EXPECT_EQ(Error("08-00", "0101"), ConvertError::BadDigits);
    // Lists are shared where a parameter offers another's, and kept as written.
    EXPECT_EQ(OptionsOf(P("F12")).data(), OptionsOf(P("03-00")).data());
    ASSERT_EQ(OptionsOf(P("06-36")).size(), 4u);
    EXPECT_STREQ(OptionsOf(P("06-36"))[3], "");
    EXPECT_STREQ(OptionsOf(P("06-32"))[1], "1: forward   ");
    EXPECT_EQ(OptionsOf(P("F31")).size(), 41u);
}

}  // namespace
}  // namespace quillon
