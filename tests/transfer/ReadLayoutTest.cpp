#include "transfer/ReadLayout.h"

#include "params/ModelTable.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <vector>

namespace quillon {
namespace {

TEST(FormatRegister, GivesTheDisplayTextOfEachFormat) {
    EXPECT_EQ(FormatRegister(RegFormat::N, 0), "0");
    EXPECT_EQ(FormatRegister(RegFormat::N, 65535), "65535");
    EXPECT_EQ(FormatRegister(RegFormat::D1, 5), "0.5");
    EXPECT_EQ(FormatRegister(RegFormat::D1, 2200), "220.0");
    EXPECT_EQ(FormatRegister(RegFormat::D2, 100), "1.00");
    EXPECT_EQ(FormatRegister(RegFormat::D2, 5000), "50.00");
    EXPECT_EQ(FormatRegister(RegFormat::D2, 59899), "598.99");
    EXPECT_EQ(FormatRegister(RegFormat::D3, 1234), "1.234");
    EXPECT_EQ(FormatRegister(RegFormat::D3, 5), "0.005");
    EXPECT_EQ(FormatRegister(RegFormat::Z4, 7), "0007");
    EXPECT_EQ(FormatRegister(RegFormat::Z4, 1150), "1150");
    EXPECT_EQ(FormatRegister(RegFormat::Z5, 42), "00042");
    EXPECT_EQ(FormatRegister(RegFormat::Z5, 65535), "65535");
}

TEST(FormatRegister, BitAndOctalFieldsShowFiveDigitsHighestFirst) {
    EXPECT_EQ(FormatRegister(RegFormat::B5, 19), "10011");
    EXPECT_EQ(FormatRegister(RegFormat::B5, 0), "00000");
    EXPECT_EQ(FormatRegister(RegFormat::B5, 1), "00001");
    // only bits 4..0 are shown
    EXPECT_EQ(FormatRegister(RegFormat::B5, 0xFFE0 | 19), "10011");
    EXPECT_EQ(FormatRegister(RegFormat::O5, 012345), "12345");
    EXPECT_EQ(FormatRegister(RegFormat::O5, 07), "00007");
    EXPECT_EQ(FormatRegister(RegFormat::O5, 077777), "77777");
    // bit 15 is no digit
    EXPECT_EQ(FormatRegister(RegFormat::O5, 0x8000 | 012345), "12345");
}

TEST(FormatRegister, CapacityTextOfTheModelCode) {
    EXPECT_EQ(FormatRegister(RegFormat::M, 1205), "2P5");
    EXPECT_EQ(FormatRegister(RegFormat::M, 201), "201");
    EXPECT_EQ(FormatRegister(RegFormat::M, 415), "415");
    EXPECT_EQ(FormatRegister(RegFormat::M, 999), "");
    EXPECT_EQ(FormatRegister(RegFormat::M, 0), "");
}

TEST(ParseRegisterText, ConvertsDisplayTextBack) {
    EXPECT_EQ(ParseRegisterText(RegFormat::N, "1430"), 1430);
    EXPECT_EQ(ParseRegisterText(RegFormat::Z4, "0007"), 7);
    EXPECT_EQ(ParseRegisterText(RegFormat::Z5, "00042"), 42);
    EXPECT_EQ(ParseRegisterText(RegFormat::D1, "220.0"), 2200);
    EXPECT_EQ(ParseRegisterText(RegFormat::D2, "50.00"), 5000);
    EXPECT_EQ(ParseRegisterText(RegFormat::D3, "1.234"), 1234);
    EXPECT_EQ(ParseRegisterText(RegFormat::B5, "10011"), 19);
    EXPECT_EQ(ParseRegisterText(RegFormat::O5, "12345"), 012345);
    EXPECT_EQ(ParseRegisterText(RegFormat::M, "2P5"), 1205);
    EXPECT_EQ(ParseRegisterText(RegFormat::M, "201"), 201);
}

TEST(ParseRegisterText, DecimalsSurviveBinaryFloatingPoint) {
    // 0.29 * 100 is 28.999... in binary floating point; the write nudge keeps the intended count.
    EXPECT_EQ(ParseRegisterText(RegFormat::D2, "0.29"), 29);
    EXPECT_EQ(ParseRegisterText(RegFormat::D2, "1.13"), 113);
    EXPECT_EQ(ParseRegisterText(RegFormat::D1, "0.7"), 7);
    EXPECT_EQ(ParseRegisterText(RegFormat::D3, "1.001"), 1001);
    EXPECT_EQ(ParseRegisterText(RegFormat::D3, "0.009"), 9);
}

TEST(ParseRegisterText, LenientAndOutOfRangeTexts) {
    EXPECT_EQ(ParseRegisterText(RegFormat::N, ""), 0);
    EXPECT_EQ(ParseRegisterText(RegFormat::N, "12a"), 12);
    EXPECT_EQ(ParseRegisterText(RegFormat::D1, "5"), 50);  // a whole number is a decimal too
    EXPECT_EQ(ParseRegisterText(RegFormat::M, ""), 0);
    EXPECT_EQ(ParseRegisterText(RegFormat::M, "XYZ"), 0);
    // beyond 16 bits the value wraps as in a 16-bit register
    EXPECT_EQ(ParseRegisterText(RegFormat::N, "65536"), 0);
    EXPECT_EQ(ParseRegisterText(RegFormat::D1, "6553.6"), 0);
    EXPECT_EQ(ParseRegisterText(RegFormat::N, "-1"), 65535);
    // far out of range: saturated at the int range before the wrap, never an undefined cast
    EXPECT_EQ(ParseRegisterText(RegFormat::D2, "1e300"), 0xFFFF);
    EXPECT_EQ(ParseRegisterText(RegFormat::D2, "-1e300"), 0);
    EXPECT_EQ(CutToRegister(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(CutToRegister(std::numeric_limits<double>::infinity()), 0);
}

TEST(ParseRegisterText, InvertsFormatRegisterForEveryValue) {
    for (RegFormat f : {RegFormat::N, RegFormat::D1, RegFormat::D2, RegFormat::D3, RegFormat::Z4,
                        RegFormat::Z5}) {
        for (int v = 0; v <= 0xFFFF; ++v) {
            const QString text = FormatRegister(f, static_cast<quint16>(v));
            ASSERT_EQ(ParseRegisterText(f, text), v) << int(f) << " " << text.toStdString();
        }
    }
    for (int v = 0; v < 32; ++v) {
        const QString text = FormatRegister(RegFormat::B5, static_cast<quint16>(v));
        ASSERT_EQ(ParseRegisterText(RegFormat::B5, text), v);
    }
    for (int v = 0; v <= 077777; ++v) {
        const QString text = FormatRegister(RegFormat::O5, static_cast<quint16>(v));
        ASSERT_EQ(ParseRegisterText(RegFormat::O5, text), v);
    }
    for (const ModelRow& m : ModelTable()) {
        const QString text = FormatRegister(RegFormat::M, static_cast<quint16>(m.code));
        EXPECT_EQ(text, QLatin1String(m.capacity));
        EXPECT_EQ(ParseRegisterText(RegFormat::M, text), m.code);
    }
}

TEST(ReadFrames, TwentySixFramesWithTheirReplyLengths) {
    // Reply bytes of each frame, in the order a full read sends them.
    const std::vector<int> replyBytes{47, 43, 19, 7,  13, 13, 7,  23, 17, 15, 23, 37, 21,
                                      21, 21, 31, 45, 27, 51, 29, 15, 7,  21, 23, 35, 41};
    const auto frames = ReadFrames();
    ASSERT_EQ(frames.size(), replyBytes.size());
    for (size_t i = 0; i < frames.size(); ++i)
        EXPECT_EQ(frames[i].ReadReplyLength(), replyBytes[i]) << "frame " << i;
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
        for (size_t i = 0; i < frames.size(); ++i) {
            EXPECT_EQ(frames[i].group, g);
            if (i > 0) {
                EXPECT_GT(frames[i].FirstRow(), frames[i - 1].LastRow()) << g;
            }
        }
    }
    EXPECT_TRUE(ReadFramesOf(15).empty());
    EXPECT_TRUE(ReadFramesOf(-1).empty());
}

TEST(ReadFrames, CoverTheStretchesOfTheRegisterMap) {
    auto rowsOf = [](int g) {
        std::set<int> rows;
        for (int r = 0; r < 100; ++r)
            if (IsReadRow(g, r)) rows.insert(r);
        return rows;
    };
    auto span = [](std::initializer_list<std::pair<int, int>> stretches) {
        std::set<int> rows;
        for (auto [a, b] : stretches)
            for (int r = a; r <= b; ++r) rows.insert(r);
        return rows;
    };
    EXPECT_EQ(rowsOf(0), span({{0, 20}}));
    EXPECT_EQ(rowsOf(2), span({{0, 6}, {15, 15}}));
    EXPECT_EQ(rowsOf(3), span({{0, 3}, {6, 9}, {11, 11}, {13, 21}}));
    EXPECT_EQ(rowsOf(4), span({{0, 5}, {11, 15}}));
    EXPECT_EQ(rowsOf(5), span({{0, 8}, {17, 32}}));
    EXPECT_EQ(rowsOf(6), span({{0, 7}, {16, 23}, {32, 39}}));
    EXPECT_EQ(rowsOf(11), span({{0, 11}, {13, 17}, {21, 21}}));
    EXPECT_EQ(rowsOf(14), span({{1, 33}}));
}

TEST(ReadFormatOf, SpecialRowsOfTheGroupRead) {
    EXPECT_EQ(ReadFormatOf(0, 0), RegFormat::N);
    EXPECT_EQ(ReadFormatOf(0, 8), RegFormat::D2);
    EXPECT_EQ(ReadFormatOf(0, 14), RegFormat::D1);
    EXPECT_EQ(ReadFormatOf(0, 18), RegFormat::D2);
    EXPECT_EQ(ReadFormatOf(1, 13), RegFormat::N);
    EXPECT_EQ(ReadFormatOf(1, 18), RegFormat::D2);
    EXPECT_EQ(ReadFormatOf(2, 3), RegFormat::N);
    EXPECT_EQ(ReadFormatOf(2, 5), RegFormat::D1);
    EXPECT_EQ(ReadFormatOf(2, 15), RegFormat::N);
    EXPECT_EQ(ReadFormatOf(3, 9), RegFormat::B5);
    EXPECT_EQ(ReadFormatOf(3, 19), RegFormat::N);
    EXPECT_EQ(ReadFormatOf(8, 0), RegFormat::B5);
    EXPECT_EQ(ReadFormatOf(8, 5), RegFormat::B5);
    EXPECT_EQ(ReadFormatOf(12, 0), RegFormat::O5);
    EXPECT_EQ(ReadFormatOf(12, 5), RegFormat::Z5);
    EXPECT_EQ(ReadFormatOf(13, 0), RegFormat::M);
    EXPECT_EQ(ReadFormatOf(13, 1), RegFormat::D3);
    EXPECT_EQ(ReadFormatOf(13, 7), RegFormat::Z5);
    EXPECT_EQ(ReadFormatOf(13, 8), RegFormat::Z4);
    EXPECT_EQ(ReadFormatOf(14, 9), RegFormat::N);
    EXPECT_EQ(ReadFormatOf(14, 11), RegFormat::D1);
    EXPECT_EQ(ReadFormatOf(14, 27), RegFormat::B5);
    EXPECT_EQ(ReadFormatOf(14, 30), RegFormat::D3);
    EXPECT_EQ(ReadFormatOf(14, 32), RegFormat::Z4);
    EXPECT_EQ(ReadFormatOf(20, 0), RegFormat::N);
}

TEST(ParamRegister, GroupInTheHighByte) {
    EXPECT_EQ(ParamRegister(0, 2), 0x0002);
    EXPECT_EQ(ParamRegister(1, 4), 0x0104);
    EXPECT_EQ(ParamRegister(13, 7), 0x0D07);
    EXPECT_EQ(ParamRegister(14, 33), 0x0E21);
}

}  // namespace
}  // namespace quillon
