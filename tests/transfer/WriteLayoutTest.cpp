#include "transfer/WriteLayout.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace quillon {
namespace {

using Stretches = std::initializer_list<std::pair<int, int>>;

std::set<int> Rows(Stretches stretches) {
    std::set<int> rows;
    for (auto [a, b] : stretches)
        for (int r = a; r <= b; ++r) rows.insert(r);
    return rows;
}

std::set<int> WrittenRows(int g, WriteRoute route) {
    std::set<int> rows;
    for (int r = 0; r < 100; ++r)
        if (IsWrittenRow(g, r, route)) rows.insert(r);
    return rows;
}

TEST(WriteFrames, CommandCoversTheWriteStretchesOfTheRegisterMap) {
    const std::pair<int, std::set<int>> expected[] = {
        {0, Rows({{0, 7}, {9, 20}})},
        {1, Rows({{0, 18}})},
        {2, Rows({{0, 6}, {15, 15}})},
        {3, Rows({{0, 3}, {6, 9}, {11, 11}, {13, 21}})},
        {4, Rows({{0, 5}, {11, 15}})},
        {5, Rows({{0, 8}, {17, 32}})},
        {6, Rows({{0, 7}, {16, 23}, {32, 39}})},
        {7, Rows({{0, 12}})},
        {8, Rows({{0, 19}})},
        {9, Rows({{6, 9}})},
        {10, Rows({{0, 22}})},
        {11, Rows({{0, 11}, {13, 17}, {21, 21}})},
        {12, Rows({{0, 4}})},
        {13, Rows({{5, 6}})},
        {14, {}},
    };
    for (const auto& [g, rows] : expected)
        EXPECT_EQ(WrittenRows(g, WriteRoute::Command), rows) << g;
}

TEST(WriteFrames, EditorRoutinesOfGroup13AndTheSimplifiedGroup) {
    EXPECT_EQ(WrittenRows(13, WriteRoute::Editor), Rows({{3, 6}, {8, 8}}));
    EXPECT_EQ(WrittenRows(14, WriteRoute::Editor), Rows({{1, 29}, {32, 33}}));
    // the groups 00..12 share one routine between both routes
    for (int g = 0; g <= 12; ++g) {
        const auto command = WriteFramesOf(g, WriteRoute::Command);
        const auto editor = WriteFramesOf(g, WriteRoute::Editor);
        ASSERT_EQ(command.size(), editor.size()) << g;
        for (size_t i = 0; i < command.size(); ++i)
            EXPECT_EQ(command[i].frame.start, editor[i].frame.start) << g;
    }
    const auto fxx = WriteFramesOf(14, WriteRoute::Editor);
    ASSERT_EQ(fxx.size(), 3u);
    EXPECT_EQ(fxx[0].frame.start, 0x0E01);
    EXPECT_EQ(fxx[0].frame.count, 15);
    EXPECT_EQ(fxx[1].frame.start, 0x0E10);
    EXPECT_EQ(fxx[1].frame.count, 14);
    EXPECT_EQ(fxx[2].frame.start, 0x0E20);
    EXPECT_EQ(fxx[2].frame.count, 2);
}

TEST(WriteFrames, NeverWriteWhatTheReadDoesNotCoverAndNeverTwice) {
    for (WriteRoute route : {WriteRoute::Command, WriteRoute::Editor}) {
        for (int g = 0; g < kRegisterGroupCount; ++g) {
            std::set<int> seen;
            for (const WriteFrame& f : WriteFramesOf(g, route)) {
                EXPECT_EQ(f.frame.start >> 8, g);
                // a function-16 frame carries at most 123 registers
                EXPECT_TRUE(f.frame.count >= 1 && f.frame.count <= 123);
                for (int r = f.frame.FirstRow(); r <= f.frame.LastRow(); ++r) {
                    EXPECT_TRUE(IsReadRow(g, r)) << g << "-" << r;
                    EXPECT_TRUE(seen.insert(r).second) << g << "-" << r << " twice";
                }
            }
        }
    }
}

TEST(WriteFrames, ConditionsOfTheCurveAndTheMotorData) {
    for (const WriteFrame& f : WriteFramesOf(1, WriteRoute::Command)) {
        const bool curvePoint = f.frame.FirstRow() >= 2 && f.frame.LastRow() <= 9;
        EXPECT_EQ(f.condition == WriteCondition::FreeVfCurve, curvePoint) << f.frame.FirstRow();
        // the points from 01-04 on go one frame each
        if (f.frame.FirstRow() >= 4 && f.frame.FirstRow() <= 9) {
            EXPECT_EQ(f.frame.count, 1);
        }
    }
    for (const WriteFrame& f : WriteFramesOf(2, WriteRoute::Command))
        EXPECT_EQ(f.condition, WriteCondition::MotorData);
    for (const WriteFrame& f : WriteFrames()) {
        if (f.frame.group != 1 && f.frame.group != 2) {
            EXPECT_EQ(f.condition, WriteCondition::Always);
        }
    }
}

TEST(GroupWriteValue, ConvertsLikeTheGroupRoutines) {
    // 01-01 loses its decimals on this route
    EXPECT_EQ(GroupWriteValue(1, 1, "50.5"), 500);
    EXPECT_EQ(GroupWriteValue(1, 1, "220.0"), 2200);
    // decimals are the cut product; the nudged rows keep counts that binary floating point
    // would lose (0.29 * 100 = 28.999...)
    EXPECT_EQ(GroupWriteValue(6, 1, "0.29"), 28);
    EXPECT_EQ(GroupWriteValue(5, 1, "0.29"), 29);
    EXPECT_EQ(GroupWriteValue(0, 18, "0.29"), 29);
    EXPECT_EQ(GroupWriteValue(1, 4, "0.29"), 29);
    EXPECT_EQ(GroupWriteValue(1, 6, "2.50"), 250);
    EXPECT_EQ(GroupWriteValue(0, 14, "10.0"), 100);
    EXPECT_EQ(GroupWriteValue(0, 11, "50.00"), 5000);
    // whole numbers, bit fields, octal digits, reset codes
    EXPECT_EQ(GroupWriteValue(2, 3, "1430"), 1430);
    EXPECT_EQ(GroupWriteValue(3, 9, "10011"), 19);
    EXPECT_EQ(GroupWriteValue(8, 5, "00001"), 1);
    EXPECT_EQ(GroupWriteValue(12, 0, "12345"), 012345);
    EXPECT_EQ(GroupWriteValue(14, 32, "1150"), 1150);
    EXPECT_EQ(GroupWriteValue(14, 27, "00101"), 5);
    EXPECT_EQ(GroupWriteValue(9, 6, "25.5"), 255);
}

}  // namespace
}  // namespace quillon
