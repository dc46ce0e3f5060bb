// How the simulated drive cuts a byte stream into request frames.

#include "sim/FrameAssembler.h"

#include <gtest/gtest.h>

namespace quillon::sim {
namespace {

using Bytes = std::vector<unsigned char>;

TEST(FrameAssembler, CutsByFunctionLengthAndBySilence)
{
    const double silence = 0.002;
    FrameAssembler frames(silence);
    SimTime t = SimClock::now();
    const auto ms = [](double v) {
        return std::chrono::duration_cast<SimClock::duration>(std::chrono::duration<double>(v / 1000));
    };

    // Two reads and a multiple write arriving in one piece, then the write's tail late.
    const Bytes read = {1, 3, 0, 0, 0, 1, 0x84, 0x0A};
    Bytes chunk = read;
    chunk.insert(chunk.end(), read.begin(), read.end());
    const Bytes write = {1, 0x10, 0x0A, 0x00, 0x00, 0x01, 0x02, 0x00, 0x05, 0xAA, 0xBB};
    chunk.insert(chunk.end(), write.begin(), write.begin() + 8);
    frames.Push(chunk.data(), static_cast<int>(chunk.size()), t);
    auto f = frames.Take(t);
    ASSERT_TRUE(f);
    EXPECT_EQ(f->bytes, read);
    EXPECT_EQ(f->firstByte, t);
    ASSERT_TRUE(frames.Take(t));
    EXPECT_FALSE(frames.Take(t));  // the write is 11 bytes by its byte count
    frames.Push(write.data() + 8, 3, t + ms(0.5));
    f = frames.Take(t + ms(0.5));
    ASSERT_TRUE(f);
    EXPECT_EQ(f->bytes, write);

    // A function without a known length ends at the silence.
    const Bytes other = {1, 0x2B, 0x0E, 0x01, 0x00, 0x70, 0x77};
    t += ms(10);
    frames.Push(other.data(), static_cast<int>(other.size()), t);
    EXPECT_FALSE(frames.Take(t + ms(1)));
    ASSERT_TRUE(frames.SilenceDeadline());
    EXPECT_EQ(*frames.SilenceDeadline(), t + ms(2));
    f = frames.Take(t + ms(2));
    ASSERT_TRUE(f);
    EXPECT_EQ(f->bytes, other);
    EXPECT_FALSE(frames.SilenceDeadline());

    // A request cut short is closed by the silence before the next one starts.
    t += ms(10);
    frames.Push(read.data(), 5, t);
    frames.Push(read.data(), static_cast<int>(read.size()), t + ms(5));
    f = frames.Take(t + ms(5));
    ASSERT_TRUE(f);
    EXPECT_EQ(f->bytes, Bytes(read.begin(), read.begin() + 5));
    f = frames.Take(t + ms(5));
    ASSERT_TRUE(f);
    EXPECT_EQ(f->bytes, read);
    EXPECT_EQ(f->firstByte, t + ms(5));
}

}  // namespace
}  // namespace quillon::sim
