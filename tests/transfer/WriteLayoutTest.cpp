#include "transfer/WriteLayout.h"

#include <gtest/gtest.h>

#include <set>

namespace quillon {
namespace {

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

TEST(GroupWriteValue, ConvertsLikeTheGroupRoutines) {
    EXPECT_EQ(GroupWriteValue(1, 1, "50.5"), 500);  // 01-01 loses its decimals on this route
    // decimals are the cut product; the nudged rows keep counts that binary floating point
    // would lose (0.29 * 100 = 28.999...)
    EXPECT_EQ(GroupWriteValue(6, 1, "0.29"), 28);
    EXPECT_EQ(GroupWriteValue(5, 1, "0.29"), 29);
    EXPECT_EQ(GroupWriteValue(1, 4, "0.29"), 29);
    // bit fields, octal digits
    EXPECT_EQ(GroupWriteValue(3, 9, "10011"), 19);
    EXPECT_EQ(GroupWriteValue(12, 0, "12345"), 012345);
}

}  // namespace
}  // namespace quillon
