// The editor's pages without widgets against the in-process simulated drive: the edit filter,
// the write button's order of guards per page, the rows a running drive lets through, the
// cross-parameter rules at the button and in the group write, and the round trip of every
// writable row from its text to the drive and back.

#include "../transfer/TransferFixture.h"

#include "base/TextConv.h"
#include "base/TextTable.h"
#include "editing/ParamPageLogic.h"
#include "link/ModbusFrame.h"
#include "link/Registers.h"
#include "transfer/GroupWrite.h"

namespace quillon::test {
namespace {

TEST(EditFilter, KeepsWhatTheFieldMayHold) {
    struct Case {
        const char* before;
        const char* after;
        double upper;
        int decimals;
        const char* kept;
    } const cases[] = {
        {"12.34", "12.345", 599, 2, "12.34"},  // a third decimal falls away
        {"1.2", "1.2.3", 599, 2, "1.2"},       // a second point
        {"", ".5", 599, 2, ""},                // a leading point
        {"5", "5a", 599, 2, "5"},              // no letters
        {"59", "599", 599, 2, "599"},          // the upper limit itself
        {"599", "5999", 599, 2, "599"},        // beyond it
        {"3", "", 599, 2, ""},                 // empty passes: the page check decides
        {"0.0", "0.05", 100, 1, "0.0"},        // one decimal
    };
    for (const Case& c : cases)
        EXPECT_EQ(FilterDecimalText(c.before, c.after, c.upper, c.decimals), c.kept)
            << c.before << " -> " << c.after;
    EXPECT_EQ(FilterIntegerText("7", "8", 1, 7), "7");
    EXPECT_EQ(FilterIntegerText("7", "", 1, 7), "");
    EXPECT_EQ(FilterIntegerText("1", "1x", 1, 200), "1");
}

// A page takes its rows from the parameter table: every row placed on a page finds that page in
// its own group on the same tab, and no page gets more rows than it has slots.
TEST(PageTable, EveryRowOnAPageFindsIt) {
    int shown = 0;
    for (const PageSpec& page : PageSpecs()) {
        EXPECT_GT(page.RowCount(), 0) << page.templateId;
        EXPECT_LE(page.RowCount(), kPageRows) << page.templateId;
        for (int s = 0; s < page.RowCount(); ++s)
            EXPECT_EQ(FindParam(page.group, page.RowAt(s))->tab, page.tab) << page.templateId;
        shown += page.RowCount();
    }
    int onPages = 0;
    for (const ParamSpec& spec : ParamTable()) onPages += spec.page != 0;
    EXPECT_EQ(shown, onPages);
    EXPECT_EQ(PageOfRow(2, 15)->SlotOf(15), 7);  // 02-07..02-14 are no parameters of the page
}

class PageLogicTest : public TransferTest {
protected:
    void SetUp() override {
        OpenBus();
        NewProject();
    }
    // A page of the row of `code`, filled from the project.
    std::pair<std::unique_ptr<CParamPageLogic>, int> PageOf(const QString& code) {
        const ParamSpec* spec = FindParam(code);
        EXPECT_TRUE(spec) << code.toStdString();
        const PageSpec* page = PageOfRow(spec->group, spec->row);
        auto logic = std::make_unique<CParamPageLogic>(*page);
        logic->OnInit(*m_doc, m_session.m_nModelCode);
        return {std::move(logic), page->SlotOf(spec->row)};
    }
    // The row's button with `value` entered; the last message shown (empty for none).
    QString Press(const QString& code, const QString& value = {}) {
        auto [page, slot] = PageOf(code);
        if (!value.isEmpty()) {
            EXPECT_EQ(page->EnterValue(slot, value), QString()) << code.toStdString();
        }
        // The station is asked only after the connection, read-only and page checks.
        if (m_session.m_bOnline && !page->Control(slot).spec->readOnly) m_prompt.Station(1);
        ClearSent();
        const int before = static_cast<int>(m_prompt.Messages().size());
        PageContext context{m_session, *m_doc, m_link.get(), {}, 0.0f};
        page->OnWriteButton(slot, context);
        const QStringList shown = m_prompt.Messages().mid(before);
        return shown.isEmpty() ? QString() : shown.last();
    }
    void SetRow(const QString& code, const QString& text) {
        const ParamSpec* spec = FindParam(code);
        m_doc->SetSetValue(spec->group, spec->row, text);
    }
    static constexpr const char* kOk = "Write successful!";
};

TEST_F(PageLogicTest, ButtonScalesEachKindOfRow) {
    struct Case {
        const char* code;
        const char* text;
        int sent;
    } const cases[] = {
        {"00-11", "0.29", 29},   {"00-11", "0.999", 100},  // + 0.001 before the cut
        {"03-13", "0.999", 99},  {"10-05", "0.999", 99},   // + 0.0001 only
        {"F27", "00101", 5},     {"12-00", "00017", 15},   // binary, octal
        {"F09", "7", 7},         {"13-08", "1160", 1160},  // an entry's value, a reset code
        {"01-01", "50.5", 505},  // the button keeps the decimal the group write drops
    };
    for (const Case& c : cases) {
        auto [page, slot] = PageOf(c.code);
        PageContext context{m_session, *m_doc, m_link.get(), {}, 0.0f};
        ASSERT_TRUE(page->WriteParameter(slot, c.text, 1, context)) << c.code;
        EXPECT_EQ(DriveValue(FindParam(QString::fromLatin1(c.code))->Register()), c.sent) << c.code << " " << c.text;
    }
    // Station 0: a broadcast, no reply awaited, and done.
    auto [page, slot] = PageOf("00-11");
    PageContext context{m_session, *m_doc, m_link.get(), {}, 0.0f};
    ClearSent();
    EXPECT_TRUE(page->WriteParameter(slot, "1.00", 0, context));
    ASSERT_EQ(SentSince().size(), 1u);
    EXPECT_EQ(SentSince()[0][0], 0);
}

// Every writable row of every page: its text goes out through the button's frame, and the
// drive's register reads back as the same text.
TEST_F(PageLogicTest, EveryWritableRowRoundTrips) {
    int rows = 0;
    for (const PageSpec& pageSpec : PageSpecs()) {
        CParamPageLogic page(pageSpec);
        page.OnInit(*m_doc, m_session.m_nModelCode);
        PageContext context{m_session, *m_doc, m_link.get(), {}, 0.0f};
        for (int s = 0; s < pageSpec.RowCount(); ++s) {
            const ParamSpec& spec = *page.Control(s).spec;
            if (spec.readOnly || spec.write == WriteConversion::None) continue;
            // The top of the row's range (a step below it), one of its last entries, or every free digit set.
            QString text;
            if (const auto limits = LimitsOf(spec, m_session.m_nModelCode))
                text = spec.control == ControlKind::DecimalEdit
                           // a step below: the filter holds a float limit without a margin
                           ? FormatFixed(limits->upper - 1.0 / DecimalScale(spec.Decimals()),
                                         spec.Decimals())
                           : QString::number(int(limits->upper));
            else if (spec.control == ControlKind::Combo) {
                // The last entry, or the one before on odd rows: pairs that must differ do.
                const int index = int(OptionsOf(spec).size()) - 1 - (spec.row % 2);
                text = spec.comboValue == ComboValue::ResetCode ? ResetCodeOfIndex(index)
                       : spec.comboValue == ComboValue::IndexPlusOne ? QString::number(index + 1)
                                                                     : QString::number(index);
            }
            else
                text = QString(spec.digits.fixed, u'0') +
                       QString(spec.digits.count - spec.digits.fixed, spec.digits.base == 8 ? u'7' : u'1');
            ASSERT_EQ(page.EnterValue(s, text), QString()) << spec.Code().toStdString() << " " << text.toStdString();
            const QString entered = page.RowText(s);
            ASSERT_TRUE(page.WriteParameter(s, entered, 1, context)) << spec.Code().toStdString();
            EXPECT_EQ(RegisterToText(spec, DriveValue(spec.Register())), entered)
                << spec.Code().toStdString();
            ++rows;
        }
    }
    EXPECT_GE(rows, 240);
}

// Read-only rows, the connection, and a running drive, in the order each page tests them.
TEST_F(PageLogicTest, PagesTellTheirRefusalsInTheirOrder) {
    const QString readOnly = "The parameter read only!";
    const QString offline = "It is not connect with inverter!";
    const QString running = "INV is running,please stop it first.";
    m_session.m_bOnline = 0;
    EXPECT_EQ(Press("09-00"), readOnly);  // page 271: read-only before the connection
    EXPECT_EQ(Press("13-00"), readOnly);
    EXPECT_EQ(Press("F30"), readOnly);
    EXPECT_EQ(Press("00-08"), offline);   // page 5791: the connection first
    EXPECT_EQ(Press("00-11"), offline);
    m_session.m_bOnline = 1;
    EXPECT_EQ(Press("00-08"), readOnly);  // ... then read-only after the controls
    EXPECT_TRUE(SentSince().empty());

    SetDriveValue(RegControlWord, ControlBit::Run);
    struct Case {
        const char* code;
        bool refused;
    } const cases[] = {
        {"00-00", false}, {"00-07", true},   // 5791: all but 00-00
        {"00-12", true},  {"00-13", false},  // 5782: 00-10 to 00-12
        {"02-02", false}, {"02-06", true},   // 5784: all but 02-02
        {"08-04", false}, {"08-06", true},   // 5790: all but 08-04
        {"08-11", false},                    // 5787 reads the state and ignores it
        {"10-10", false}, {"10-14", false}, {"10-13", true},  // 273
        {"11-07", true},  {"11-08", false},  // 275: 11-00 to 11-07
        {"11-10", false},                    // 5789 never asks
        {"F11", false},                      // the simplified pages never ask
    };
    for (const Case& c : cases)
        EXPECT_EQ(Press(c.code) == running, c.refused) << c.code;
    Press("F11");
    EXPECT_EQ(ReadStarts(), std::vector<int>{RegParameterPassword}) << "F11 asks for no run state";
}

// Each rule of the cross-parameter table at the row's button, with the drive set up so that it
// bites or just lets the value through; then the rules whose group write differs.
TEST_F(PageLogicTest, CrossRulesAtTheButtonAndInTheGroupWrite) {
    const QString same = "The value of parameter %1 and %2 can't be the same!";
    const auto when = [](const char* rule) {
        return QStringLiteral("when %1,the parameter can be writed into inverter!").arg(rule);
    };
    const QString less = "The value of 02-00 must be less than the value of 02-01!";
    struct Case {
        std::vector<std::pair<int, int>> drive;  // registers set first
        const char* code;
        const char* value;
        QString says;
    } const cases[] = {
        {{{0x0002, 1}}, "00-01", "1", LoadText(TextId::RunSourceNotZero)},
        {{{0x0002, 0}}, "00-01", "1", kOk},
        {{{0x0003, 1}}, "00-02", "1", kOk},  // the button reads 00-03 and compares nothing
        {{{0x0006, 2}}, "00-05", "2", same.arg("00-05", "00-06")},
        {{{0x0005, 3}}, "00-06", "3", same.arg("00-06", "00-05")},
        {{{0x0A01, 2}}, "10-00", "2", "The value of parameter 10-00 and 10-01can't be same!"},
        // The free curve is asked before the order of the points.
        {{{0x0100, 1}, {0x0106, 2000}}, "01-04", "10.00", when("01-00=7")},
        {{{0x0100, 7}}, "01-04", "10.00", when("01-04>=01-06")},
        {{{0x0107, 200}}, "01-05", "10.0", when("01-05>=01-07")},
        {{{0x0104, 500}, {0x0108, 100}}, "01-06", "10.00", when("01-04>=01-06>=01-08")},
        {{{0x0105, 200}, {0x0109, 150}}, "01-07", "10.0", when("01-05>=01-07>=01-09")},
        {{{0x0106, 500}}, "01-08", "10.00", when("01-06>=01-08")},
        {{{0x0107, 100}, {0x0109, 50}}, "01-09", "20.0", when("01-07>=01-09")},
        {{{0x0201, 30}}, "02-00", "3.0", less},  // equal is refused for 02-00...
        {{{0x0200, 30}}, "02-01", "3.0", kOk},   // ... and accepted for 02-01
    };
    for (const Case& c : cases) {
        for (const auto& [reg, value] : c.drive) SetDriveValue(reg, static_cast<std::uint16_t>(value));
        EXPECT_EQ(Press(c.code, c.value), c.says) << c.code;
    }
    // A partner that can't be read, and one that changes between the two reads of 00-05.
    SetIntercept([](const Frame& f) -> std::optional<Frame> {
        return RequestRegister(f) == 0x0003 ? std::optional(ExceptionReply(f, 'Q')) : std::nullopt;
    });
    EXPECT_EQ(Press("00-02", "2"), "Communication error!");
    int reads = 0;
    SetIntercept([&](const Frame& f) -> std::optional<Frame> {
        if (f[1] != ModbusFn::ReadHolding || RequestRegister(f) != 0x0006 || ++reads < 2)
            return std::nullopt;
        Frame reply{f[0], f[1], 2, 0, 4, 0, 0};
        AppendCrc(reply.data(), 5);
        return reply;
    });
    EXPECT_EQ(Press("00-05", "4"), "The value of parameter 00-05 and 00-06 can't be same!");
    SetIntercept({});

    // The group write (its list rules are held in WriteCommandTest): 01-09 above the drive's
    // 01-07 speaks of 01-05 and 01-07, and without the free curve the points go unsaid.
    CGroupWriter writer(*m_link, m_session);
    WriteSnapshot snapshot;
    const auto groupRefusal = [&] {
        FillWriteSnapshot(*m_doc, snapshot);
        return writer.WriteGroup(1, snapshot, 1) ? QString() : m_session.m_strLastError;
    };
    for (const auto& [code, text] : {std::pair{"01-00", "7"}, {"01-04", "1.00"}, {"01-06", "1.00"},
                                     {"01-08", "1.00"}, {"01-05", "10.0"}, {"01-07", "10.0"},
                                     {"01-09", "20.0"}})
        SetRow(code, text);
    for (int reg : {0x0106, 0x0107, 0x0108, 0x0109}) SetDriveValue(reg, 100);
    EXPECT_EQ(groupRefusal(), when("01-05>=01-07"));
    SetRow("01-00", "1");
    ClearSent();
    EXPECT_EQ(groupRefusal(), QString());
    EXPECT_EQ(WriteStarts(), (std::vector<int>{0x0100, 0x010A}));
}

// After a button write the row is not marked: the page compares with what it wrote.
TEST_F(PageLogicTest, SaveComparesWithTheWrittenValue) {
    auto [page, slot] = PageOf("00-11");
    ASSERT_EQ(page->EnterValue(slot, "7.5"), QString());
    m_prompt.Station(1);
    PageContext context{m_session, *m_doc, m_link.get(), {}, 0.0f};
    ASSERT_TRUE(page->OnWriteButton(slot, context));
    page->SaveToDocument(*m_doc);
    EXPECT_FALSE(m_doc->RowChanged(0, 11));
    EXPECT_EQ(m_doc->RowAt(0, 11).m_strSetValue, "7.50");
    ASSERT_EQ(page->EnterValue(slot, "8"), QString());
    page->SaveToDocument(*m_doc);
    EXPECT_TRUE(m_doc->RowChanged(0, 11));
    // A neighbour out of range blocks the write of another row, and the focus goes to it.
    int focused = -1;
    page->onFocusField = [&](int s) { focused = s; };
    page->Control(page->Page().SlotOf(12)).text = "0.00";  // 00-12 starts at 0.01
    EXPECT_FALSE(page->OnWriteButton(slot, context));
    EXPECT_EQ(m_prompt.Messages().last(), "Beyond the range!");
    EXPECT_EQ(focused, page->Page().SlotOf(12));
}

}  // namespace
}  // namespace quillon::test
