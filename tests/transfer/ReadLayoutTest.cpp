#include "transfer/ReadLayout.h"

#include "params/ModelTable.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillon {
namespace {

TEST(FormatRegister, FieldsShowOnlyTheirDigitsAndUnknownModelsNothing) {
    EXPECT_EQ(FormatRegister(RegFormat::D2, 59899), "598.99");
    EXPECT_EQ(FormatRegister(RegFormat::D3, 5), "0.005");
    EXPECT_EQ(FormatRegister(RegFormat::B5, 0xFFE0 | 19), "10011");    // bits 4..0 only
    EXPECT_EQ(FormatRegister(RegFormat::O5, 0x8000 | 012345), "12345");  // bit 15 is no digit
    EXPECT_EQ(FormatRegister(RegFormat::M, 999), "");
    EXPECT_EQ(FormatRegister(RegFormat::M, 0), "");
}

TEST(ParseRegisterText, DecimalsLenientTextsAndOutOfRange) {
    // 0.29 * 100 is 28.999... in binary floating point; the write nudge keeps the intended count.
    EXPECT_EQ(ParseRegisterText(RegFormat::D2, "0.29"), 29);
    EXPECT_EQ(ParseRegisterText(RegFormat::D3, "1.001"), 1001);
    EXPECT_EQ(ParseRegisterText(RegFormat::N, "12a"), 12);
    EXPECT_EQ(ParseRegisterText(RegFormat::D1, "5"), 50);  // a whole number is a decimal too
    EXPECT_EQ(ParseRegisterText(RegFormat::M, "XYZ"), 0);
    // beyond 16 bits the value wraps as in a 16-bit register
    EXPECT_EQ(ParseRegisterText(RegFormat::N, "65536"), 0);
    EXPECT_EQ(ParseRegisterText(RegFormat::N, "-1"), 65535);
    // far out of range: saturated at the int range before the wrap, never an undefined cast
    EXPECT_EQ(ParseRegisterText(RegFormat::D2, "1e300"), 0xFFFF);
    EXPECT_EQ(ParseRegisterText(RegFormat::D2, "-1e300"), 0);
    EXPECT_EQ(CutToRegister(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(CutToRegister(std::numeric_limits<double>::infinity()), 0);
}

TEST(ParseRegisterText, InvertsFormatRegisterForEveryValue) {
    for (RegFormat f : {RegFormat::N, RegFormat::D1, RegFormat::D2, RegFormat::D3, RegFormat::Z4,
                        RegFormat::Z5, RegFormat::B5, RegFormat::O5}) {
        const int last = f == RegFormat::B5 ? 31 : f == RegFormat::O5 ? 077777 : 0xFFFF;
        for (int v = 0; v <= last; ++v) {
            const QString text = FormatRegister(f, static_cast<quint16>(v));
            ASSERT_EQ(ParseRegisterText(f, text), v) << int(f) << " " << text.toStdString();
        }
    }
    for (const ModelRow& m : ModelTable()) {
        const QString text = FormatRegister(RegFormat::M, static_cast<quint16>(m.code));
        EXPECT_EQ(text, QLatin1String(m.capacity));
        EXPECT_EQ(ParseRegisterText(RegFormat::M, text), m.code);
    }
}

TEST(ReadFrames, EveryGroupInOrderInsideItsOwnRegisterBlock) {
    int previousGroup = -1;
    for (const RegisterFrame& f : ReadFrames()) {
        EXPECT_GE(f.group, previousGroup);
        previousGroup = f.group;
        EXPECT_EQ(f.start >> 8, f.group);
        EXPECT_GT(f.count, 0);
        EXPECT_LT(f.LastRow(), 100);  // rows fit the document's 100-row tables
    }
    for (int g = 0; g < kRegisterGroupCount; ++g) {
        const auto frames = ReadFramesOf(g);
        ASSERT_FALSE(frames.empty()) << g;
        for (size_t i = 1; i < frames.size(); ++i)
            EXPECT_GT(frames[i].FirstRow(), frames[i - 1].LastRow()) << g;
    }
    EXPECT_TRUE(ReadFramesOf(15).empty());
    EXPECT_TRUE(ReadFramesOf(-1).empty());
}

}  // namespace
}  // namespace quillon
