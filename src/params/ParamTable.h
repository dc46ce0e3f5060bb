#pragma once
// The parameter table: every fact about one parameter of groups 00..13 and of the simplified
// group, in one row. Where its register lies, how the register reads as text, how a text goes
// back to the register (on the page's write button and in a group write), which control the
// editor shows for it, the range shown beside the field and the range tested, its option list,
// whether it is read-only or refused while the drive runs, and the page and tab it sits on.
//
// The group read, the group write, the editor pages, and later import, compare and print take
// their facts from here, and one function validates a text and converts it for the drive. The
// frame tables of the transfer layer keep only their frames (start register, count).
//
// Parameter gg-nn lives at register gg * 256 + nn; the simplified group is group 14 (Fnn at
// 0x0E00 + nn).

#include "params/ModelLimits.h"

#include <QString>
#include <QStringView>
#include <QtGlobal>
#include <optional>
#include <span>

namespace quillon {

// Text form of a register value v (unsigned 16 bits):
//   N "%d"   D1 "%.1f" of v/10   D2 "%.2f" of v/100   D3 "%.3f" of v/1000
//   Z4 "%04d"   Z5 "%05d"   B5 bits 4..0 as "0"/"1"   O5 five octal digits of bits 14..0
//   M  the capacity code of the model whose code is v, empty for an unknown code
enum class RegFormat { N, D1, D2, D3, Z4, Z5, B5, O5, M };

// The editor's control for a row.
enum class ControlKind {
    None,         // no page shows the row (11-21): read and written by groups only
    Combo,        // the value is the selected entry (see ComboValue)
    DecimalEdit,  // text with a fixed number of decimals, tested against its limits
    IntegerEdit,  // a whole number within its limits
    DigitGroup,   // one small combo per digit, binary or octal
    TextEdit,     // a read-only text shown as it stands (12-05..12-07, 13-00, 13-01, 13-07, F30)
};

// What a combo's value is.
enum class ComboValue {
    Index,         // entry n is value n
    IndexPlusOne,  // F09: entry n is value n + 1
    ResetCode,     // 13-08, F32: entry n is the code its text begins with ("1150"), "0000" else
};

// How the page's write button turns a row's text into its register.
enum class WriteConversion {
    Whole,        // atoi (combos, integer fields, Z4/Z5 texts)
    Decimal,      // (atof + 0.001) x 10^decimals, cut
    DecimalFine,  // (atof + 0.0001) x 10^decimals, cut: 03-13 and 10-05
    Binary,       // the digit text read in base 2: 03-09, 08-00, 08-05, F27
    Octal,        // the digit text read in base 8: 12-00
    Capacity,     // the model code of a capacity text (13-00; never written, only compared)
    None,         // not writable by any route
};

// How a group write turns a row's text into its register, where it differs from the button.
enum class GroupScaling {
    Plain,          // decimals as the cut product text x 10^d, no nudge; others as the button
    Nudged,         // decimals as the cut of (text x 10^d + 0.0001): 00-18, 01-04, 05-01..05-08
    WholeTimesTen,  // the whole-number part times ten: 01-01 loses its decimals on this route
};

// How the row's write button treats a running drive.
enum class RunTest {
    NotRead,  // the page does not ask for the running state
    Blocked,  // "INV is running,please stop it first." while the drive runs
    Exempt,   // the state is read, and the row is written all the same
};

// The digits of a digit group: `count` digits of `base`, the first `fixed` of them held at 0.
struct DigitSpec {
    int base = 0;   // 2 or 8; 0 for rows that are no digit group
    int count = 0;  // 5 for every digit group of this drive
    int fixed = 0;
};

// The rows whose limits follow the model (ModelLimits.h) carry `modelLimits`; their shown text
// and their limits come from ModelRangeLimit. Of those only F11 has `shown`, `lower`, `upper`
// of its own: the range it keeps for a model the rated table doesn't list.
struct ParamSpec {
    int group;  // 0..13, 14 = simplified group
    int row;    // parameter number within the group
    RegFormat format;
    ControlKind control;
    WriteConversion write;
    GroupScaling groupScaling;
    const char* shown;  // range text beside the field (UTF-8); nullptr for none
    double lower;       // limits tested (for decimal and integer fields)
    double upper;
    bool modelLimits;       // limits by model: see ModelRangeLimit
    int optionList;         // index into OptionLists(), -1 for none
    ComboValue comboValue;
    DigitSpec digits;
    bool readOnly;
    RunTest runTest;
    int page;  // page template number, 0 for none
    int tab;   // tab of the page in its group's editor, -1 for none
    // Page 5784 tests its model-dependent rows 02-00, 02-01, 02-05 with a margin of 0.00001 at
    // the write button (0.000001 elsewhere).
    bool wideButtonMargin;

    int Decimals() const;  // of the read format: D1 1, D2 2, D3 3, else 0
    quint16 Register() const { return static_cast<quint16>(group * 256 + row); }
    QString Code() const;  // "00-11", "F27"
};

// ---- the table ------------------------------------------------------------------------------

// Every row, group 00 first and the simplified group last, rows in order.
std::span<const ParamSpec> ParamTable();
// The row of a parameter, nullptr for a register the table doesn't hold.
const ParamSpec* FindParam(int group, int row);
// By code: "00-11", "F27" (leading and trailing blanks ignored); nullptr when unknown.
const ParamSpec* FindParam(QStringView code);
// The code text of a group and row: "%02d-%02d", or "F%02d" for group 14.
QString ParamCode(int group, int row);

// ---- option lists ---------------------------------------------------------------------------

// The entries of one combo list (UTF-8, trailing blanks kept). Entry n is value n, but for the
// rows whose ComboValue says otherwise.
struct OptionList {
    const char* owner;  // code of the parameter the list is written for: "00-02"
    std::span<const char* const> entries;
};
std::span<const OptionList> OptionLists();
// The index in OptionLists() of the list a parameter offers, by its code ("00-03" gives the list
// written for 00-02); -1 for a code without a list.
int OptionListIndex(const char* code);
// The list of a row; empty entries for a row without one.
std::span<const char* const> OptionsOf(const ParamSpec& spec);
// The reset codes of 13-08 and F32, index 1.. gives "1150", "1160", "1250", "1260", "1350",
// "1360"; any other index "0000".
QString ResetCodeOfIndex(int index);
int IndexOfResetCode(QStringView code);  // the reverse; 0 for a text that is no code

// ---- register text --------------------------------------------------------------------------

// The one step from a number of decimals to its scale: 10^decimals.
double DecimalScale(int decimals);
int DecimalsOf(RegFormat format);

// Register value to display text.
QString FormatRegister(RegFormat format, quint16 value);
// Display text back to the register value, the inverse of FormatRegister for every text it
// produces: N, Z4, Z5 as a whole number; D1, D2 by the tool's write rule (text + 0.001) times ten
// to the decimals, cut; D3 the same with a nudge of 0.0001 (a 0.001 nudge would be a whole count);
// B5 base 2; O5 base 8; M the model code of the capacity text (0 when the text is none). Values
// outside 16 bits wrap as a 16-bit register would.
quint16 ParseRegisterText(RegFormat format, const QString& text);
// A scaled value as a register takes it: cut toward zero, then wrapped to 16 bits. Values beyond
// the int range saturate there before the wrap; non-finite values give 0.
quint16 CutToRegister(double scaled);

// Format of a row's register; N for a row the table doesn't hold.
RegFormat ReadFormatOf(int groupIndex, int row);
GroupScaling GroupScalingOf(int groupIndex, int row);
// The value a group write sends for the row's text.
quint16 GroupWriteValue(int groupIndex, int row, const QString& text);
// The value a group write compares with the drive's register in its order checks: the group
// write's product, cut, before the 16-bit wrap.
double GroupScaledValue(int groupIndex, int row, const QString& text);

// ---- validate and convert -------------------------------------------------------------------

enum class ConvertError {
    None,
    ReadOnly,     // the row can't be written ("The parameter read only!")
    NotANumber,   // the text is no number of the row's kind
    BeyondRange,  // outside the limits ("Beyond the range!")
    NoSuchEntry,  // a combo value outside its list
    BadDigits,    // a digit group text with a wrong digit, a wrong length or a fixed digit set
};

struct Converted {
    ConvertError error = ConvertError::None;
    QString text;        // the value as the project keeps it: "5" becomes "5.00" on a D2 field
    quint16 value = 0;   // the register the write button sends
    bool Ok() const { return error == ConvertError::None; }
};

// The limits of a field and the range text beside it. Fixed limits are doubles as the pages
// write them; model-dependent ones are the 32-bit floats of ModelLimits.h, widened.
struct ParamLimits {
    QString text;
    double lower = 0.0;
    double upper = 0.0;
};

// The limits a row is tested with for `modelCode` and `check`, with the range text shown. For a
// row without limits (combos, digit groups, read-only texts) nullopt.
std::optional<ParamLimits> LimitsOf(const ParamSpec& spec, int modelCode,
                                   LimitCheck check = LimitCheck::Page);

// The margin of the range test for the row and check: 0.000001, or 0.00001 at the button of the
// wide-margin rows.
double RangeMargin(const ParamSpec& spec, LimitCheck check);

// Checks a value text for the row as the editor's page does when it takes, checks and writes
// it (the keystroke filter aside): decimals by `lower - margin < v < upper + margin`, integers
// within their limits, a combo value within its list, digit groups digit by digit; read-only
// rows refuse. On success gives the project's text and the register the button sends.
Converted ConvertAndValidate(const ParamSpec& spec, const QString& text, int modelCode,
                             LimitCheck check = LimitCheck::Page);

// The register the write button sends for a text, without any check (WriteParameter).
quint16 ButtonWriteValue(const ParamSpec& spec, const QString& text);

// Register value to the text a read shows for the row.
QString RegisterToText(const ParamSpec& spec, quint16 value);

// The English words of an error for a message: "Beyond the range!", "The parameter read only!",
// ... (the texts the pages say where they have one).
QString ConvertErrorText(ConvertError error);

}  // namespace quillon
