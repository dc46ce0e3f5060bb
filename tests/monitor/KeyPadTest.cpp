// The keypad's logic against the simulated drive: the knob's mapping, the LED display, the
// display list's wrap, the lower-limit and range-check rules, and what a tick sends.

#include "MonitorFixture.h"
#include "link/Registers.h"
#include "monitor/KeyPad.h"
#include "monitor/KeyPadItems.h"
#include "monitor/LedDisplay.h"

namespace quillon::test {
namespace {

double KnobValue(int x, int y, std::uint16_t lower = 0, std::uint16_t upper = 6000)
{
    const auto turn = KnobDrag({x, y}, lower, upper);
    return turn && turn->value ? *turn->value : -1;
}

TEST(KnobMapping, EachQuadrantItsStopsAndThePlacingOfAValue)
{
    // Range 6000: a sixth of it per 45 degrees on the left and the top, the rest to 35 degrees
    // below the right.
    const struct {
        int x, y;
        double value;
    } turns[] = {{212, 213, 0},    {222, 240, 0},     // lower left at and past its stop
                 {200, 193, 1000}, {200, 161, 2000},  // left, upper left at 45 degrees
                 {264, 161, 4000}, {264, 193, 5000},  // upper right, right
                 {262, 240, 6000}, {300, 260, 6000}}; // lower right past its stop
    for (const auto& t : turns)
        EXPECT_NEAR(KnobValue(t.x, t.y), t.value, 0.01) << t.x << "," << t.y;
    EXPECT_NEAR(KnobValue(264, 161, 257, 6257), 4257, 0.01);
    EXPECT_EQ(KnobDrag({200, 161}, 0, 6000)->pointer.tip, QPoint(216, 177));

    // Straight up the pointer stands upright and the value stays; straight down and below
    // row 265 nothing happens.
    const auto up = KnobDrag({232, 100}, 0, 6000);
    ASSERT_TRUE(up);
    EXPECT_EQ(up->pointer, (KnobPointer{{232, 171}, {227, 180}, {237, 180}}));
    EXPECT_FALSE(up->value);
    EXPECT_FALSE(KnobDrag({232, 200}, 0, 6000));
    EXPECT_FALSE(KnobDrag({200, 266}, 0, 6000));

    // A value placed on the knob reads back as itself, near enough for whole pixels.
    for (double v : {0.0, 600.0, 1000.0, 2000.0, 4000.0, 5000.0, 5700.0, 6000.0}) {
        const auto at = KnobPointForValue(v, 0, 6000);
        ASSERT_TRUE(at) << v;
        EXPECT_NEAR(KnobValue(at->x(), at->y()), v, 6000 * 0.03) << v;
    }
    EXPECT_FALSE(KnobPointForValue(100, 500, 500));
}

TEST(KeyPadDisplay, ItemsLedGlyphsAndTheWrapOfUpAndDown)
{
    // The monitor block with a distinct value in each register an item shows.
    std::vector<unsigned char> block(37, 0);
    const std::pair<int, std::uint16_t> regs[] = {{0, 5000}, {1, 3012}, {2, 2201}, {3, 311},
                                                  {4, 15},   {6, 55},   {7, 42},   {8, 123},
                                                  {9, 1000}, {14, 456}, {15, 70}};
    for (const auto& [offset, value] : regs) {
        block[3 + 2 * offset] = static_cast<unsigned char>(value >> 8);
        block[4 + 2 * offset] = static_cast<unsigned char>(value & 0xFF);
    }
    const char* shown[] = {"50.00 Hz", "30.12 Hz", "220.1 V", "311 V", "1.5 A", "42 %",
                           "12.3 %", "10.00 V", "5.5 Kw", "45.6 Degree C", "70 %"};
    for (int item = 0; item < kKeyPadItems; ++item) {
        EXPECT_EQ(KeyPadItemText(item, block, false), shown[item]) << item;
        EXPECT_EQ(KeyPadItemText(item, block, true), QString(shown[item]).section(' ', 0, 0));
    }
    EXPECT_EQ(KeyPadItemText(1, {}, true), "");  // no reply yet: dark
    EXPECT_EQ(KeyPadItemText(-1, block, true), "");
    EXPECT_EQ(KeyPadItemList().size(), kKeyPadListedItems);

    using namespace LedSegment;
    EXPECT_EQ(LedSegments('8'), A | B | C | D | E | F | G);
    EXPECT_EQ(LedSegments('1'), B | C);
    EXPECT_EQ(LedSegments('7'), A | B | C);
    EXPECT_EQ(LedSegments('-'), 0);
    const auto digit = [](int x, char c) { return LedGlyph{{x, 59}, LedSegments(QLatin1Char(c)), false}; };
    const auto point = [](int x) { return LedGlyph{{x, 85}, 0, true}; };
    EXPECT_EQ(LedLayout("50.00"), (std::vector<LedGlyph>{digit(205, '0'), digit(170, '0'), point(160),
                                                         digit(135, '0'), digit(100, '5')}));
    EXPECT_EQ(LedLayout("220.1"), (std::vector<LedGlyph>{digit(205, '1'), point(195), digit(170, '0'),
                                                         digit(135, '2'), digit(100, '2')}));
    // Longer than five digits: the leftmost are lost; a trailing point has no place.
    EXPECT_EQ(LedLayout("123456"), (std::vector<LedGlyph>{digit(205, '6'), digit(170, '5'), digit(135, '4'),
                                                          digit(100, '3'), digit(65, '2')}));
    EXPECT_EQ(LedLayout("7."), (std::vector<LedGlyph>{digit(205, '7')}));

    // UP wraps at 11 and DOWN below 0; items 9 and 10 have no entry, the list reads -1.
    const struct {
        int from;
        bool up;
        int to;
    } steps[] = {{7, true, 8}, {8, true, -1}, {-1, true, 0}, {1, false, 0}, {0, false, -1}, {-1, false, -1}};
    for (const auto& s : steps)
        EXPECT_EQ(StepDisplayItem(s.from, s.up), s.to) << s.from << s.up;
}

class KeyPadTest : public MonitorTest {
protected:
    void SetUp() override
    {
        OpenBus();
        SetDriveRegister(RegRunSource, 2);
        SetDriveRegister(RegRunSource + 3, 5);  // 00-05
        SetDriveRegister(RegUpperLimit, 6000);
        SetDriveRegister(RegLowerLimit, 0);
    }
    static Frame Write(std::uint16_t reg, std::uint16_t v)
    {
        return {1, 0x06, static_cast<unsigned char>(reg >> 8), static_cast<unsigned char>(reg & 0xFF),
                static_cast<unsigned char>(v >> 8), static_cast<unsigned char>(v & 0xFF)};
    }
    const std::vector<Frame> kTickReads{{1, 0x03, 0x25, 0x20, 0x00, 0x01},
                                        {1, 0x03, 0x00, 0x02, 0x00, 0x05},
                                        {1, 0x03, 0x00, 0x0C, 0x00, 0x02},
                                        {1, 0x03, 0x25, 0x23, 0x00, 0x10}};
    CKeyPad m_keypad{m_runner, {1}, 0};
};

TEST_F(KeyPadTest, TickReadsInOrderAndADragSendsAtTheRelease)
{
    SetDriveRegister(RegFrequencyCommand, 3000);
    m_keypad.Tick(false);
    EXPECT_EQ(TakeSent(), kTickReads);
    EXPECT_TRUE(m_keypad.RunFromLink() && m_keypad.FreqFromLink());
    EXPECT_EQ(m_keypad.UpperLimit(), 6000);
    EXPECT_EQ(m_keypad.FreqText(), "0.00");  // the first placing leaves the edit alone
    EXPECT_NE(m_keypad.Pointer(), kKnobPointerAtStart);
    EXPECT_EQ(m_keypad.LedText(), "30.00");

    // Drag from the left to the right of the knob; nothing is sent while the button is down.
    m_keypad.OnPress({232, 193});
    m_keypad.OnMouseMove({200, 193}, true);
    EXPECT_EQ(m_keypad.FreqText(), "10.00");
    m_keypad.OnMouseMove({264, 193}, true);
    EXPECT_EQ(m_keypad.FreqText(), "50.00");
    EXPECT_TRUE(m_keypad.PointerHeld());
    m_keypad.Tick(true);
    EXPECT_EQ(TakeSent(), kTickReads);
    m_keypad.Tick(false);
    std::vector<Frame> release{Write(RegFrequencyCommand, 5000)};
    release.insert(release.end(), kTickReads.begin(), kTickReads.end());
    EXPECT_EQ(TakeSent(), release);

    // The keyboard's knob goes the same way.
    m_keypad.OnKnobStep(10);
    EXPECT_EQ(m_keypad.FreqText(), "50.10");
    m_keypad.Tick(false);
    EXPECT_EQ(TakeSent().front(), Write(RegFrequencyCommand, 5010));
    m_keypad.OnKnobStep(100000);
    EXPECT_EQ(m_keypad.FreqText(), "60.00");

    // RUN writes bit 0 once; a second RUN only reads.
    m_keypad.OnPress({76, 274});
    m_keypad.OnPress({76, 274});
    EXPECT_EQ(TakeSent(), (std::vector<Frame>{{1, 0x03, 0x25, 0x01, 0x00, 0x01},
                                              Write(RegControlWord, 1),
                                              {1, 0x03, 0x25, 0x01, 0x00, 0x01}}));
    EXPECT_TRUE(m_prompt.Messages().isEmpty());
}

TEST_F(KeyPadTest, LowerLimitRuleAndTheRangeCheckThatTestsNothingTyped)
{
    EXPECT_EQ(KeyPadLowerLimit(255), 0);
    EXPECT_EQ(KeyPadLowerLimit(500), 257);
    EXPECT_EQ(KeyPadLowerLimit(0x0AFF), 2570);

    // Lower limit 2.00 Hz reads as 0: every typed entry passes, even one above the upper limit.
    SetDriveRegister(RegLowerLimit, 200);
    m_keypad.Tick(false);
    EXPECT_EQ(m_keypad.LowerLimit(), 0);
    EXPECT_EQ(m_keypad.OnFreqEdited("70.29"), "70.29");
    TakeSent();
    m_keypad.OnFreqEnter();
    EXPECT_EQ(TakeSent(), (std::vector<Frame>{Write(RegFrequencyCommand, 7029)}));

    // 5.00 Hz reads as 2.57 Hz: every entry fails, 10.00 Hz as well.
    SetDriveRegister(RegLowerLimit, 500);
    m_keypad.Tick(false);
    EXPECT_EQ(m_keypad.LowerLimit(), 257);
    m_keypad.OnFreqEdited("10.00");
    TakeSent();
    m_keypad.OnFreqEnter();
    EXPECT_TRUE(TakeSent().empty());
    EXPECT_EQ(m_prompt.Messages(), QStringList{"Frequency value beyond the range!"});
}

TEST_F(KeyPadTest, FailuresSourcesAndTheFirstTickWithoutALink)
{
    // No link: RUN before any tick is refused by its source, the first tick reports and stops.
    {
        CDirectRunner none{[] { return nullptr; }};
        CKeyPad keypad(none, {1}, 0);
        keypad.OnPress({76, 274});
        keypad.Tick(false);
        EXPECT_FALSE(keypad.IsPolling());
    }
    // The frequency from the drive's own source: a released knob says so and sends nothing.
    SetDriveRegister(RegRunSource + 3, 1);
    m_keypad.Tick(false);
    TakeSent();
    m_keypad.OnPress({232, 193});
    m_keypad.OnMouseMove({200, 161}, true);
    m_keypad.Tick(false);
    EXPECT_TRUE(TakeSent().empty());
    EXPECT_EQ(m_keypad.FreqText(), "20.00");
    EXPECT_TRUE(m_keypad.IsPolling());

    // RUN: a refused read says only that; a failed write says its own word; a time-out stops.
    m_link.canned.push_back(Exception(0x03));
    m_keypad.OnRun();
    m_link.canned.push_back({ErrNone, Frame{1, 0x03, 0x02, 0x00, 0x01}});
    m_link.canned.push_back({ErrCrc, {}});
    m_keypad.OnStop();
    EXPECT_TRUE(m_keypad.IsPolling());
    m_link.canned.push_back({ErrTimeout, {}});
    m_keypad.OnRun();
    EXPECT_FALSE(m_keypad.IsPolling());
    m_keypad.Tick(false);
    EXPECT_TRUE(TakeSent().empty());
    EXPECT_EQ(m_prompt.Messages(), (QStringList{"Run command source selection error!",
                                                "Communication error!",
                                                "Frequency command source selection error!",
                                                "Communication error!", "Write stop command error!",
                                                "TimeOut!"}));
}

// Holds each job until the test lets it run: a line slower than the timer.
struct HeldRunner final : IExchangeRunner {
    std::vector<std::pair<LinkWork, LinkDone>> jobs;
    void Run(LinkWork work, LinkDone done) override { jobs.emplace_back(std::move(work), std::move(done)); }
};

TEST_F(KeyPadTest, TicksOnASlowLineNeverPileUp)
{
    HeldRunner held;
    CKeyPad keypad(held, {1}, 0);
    int due = 0;
    keypad.onTickDue = [&] { ++due; keypad.Tick(false); };
    for (int shot = 0; shot < 5; ++shot)
        keypad.Tick(false);
    ASSERT_EQ(held.jobs.size(), 1u);
    auto [work, done] = std::move(held.jobs.front());
    held.jobs.clear();
    work(&m_link);
    done();
    // The four shots that found it busy ask for one tick, at once.
    EXPECT_EQ(due, 1);
    EXPECT_EQ(held.jobs.size(), 1u);
    EXPECT_TRUE(keypad.IsTicking());
}

}  // namespace
}  // namespace quillon::test
