// The search and address-assignment datagrams byte by byte, and the texts they carry.

#include "link/SearchProtocol.h"

#include <gtest/gtest.h>

namespace quillon::test {
namespace {

const MacBytes kMac{0x00, 0x20, 0x4a, 0x14, 0x01, 0x18};

TEST(SearchProtocol, QueryAndReplyLayout)
{
    EXPECT_EQ(SearchQuery(), QByteArray("\x00\x00\x00\xF6", 4));

    const QByteArray reply = SearchReply(kMac);
    ASSERT_EQ(reply.size(), 30);
    EXPECT_EQ(static_cast<unsigned char>(reply[3]), 0xF7);
    EXPECT_EQ(reply.mid(24, 6), QByteArray("\x00\x20\x4a\x14\x01\x18", 6));
    EXPECT_EQ(SearchReplyMac(reply), kMac);

    // A reply is known by F7 at offset 3 alone; whatever else it holds is ignored, and a short
    // one reads zeros where it ends, as from a zeroed buffer.
    QByteArray longer = reply + QByteArray(2000, '\x55');
    EXPECT_EQ(SearchReplyMac(longer), kMac);
    EXPECT_EQ(SearchReplyMac(QByteArray("\x01\x02\x03\xF7\xAA", 5)), MacBytes{});
    EXPECT_EQ(SearchReplyMac(QByteArray("\x00\x00\x00\xF7\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00"
                                        "\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x11\x22",
                                        26)),
              (MacBytes{0x11, 0x22, 0, 0, 0, 0}));
    // Not replies: a query, garbage, too short to have an offset 3.
    EXPECT_FALSE(SearchReplyMac(SearchQuery()));
    EXPECT_FALSE(SearchReplyMac(QByteArray("\xF7\xF7\xF7", 3)));
    EXPECT_FALSE(SearchReplyMac(QByteArray()));
    EXPECT_FALSE(SearchReplyMac(QByteArray(1024, '\xF6')));
}

TEST(SearchProtocol, AddressAssignmentLayout)
{
    const QByteArray request = SetAddressRequest(kMac, 0xC0A8010Au);  // 192.168.1.10
    EXPECT_EQ(request, QByteArray("\x00\x00\x00\xF8\x00\x20\x4a\x14\x01\x18\xC0\xA8\x01\x0A", 14));
    const auto parsed = ParseSetAddressRequest(request);
    ASSERT_TRUE(parsed);
    EXPECT_EQ(parsed->mac, kMac);
    EXPECT_EQ(parsed->address, 0xC0A8010Au);

    const QByteArray answer = SetAddressAnswer(kMac, 0x7F000009u, 1);
    EXPECT_EQ(answer, QByteArray("\x00\x00\x00\xF9\x00\x20\x4a\x14\x01\x18\x7F\x00\x00\x09\x01", 15));
    const auto taken = ParseSetAddressAnswer(answer);
    ASSERT_TRUE(taken);
    EXPECT_EQ(taken->status, 1);
    EXPECT_EQ(taken->address, 0x7F000009u);

    EXPECT_FALSE(ParseSetAddressRequest(request.left(13)));
    EXPECT_FALSE(ParseSetAddressRequest(answer));
    EXPECT_FALSE(ParseSetAddressAnswer(request));
    EXPECT_FALSE(ParseSetAddressAnswer(answer.left(14)));
}

TEST(SearchProtocol, MacAndAddressTexts)
{
    EXPECT_EQ(MacText(kMac), QStringLiteral("00-20-4a-14-01-18"));
    EXPECT_EQ(ParseMac(QStringLiteral("00-20-4A-14-01-18")), kMac);
    for (const char* bad : {"", "00-20-4a-14-01", "00:20:4a:14:01:18", "00-20-4a-14-01-1g",
                            "00-20-4a-14-01-18-", "0-20-4a-14-01-18"})
        EXPECT_FALSE(ParseMac(QString::fromLatin1(bad))) << bad;

    EXPECT_EQ(ParseIpv4(QStringLiteral("127.0.0.2")), 0x7F000002u);
    EXPECT_EQ(ParseIpv4(QStringLiteral(" 10.1.2.255 ")), 0x0A0102FFu);
    for (const char* bad : {"", "1.2.3", "1.2.3.256", "1.2.3.4.5", "a.b.c.d", "1..2.3"})
        EXPECT_FALSE(ParseIpv4(QString::fromLatin1(bad))) << bad;
    EXPECT_EQ(Ipv4Text(0xC0A8010Au), QStringLiteral("192.168.1.10"));
}

}  // namespace
}  // namespace quillon::test
