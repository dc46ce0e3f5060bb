// CRC and request builders, checked against frames computed by an independent Modbus stack.

#include "link/ModbusFrame.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace quillon {
namespace {

using Bytes = std::vector<unsigned char>;

Bytes Build(int (*builder)(std::span<unsigned char>, int, std::uint16_t, int), int station,
            std::uint16_t reg, int count)
{
    Bytes frame(64, 0xAA);
    const int n = builder(frame, station, reg, count);
    frame.resize(static_cast<std::size_t>(n));
    return frame;
}

TEST(ModbusCrc, MatchesReferenceFramesLowByteFirst)
{
    // Request frames with the CRC a reference implementation appends.
    const std::vector<Bytes> frames = {
        {0x01, 0x03, 0x00, 0x00, 0x00, 0x15, 0x84, 0x05},
        {0x01, 0x03, 0x00, 0x00, 0x00, 0x0A, 0xC5, 0xCD},
        {0x01, 0x83, 0x52, 0xC0, 0xCD},
        {0x01, 0x06, 0x25, 0x01, 0x00, 0x01, 0x12, 0xC6},
    };
    for (const Bytes& f : frames) {
        const std::uint16_t crc = ModbusCrc16(f.size() - 2, f.data());
        EXPECT_EQ(crc & 0xFF, f[f.size() - 2]);
        EXPECT_EQ(crc >> 8, f[f.size() - 1]);
        EXPECT_EQ(CheckFrameCrc(f.data(), f.size()), 1);
    }
    EXPECT_EQ(ModbusCrc16(0, nullptr), 0xFFFF);
}

TEST(ModbusCrc, CheckRejectsEveryFlippedBitAndShortFrames)
{
    const Bytes good = {0x01, 0x03, 0x00, 0x00, 0x00, 0x15, 0x84, 0x05};
    for (std::size_t i = 0; i < good.size(); ++i) {
        for (int bit = 0; bit < 8; ++bit) {
            Bytes bad = good;
            bad[i] ^= static_cast<unsigned char>(1 << bit);
            EXPECT_EQ(CheckFrameCrc(bad.data(), bad.size()), 0) << "byte " << i << " bit " << bit;
        }
    }
    const unsigned char one = 0xFF;
    EXPECT_EQ(CheckFrameCrc(&one, 1), 0);
    EXPECT_EQ(CheckFrameCrc(&one, 0), 0);
    // Two bytes are the CRC of nothing, which is 0xFFFF.
    const unsigned char emptyCrc[] = {0xFF, 0xFF};
    EXPECT_EQ(CheckFrameCrc(emptyCrc, 2), 1);
}

TEST(ModbusFrames, BuildersWriteTheThreeRequestForms)
{
    EXPECT_EQ(Build(&BuildReadFrame, 1, 0x0000, 0x15),
              (Bytes{0x01, 0x03, 0x00, 0x00, 0x00, 0x15, 0x84, 0x05}));

    std::array<unsigned char, 8> single{};
    ASSERT_EQ(BuildWriteSingleFrame(single, 1, 0x2501, 0x0001), 8);
    EXPECT_EQ(Bytes(single.begin(), single.end()),
              (Bytes{0x01, 0x06, 0x25, 0x01, 0x00, 0x01, 0x12, 0xC6}));

    // The longest frame of the program: 23 registers of group 10, 55 bytes.
    std::vector<std::uint16_t> values(kMaxRegistersPerFrame);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = static_cast<std::uint16_t>(0x0100 * i + 7);
    std::array<unsigned char, kMaxFrameLength> multi{};
    ASSERT_EQ(BuildWriteMultipleFrame(multi, 3, 0x0A00, values), 55);
    EXPECT_EQ(multi[0], 3);
    EXPECT_EQ(multi[1], 0x10);
    EXPECT_EQ(FrameWord(multi.data(), 2), 0x0A00);
    EXPECT_EQ(FrameWord(multi.data(), 4), 23);
    EXPECT_EQ(multi[6], 46);
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(FrameWord(multi.data(), 7 + 2 * static_cast<int>(i)), values[i]);
    EXPECT_EQ(CheckFrameCrc(multi.data(), 55), 1);
    EXPECT_EQ(ReadReplyLength(23), 51);
}

TEST(ModbusFrames, BuildersRefuseWhatDoesNotFit)
{
    std::array<unsigned char, 7> small{};
    EXPECT_EQ(BuildReadFrame(small, 1, 0, 1), 0);
    EXPECT_EQ(BuildWriteSingleFrame(small, 1, 0, 1), 0);
    std::array<unsigned char, 64> big{};
    EXPECT_EQ(BuildReadFrame(big, 1, 0, 0), 0);
    EXPECT_EQ(BuildReadFrame(big, 1, 0, kMaxRegistersPerFrame + 1), 0);
    const std::vector<std::uint16_t> two = {1, 2};
    std::array<unsigned char, 12> shortForTwo{};
    EXPECT_EQ(BuildWriteMultipleFrame(shortForTwo, 1, 0, two), 0);
    EXPECT_EQ(BuildWriteMultipleFrame(big, 1, 0, {}), 0);
}

}  // namespace
}  // namespace quillon
