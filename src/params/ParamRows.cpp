#include "params/ParamRows.h"

#include "base/TextConv.h"
#include "params/ParamTypes.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace quillon {
namespace {

using F = RegFormat;

// ---- the rows, page by page -----------------------------------------------------------------

constexpr double kFromText = std::numeric_limits<double>::quiet_NaN();
// The range of a model-dependent row stands in ModelLimits.h, for every model.
constexpr const char* kModelRange = nullptr;

// Touches up the row just added.
struct RowEdit {
    ParamSpec& s;
    RowEdit& Checked(double lower, double upper) {
        s.lower = lower;
        s.upper = upper;
        return *this;
    }
    RowEdit& ReadOnly() {
        s.readOnly = true;
        return *this;
    }
    RowEdit& Run(RunTest test) {
        s.runTest = test;
        return *this;
    }
    RowEdit& Scaling(GroupScaling scaling) {
        s.groupScaling = scaling;
        return *this;
    }
    RowEdit& ByModel() {
        s.modelLimits = true;
        return *this;
    }
    RowEdit& Fine() {  // 0.0001 instead of 0.001 before the cut
        s.write = WriteConversion::DecimalFine;
        return *this;
    }
    RowEdit& WideButtonMargin() {
        s.wideButtonMargin = true;
        return *this;
    }
    RowEdit& Value(ComboValue value) {
        s.comboValue = value;
        return *this;
    }
};

WriteConversion ConversionOf(RegFormat format) {
    switch (format) {
    case F::D1:
    case F::D2: return WriteConversion::Decimal;
    case F::D3: return WriteConversion::DecimalFine;  // a 0.001 nudge would be a whole count
    case F::B5: return WriteConversion::Binary;
    case F::O5: return WriteConversion::Octal;
    case F::M: return WriteConversion::Capacity;
    default: return WriteConversion::Whole;
    }
}

class TableBuilder {
public:
    // The rows that follow are on page `page` of the group's editor, tab `tab`, and the write
    // button treats a running drive as `run` unless a row says otherwise.
    void Page(int page, int group, int tab, RunTest run) {
        m_page = page;
        m_group = group;
        m_tab = tab;
        m_run = run;
    }
    void NoPage(int group) { Page(0, group, -1, RunTest::NotRead); }

    RowEdit Combo(int row, const char* list, RegFormat format = F::N) {
        RowEdit e = Add(row, format, ControlKind::Combo, WriteConversion::Whole);
        e.s.optionList = OptionListIndex(list);
        return e;
    }
    RowEdit Decimal(int row, RegFormat format, const char* shown) {
        RowEdit e = Add(row, format, ControlKind::DecimalEdit, ConversionOf(format));
        e.s.shown = shown;
        return e;
    }
    RowEdit Integer(int row, const char* shown) {
        RowEdit e = Add(row, F::N, ControlKind::IntegerEdit, WriteConversion::Whole);
        e.s.shown = shown;
        return e;
    }
    RowEdit Digits(int row, RegFormat format, int fixed) {
        RowEdit e = Add(row, format, ControlKind::DigitGroup, ConversionOf(format));
        e.s.digits = DigitSpec{format == F::O5 ? 8 : 2, 5, fixed};
        return e;
    }
    // A read-only display of the text as it stands.
    RowEdit Text(int row, RegFormat format, const char* shown = nullptr) {
        RowEdit e = Add(row, format, ControlKind::TextEdit, ConversionOf(format));
        e.s.shown = shown;
        return e.ReadOnly();
    }
    RowEdit Hidden(int row, RegFormat format) {
        return Add(row, format, ControlKind::None, ConversionOf(format));
    }

    std::vector<ParamSpec> Finish() {
        for (ParamSpec& s : m_rows) {
            // Limits that are the numbers of the range text.
            if (std::isnan(s.lower) && s.shown) {
                const QString t = QString::fromUtf8(s.shown);
                const qsizetype tilde = t.indexOf(u'~');
                s.lower = Atof(QStringView(t).left(tilde));
                s.upper = Atof(QStringView(t).mid(tilde + 1));
            } else if (std::isnan(s.lower)) {
                s.lower = s.upper = 0.0;
            }
        }
        std::sort(m_rows.begin(), m_rows.end(), [](const ParamSpec& a, const ParamSpec& b) {
            return std::pair(a.group, a.row) < std::pair(b.group, b.row);
        });
        return std::move(m_rows);
    }

private:
    RowEdit Add(int row, RegFormat format, ControlKind control, WriteConversion write) {
        m_rows.push_back(ParamSpec{m_group, row, format, control, write, GroupScaling::Plain,
                                   nullptr, kFromText, kFromText, false, -1, ComboValue::Index,
                                   DigitSpec{}, false, m_run, m_page, m_tab, false});
        return RowEdit{m_rows.back()};
    }

    std::vector<ParamSpec> m_rows;
    int m_page = 0;
    int m_group = 0;
    int m_tab = -1;
    RunTest m_run = RunTest::NotRead;
};

constexpr auto Blocked = RunTest::Blocked;
constexpr auto Exempt = RunTest::Exempt;
constexpr auto NotRead = RunTest::NotRead;

}  // namespace

std::vector<ParamSpec> BuildParamRows() {
    TableBuilder t;

    // 00: basic functions
    t.Page(5791, 0, 0, Blocked);
    t.Combo(0, "00-00").Run(Exempt);
    for (int r : {1, 2, 3, 4, 5, 6, 7}) t.Combo(r, ParamCode(0, r).toLatin1().constData());
    t.Decimal(8, F::D2, "0.00~599.00").ReadOnly();  // output frequency, a display
    t.Combo(9, "00-09");
    t.Page(5782, 0, 1, Exempt);
    t.Combo(10, "00-10").Run(Blocked);
    t.Decimal(11, F::D2, "0.00~599.00").Run(Blocked);
    t.Decimal(12, F::D2, "0.01~599.00").Run(Blocked);
    t.Decimal(13, F::D2, "0.00~598.99");
    for (int r = 14; r <= 17; ++r) t.Decimal(r, F::D1, "0.1~3600.0");
    t.Decimal(18, F::D2, "1.00~25.00").Scaling(GroupScaling::Nudged);  // jog frequency
    t.Decimal(19, F::D1, "0.1~25.5");
    t.Page(195, 0, 2, NotRead);
    t.Decimal(20, F::D1, "0.1~25.5");

    // 01: V/f curve
    t.Page(141, 1, 0, Blocked);
    t.Integer(0, "1~7");
    // Maximum output voltage; the group write sends the whole volts only.
    t.Decimal(1, F::D1, kModelRange).ByModel().Scaling(GroupScaling::WholeTimesTen);
    t.Decimal(2, F::D2, "0.20~599.00");
    t.Decimal(3, F::D1, "0.0~100.0");
    t.Decimal(4, F::D2, "0.10~599.00").Scaling(GroupScaling::Nudged);
    t.Decimal(5, F::D1, "0.0~100.0");
    t.Decimal(6, F::D2, "0.10~599.00");
    t.Decimal(7, F::D1, "0.0~100.0");
    t.Decimal(8, F::D2, "0.10~599.00");
    t.Decimal(9, F::D1, "0.0~100.0");
    t.Page(5783, 1, 1, Blocked);
    t.Decimal(10, F::D1, "0.0~10.0").Run(Exempt);
    t.Decimal(11, F::D2, "0.00~10.00");
    t.Decimal(12, F::D1, "0.0~200.0");
    t.Integer(13, "1~8192");
    t.Integer(14, "0~100");
    t.Decimal(15, F::D1, "0.0~100.0");
    t.Decimal(16, F::D1, "0.1~1000.0");
    t.Integer(17, "0~100");
    t.Decimal(18, F::D2, "1.30~5.00");

    // 02: motor data, the rated values by model
    t.Page(5784, 2, 0, Blocked);
    t.Decimal(0, F::D1, kModelRange).ByModel().WideButtonMargin();
    t.Decimal(1, F::D1, kModelRange).ByModel().WideButtonMargin();
    t.Decimal(2, F::D1, "0.0~100.0").Checked(0.0, 200.0).Run(Exempt);
    t.Integer(3, "0~39000");
    t.Decimal(4, F::D1, kModelRange).ByModel();
    t.Decimal(5, F::D1, kModelRange).ByModel().WideButtonMargin();
    t.Decimal(6, F::D1, "0.0~599.0");
    t.Integer(15, "0~100");

    // 03: digital inputs and outputs
    t.Page(174, 3, 0, Blocked);
    for (int r = 0; r <= 3; ++r) t.Combo(r, "03-00");
    t.Decimal(6, F::D2, "0.00~5.00");
    t.Combo(7, "03-07");
    t.Integer(8, "1~200");
    t.Digits(9, F::B5, 1);  // contact types S4..S1
    t.Combo(11, "03-11");
    t.Decimal(13, F::D2, "0.00~599.00").Fine();
    t.Page(5786, 3, 1, Blocked);
    t.Decimal(14, F::D2, "0.00~30.00").Run(Exempt);
    t.Decimal(15, F::D1, "0.1~999.9").Run(Exempt);
    t.Decimal(16, F::D1, "0.1~10.0");
    t.Decimal(17, F::D2, "0.00~20.00");
    t.Decimal(18, F::D2, "0.00~20.00");
    t.Combo(19, "03-19");
    t.Decimal(20, F::D1, kModelRange).ByModel();  // brake levels
    t.Decimal(21, F::D1, kModelRange).ByModel();

    // 04: analog inputs and outputs
    t.Page(176, 4, 0, Exempt);
    t.Combo(0, "04-00").Run(Blocked);
    t.Integer(1, "1~200").Run(Blocked);
    t.Integer(2, "0~1000");
    t.Integer(3, "0~100");
    t.Combo(4, "04-04");
    t.Combo(5, "04-05");
    t.Combo(11, "04-11");
    t.Integer(12, "0~1000");
    t.Integer(13, "0~100");
    t.Combo(14, "04-14");
    t.Page(5796, 4, 1, NotRead);
    t.Combo(15, "04-15");
    t.Integer(16, "0~1000");
    t.Integer(17, "0~100");
    t.Combo(18, "04-18");
    t.Combo(19, "04-19");

    // 05: preset speeds and their acceleration and deceleration times
    t.Page(262, 5, 0, Exempt);
    t.Combo(0, "05-00").Run(Blocked);
    for (int r = 1; r <= 8; ++r)
        t.Decimal(r, F::D2, "0.00~650.00").Checked(0.0, 599.0).Scaling(GroupScaling::Nudged);
    t.Decimal(17, F::D1, "0.1~3600.0");
    t.Page(264, 5, 1, NotRead);
    for (int r = 18; r <= 27; ++r) t.Decimal(r, F::D1, "0.1~3600.0");
    t.Page(265, 5, 2, NotRead);
    for (int r = 28; r <= 32; ++r) t.Decimal(r, F::D1, "0.1~3600.0");

    // 06: automatic run
    t.Page(266, 6, 0, Exempt);
    t.Combo(0, "06-00").Run(Blocked);
    for (int r = 1; r <= 7; ++r) t.Decimal(r, F::D2, "0.00~650.00").Checked(0.0, 599.0);
    for (int r = 16; r <= 17; ++r) t.Decimal(r, F::D1, "0.0~3600.0");
    t.Page(267, 6, 1, Exempt);
    for (int r = 18; r <= 23; ++r) t.Decimal(r, F::D1, "0.0~3600.0");
    for (int r = 32; r <= 35; ++r) t.Combo(r, "06-32").Run(Blocked);
    t.Page(268, 6, 2, Blocked);
    t.Combo(36, "06-36");
    for (int r = 37; r <= 39; ++r) t.Combo(r, "06-32");

    // 07: start and stop
    t.Page(269, 7, 0, Blocked);
    t.Combo(0, "07-00");
    t.Decimal(1, F::D1, "0.0~6000.0");
    t.Integer(2, "0~10");
    t.Combo(3, "07-03");
    t.Combo(4, "07-04");
    t.Decimal(5, F::D1, "1.0~300.0");
    t.Decimal(6, F::D2, "0.10~10.00");
    t.Integer(7, "0~20");
    t.Decimal(8, F::D1, "0.0~25.5");
    t.Combo(9, "07-09");
    t.Page(5794, 7, 1, Blocked);
    t.Integer(10, "0~100");
    t.Decimal(11, F::D1, "0.0~25.5");
    t.Combo(12, "07-12");

    // 08: protection
    t.Page(5790, 8, 0, Blocked);
    t.Digits(0, F::B5, 1);  // stall and trip prevention, one bit each
    for (int r = 1; r <= 3; ++r) t.Integer(r, "50~200");
    t.Decimal(4, F::D1, kModelRange).ByModel().Run(Exempt);
    t.Digits(5, F::B5, 2);  // motor type and overload protection
    t.Combo(6, "08-06");
    t.Combo(7, "08-07");
    t.Combo(8, "08-08");
    t.Combo(9, "08-09");
    t.Page(5787, 8, 1, Exempt);
    t.Combo(10, "08-10");
    t.Decimal(11, F::D2, "0.01~10.00");
    t.Integer(12, "1~300");
    for (int r = 13; r <= 15; ++r) t.Decimal(r, F::D1, "0.1~10.0");
    t.Decimal(16, F::D1, "10.0~50.0");
    t.Decimal(17, F::D1, "0.0~60.0");
    t.Decimal(18, F::D1, "0.0~1500.0");
    t.Combo(19, "08-19");

    // 09: communication; the link settings are shown only
    t.Page(271, 9, 0, Blocked);
    t.Integer(0, "1~32").ReadOnly().Run(Exempt);
    for (int r = 1; r <= 5; ++r) t.Combo(r, ParamCode(9, r).toLatin1().constData()).ReadOnly();
    t.Decimal(6, F::D1, "0.0~25.5");
    t.Combo(7, "09-07");
    t.Integer(8, "0~20");
    t.Integer(9, "5~65");
    t.Page(5788, 9, 1, Blocked);
    t.Integer(10, "1~254").ReadOnly();

    // 10: PID
    t.Page(5792, 10, 0, Blocked);
    t.Combo(0, "10-00").Run(Exempt);
    t.Combo(1, "10-01").Run(Exempt);
    t.Decimal(2, F::D1, "0.0~100.0").Run(Exempt);
    t.Combo(3, "10-03");
    t.Decimal(4, F::D2, "0.00~10.00");
    t.Decimal(5, F::D2, "0.0~10.0").Checked(0.0, 10.0).Fine();
    t.Decimal(6, F::D1, "0.0~100.0");
    t.Decimal(7, F::D2, "0.00~10.00");
    t.Combo(8, "10-08");
    t.Integer(9, "0~109");
    t.Page(273, 10, 1, Blocked);
    t.Decimal(10, F::D1, "0.0~2.5").Run(Exempt);
    t.Combo(11, "10-11");
    t.Integer(12, "0~100");
    t.Decimal(13, F::D1, "0.0~25.5");
    t.Integer(14, "0~109").Run(Exempt);
    t.Integer(15, "0~30");
    t.Integer(16, "0~100");
    t.Decimal(17, F::D2, "0.00~650.00").Checked(0.0, 599.0);
    t.Decimal(18, F::D1, "0.0~25.5");
    t.Decimal(19, F::D2, "0.00~650.00").Checked(0.0, 599.0);
    t.Page(274, 10, 2, Exempt);
    t.Decimal(20, F::D1, "0.0~25.5").Run(Blocked);
    t.Integer(21, "0~999");
    t.Integer(22, "0~999");

    // 11: S-curves, skip frequencies, regeneration avoidance
    t.Page(275, 11, 0, Blocked);
    t.Combo(0, "11-00");
    t.Integer(1, "1~16");
    t.Combo(2, "11-02");
    t.Combo(3, "11-03");
    for (int r = 4; r <= 7; ++r) t.Decimal(r, F::D1, "0.0~4.0");
    for (int r = 8; r <= 9; ++r) t.Decimal(r, F::D2, "0.00~650.00").Checked(0.0, 599.0).Run(Exempt);
    t.Page(5789, 11, 1, NotRead);
    t.Decimal(10, F::D2, "0.00~599.00");
    t.Decimal(11, F::D2, "0.00~30.00");
    t.Combo(13, "11-13");
    t.Decimal(14, F::D1, kModelRange).ByModel();
    t.Decimal(15, F::D2, "0.00~15.00");
    t.Integer(16, "0~200");
    t.Integer(17, "0~200");
    t.Combo(18, "11-18");
    t.NoPage(11);
    t.Hidden(21, F::N);  // read and written with the group, shown on no page

    // 12: display
    t.Page(5795, 12, 0, Exempt);
    t.Digits(0, F::O5, 0);  // one octal digit per display slot
    t.Combo(1, "12-01");
    t.Combo(2, "12-02");
    t.Integer(3, "0~65535");
    t.Combo(4, "12-04");
    t.Text(5, F::Z5).Run(Blocked);
    t.Text(6, F::D1).Run(Blocked);
    t.Text(7, F::N).Run(Blocked);

    // 13: capacity, software version, fault record, parameter lock, reset
    t.Page(278, 13, 0, Blocked);
    t.Text(0, F::M);
    t.Text(1, F::D3);
    t.Combo(2, "13-02").ReadOnly();
    t.Integer(3, "0~23").ReadOnly();
    t.Integer(4, "0~65535").ReadOnly();
    t.Combo(5, "13-05");
    t.Combo(6, "13-06");
    t.Text(7, F::Z5, "00000~65535");
    t.Combo(8, "13-08", F::Z4).Value(ComboValue::ResetCode);

    // simplified group: its pages never ask for the running state
    t.Page(5804, kSimplifiedGroup, 0, NotRead);
    t.Combo(1, "F01");
    t.Combo(2, "F02");
    t.Combo(3, "F03");
    t.Combo(4, "F04");
    t.Decimal(5, F::D2, "0.01~599.00");
    t.Decimal(6, F::D2, "0.00~598.99");
    t.Decimal(7, F::D1, "0.1~3600.0");
    t.Decimal(8, F::D1, "0.1~3600.0");
    t.Combo(9, "F09").Value(ComboValue::IndexPlusOne);
    t.Decimal(10, F::D1, "0.0~10.0");
    t.Page(5805, kSimplifiedGroup, 1, NotRead);
    // F11 is the rated current: the rated table's range; a model it doesn't list keeps the
    // register's whole range.
    t.Decimal(11, F::D1, "0.0~6553.5").ByModel();
    for (int r = 12; r <= 14; ++r) t.Combo(r, "03-00");
    t.Combo(15, "03-11");
    for (int r = 16; r <= 18; ++r) t.Decimal(r, F::D2, "0.00~599.00");
    t.Combo(19, "F19");
    t.Decimal(20, F::D1, "0.0~6000.0");
    t.Page(5806, kSimplifiedGroup, 2, NotRead);
    t.Integer(21, "0~10");
    t.Combo(22, "F22");
    t.Decimal(23, F::D2, "0.10~10.00");
    t.Integer(24, "0~20");
    t.Decimal(25, F::D1, "0.0~25.5");
    t.Combo(26, "F26");
    t.Digits(27, F::B5, 2);
    t.Combo(28, "F28");
    t.Integer(29, "1~16");
    t.Text(30, F::D3);
    t.Page(5807, kSimplifiedGroup, 3, NotRead);
    t.Combo(31, "F31").ReadOnly();
    t.Combo(32, "F32", F::Z4).Value(ComboValue::ResetCode);
    t.Combo(33, "F33");

    return t.Finish();
}

}  // namespace quillon
