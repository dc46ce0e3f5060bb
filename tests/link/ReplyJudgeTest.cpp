// The words each caller shows for a transaction's outcome.

#include "link/LinkResult.h"
#include "link/ReplyJudge.h"
#include "support/ScriptedPrompt.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(ExceptionTexts, DriveLettersAndTheFallback)
{
    EXPECT_EQ(ExceptionText('Q'), "Function Code Error ");
    EXPECT_EQ(ExceptionText('R'), "Address Error ");
    EXPECT_EQ(ExceptionText('S'), "Data Amount Error");
    EXPECT_EQ(ExceptionText('T'), "DATA Over Range");
    // Standard Modbus codes and anything else share the one fallback.
    for (unsigned char code : {0x00, 0x01, 0x02, 0x03, 0x04, 0x50, 0x55, 0x71, 0xFF})
        EXPECT_EQ(ExceptionText(code), "Writing Mode Error ") << int(code);

    EXPECT_EQ(ErrTypeText(7), "Communication error!");
    EXPECT_EQ(ErrTypeText(-1), "Communication error!");
}

TEST(ExceptionTexts, ShowExceptionErrorNamesTheStationInOneBox)
{
    test::ScriptedPrompt prompt;
    ShowExceptionError('R', 3);
    ShowExceptionError(0x02, 12);
    EXPECT_EQ(prompt.Messages(),
              QStringList({"Station Num 3\nAddress Error ", "Station Num 12\nWriting Mode Error "}));
}

struct JudgeCase {
    ReplyCaller caller;
    int result;
    const char* expected;  // text; nullptr for "nothing shown"
};

// Replies used below: a good read of station 4 and an exception 'T' to it.
constexpr unsigned char kGoodReply[] = {4, 0x03, 2, 0, 7, 0, 0};
constexpr unsigned char kExceptionReply[] = {4, 0x83, 'T', 0, 0};

TEST(JudgeReply, TransportFailuresPerCaller)
{
    // The callers that don't just show the word: prefixed, replaced, or silent.
    const JudgeCase cases[] = {
        {ReplyCaller::GroupRead, 9, "Communication error!"},
        {ReplyCaller::GroupWrite, ErrTimeout, "Station Num 4:write parameter group 10 TimeOut!"},
        {ReplyCaller::RunStatus, 4, nullptr},
        {ReplyCaller::RunSourceAtConnect, ErrCrc, "Communication error!"},
        {ReplyCaller::TakeOverIdentification, ErrTimeout, "Communication error!"},
        {ReplyCaller::PasswordState, ErrCrc, "Read parameter password error!"},
        {ReplyCaller::PageAccess, ErrCrc, "Station Num 4CRC parity error!"},
        {ReplyCaller::PageAccess, 4, nullptr},
        {ReplyCaller::Polling, ErrComm, nullptr},
    };
    for (const JudgeCase& c : cases) {
        const ReplyVerdict v = JudgeReply(c.caller, c.result, kGoodReply, 0x03, 4, 10);
        EXPECT_FALSE(v.ok) << int(c.caller) << "/" << c.result;
        EXPECT_FALSE(v.exception);
        EXPECT_EQ(v.text, c.expected ? QString::fromUtf8(c.expected) : QString())
            << int(c.caller) << "/" << c.result;
    }
}

TEST(JudgeReply, ExceptionRepliesPerCaller)
{
    const std::pair<ReplyCaller, const char*> cases[] = {
        {ReplyCaller::GroupRead, "DATA Over Range"},
        {ReplyCaller::GroupWrite, "Station Num 4:write parameter group 10 DATA Over Range"},
        {ReplyCaller::Identification, "DATA Over Range"},
        {ReplyCaller::RunStatus, "Communication error!"},
        {ReplyCaller::RunSourceAtConnect, "Communication error!"},
        {ReplyCaller::TakeOverIdentification, "Communication error!"},
        {ReplyCaller::PasswordState, "Read parameter password error!"},
        {ReplyCaller::PageAccess, "Station Num 4\nDATA Over Range"},
        {ReplyCaller::Polling, "Communication error!"},
    };
    for (const auto& [caller, text] : cases) {
        const ReplyVerdict v = JudgeReply(caller, ErrNone, kExceptionReply, 0x03, 4, 10);
        EXPECT_FALSE(v.ok);
        EXPECT_TRUE(v.exception);
        EXPECT_EQ(v.text, QString::fromUtf8(text)) << int(caller);
    }
}

TEST(JudgeReply, SuccessIsTheFunctionByteAloneAndShowsNothing)
{
    test::ScriptedPrompt prompt;
    const ReplyVerdict ok = JudgeReply(ReplyCaller::PageAccess, ErrNone, kGoodReply, 0x03, 4);
    EXPECT_TRUE(ok.ok);
    EXPECT_TRUE(ok.text.isEmpty());
    ShowVerdict(ok);
    // Another function byte than the one sent is an exception reply even when it is a valid
    // function: a reply 0x03 to a write request.
    const ReplyVerdict wrong = JudgeReply(ReplyCaller::GroupRead, ErrNone, kGoodReply, 0x06);
    EXPECT_TRUE(wrong.exception);
    EXPECT_EQ(wrong.text, "Writing Mode Error ");  // byte 2 of that reply is 2
    ShowVerdict(wrong);
    EXPECT_EQ(prompt.Messages(), QStringList({"Writing Mode Error "}));
}

}  // namespace
}  // namespace quillon
