// The frame log: its text, and the link's hook handing each transaction to the sink installed.

#include "SimLinkFixture.h"
#include "link/FrameLog.h"

namespace quillon::test {
namespace {

TEST(FrameLogTest, FormatShowsBothFramesWithTimeAndResult) {
    FrameRecord r;
    r.link = QStringLiteral("127.0.0.1:10001");
    r.sent = QDateTime(QDate(2026, 1, 2), QTime(8, 45, 1, 123));
    r.answered = r.sent.addMSecs(17);
    r.request = QByteArray::fromHex("01030d0000018766");
    r.reply = QByteArray::fromHex("01030200c979d2");
    EXPECT_EQ(FormatFrameRecord(r),
              "08:45:01.123  >  127.0.0.1:10001  01 03 0D 00 00 01 87 66\n"
              "08:45:01.140  <  127.0.0.1:10001  01 03 02 00 C9 79 D2  (17 ms) OK\n");
    r.reply.clear();
    r.answered = r.sent.addMSecs(500);
    r.result = ErrTimeout;
    EXPECT_TRUE(FormatFrameRecord(r).endsWith("\n08:45:01.623  <  127.0.0.1:10001  (500 ms) TimeOut!\n"));
    r.result = ErrCrc;
    EXPECT_TRUE(FormatFrameRecord(r).endsWith("CRC parity error!\n"));
}

class RecordingSink final : public IFrameSink {
public:
    void OnFrame(const FrameRecord& record) override { records.push_back(record); }
    std::vector<FrameRecord> records;
};

class FrameLogLinkTest : public SimLinkTest {};

TEST_F(FrameLogLinkTest, EachTransactionReachesTheSinkWhileItIsInstalled) {
    OpenBus();
    m_link.SetResponseTimeout(std::chrono::milliseconds(50));
    RecordingSink sink;
    {
        ScopedFrameSink installed(sink);
        ASSERT_EQ(ReadRegs(1, 0x0000, 2), ErrNone);
        ASSERT_EQ(ReadRegs(9, 0x0000, 2), ErrTimeout);  // nobody at station 9
    }
    ASSERT_EQ(ReadRegs(1, 0x0000, 2), ErrNone);
    ASSERT_EQ(sink.records.size(), 2u);
    const FrameRecord& good = sink.records[0];
    EXPECT_EQ(good.request.size(), 8);
    EXPECT_EQ(good.request[0], 1);
    EXPECT_EQ(good.reply, QByteArray(reinterpret_cast<const char*>(m_rx.data()), 9));
    EXPECT_EQ(good.result, ErrNone);
    EXPECT_FALSE(good.link.isEmpty());
    EXPECT_LE(good.sent, good.answered);
    EXPECT_TRUE(sink.records[1].reply.isEmpty());
    EXPECT_EQ(sink.records[1].result, ErrTimeout);
}

}  // namespace
}  // namespace quillon::test
