#include "params/ParamTable.h"

#include "base/TextConv.h"
#include "params/ModelTable.h"
#include "params/ParamRows.h"
#include "params/ParamTypes.h"

#include <QRegularExpression>
#include <algorithm>
#include <climits>
#include <cmath>
#include <utility>
#include <vector>

namespace quillon {
namespace {

using F = RegFormat;

const std::vector<ParamSpec>& Table() {
    static const std::vector<ParamSpec> table = BuildParamRows();
    return table;
}

constexpr const char* kResetCodes[] = {"0000", "1150", "1160", "1250", "1260", "1350", "1360"};

// A register holds 16 bits; larger or negative results wrap like the cast to a 16-bit word.
quint16 ToRegister(long long value) { return static_cast<quint16>(value & 0xFFFF); }

QString Digits(quint16 value, int bitsPerDigit) {
    QString text;
    const int mask = (1 << bitsPerDigit) - 1;
    for (int digit = 4; digit >= 0; --digit)
        text += QChar(u'0' + ((value >> (digit * bitsPerDigit)) & mask));
    return text;
}

bool IsWholeNumber(const QString& text) {
    static const QRegularExpression re(QStringLiteral("^\\s*[+-]?\\d+\\s*$"));
    return re.match(text).hasMatch();
}

bool IsDecimalNumber(const QString& text) {
    static const QRegularExpression re(QStringLiteral("^\\s*[+-]?(\\d+(\\.\\d*)?|\\.\\d+)\\s*$"));
    return re.match(text).hasMatch();
}

Converted Refused(ConvertError error) { return Converted{error, {}, 0}; }

Converted ConvertCombo(const ParamSpec& spec, const QString& text) {
    const int count = static_cast<int>(OptionsOf(spec).size());
    if (spec.comboValue == ComboValue::ResetCode) {
        const int index = IndexOfResetCode(text.trimmed());
        if (index >= count || ResetCodeOfIndex(index) != text.trimmed())
            return Refused(ConvertError::NoSuchEntry);
        const QString code = ResetCodeOfIndex(index);
        return Converted{ConvertError::None, code, ButtonWriteValue(spec, code)};
    }
    if (!IsWholeNumber(text)) return Refused(ConvertError::NotANumber);
    const int first = spec.comboValue == ComboValue::IndexPlusOne ? 1 : 0;
    const int value = Atoi(text.trimmed());
    if (value < first || value >= first + count) return Refused(ConvertError::NoSuchEntry);
    return Converted{ConvertError::None, QString::number(value), ToRegister(value)};
}

Converted ConvertDigits(const ParamSpec& spec, const QString& text) {
    const QString t = text.trimmed();
    if (t.size() != spec.digits.count) return Refused(ConvertError::BadDigits);
    for (int i = 0; i < t.size(); ++i) {
        const int d = t[i].digitValue();
        if (d < 0 || d >= spec.digits.base || (i < spec.digits.fixed && d != 0))
            return Refused(ConvertError::BadDigits);
    }
    return Converted{ConvertError::None, t, ButtonWriteValue(spec, t)};
}

}  // namespace

// ---- rows -----------------------------------------------------------------------------------

int ParamSpec::Decimals() const { return DecimalsOf(format); }
QString ParamSpec::Code() const { return ParamCode(group, row); }

std::span<const ParamSpec> ParamTable() { return Table(); }

const ParamSpec* FindParam(int group, int row) {
    const auto& table = Table();
    const auto it = std::lower_bound(
        table.begin(), table.end(), std::pair(group, row),
        [](const ParamSpec& s, std::pair<int, int> key) { return std::pair(s.group, s.row) < key; });
    return it != table.end() && it->group == group && it->row == row ? &*it : nullptr;
}

const ParamSpec* FindParam(QStringView code) {
    static const QRegularExpression re(QStringLiteral("^(?:(\\d\\d)-(\\d\\d)|F(\\d\\d))$"));
    const auto m = re.match(code.trimmed());
    if (!m.hasMatch()) return nullptr;
    if (m.hasCaptured(3)) return FindParam(kSimplifiedGroup, m.captured(3).toInt());
    return FindParam(m.captured(1).toInt(), m.captured(2).toInt());
}

QString ParamCode(int group, int row) {
    return group == kSimplifiedGroup ? QString::asprintf("F%02d", row)
                                     : QString::asprintf("%02d-%02d", group, row);
}

// ---- option lists ---------------------------------------------------------------------------

std::span<const char* const> OptionsOf(const ParamSpec& spec) {
    const auto lists = OptionLists();
    if (spec.optionList < 0 || spec.optionList >= static_cast<int>(lists.size())) return {};
    return lists[static_cast<std::size_t>(spec.optionList)].entries;
}

QString ResetCodeOfIndex(int index) {
    const int i = index >= 1 && index < static_cast<int>(std::size(kResetCodes)) ? index : 0;
    return QString::fromLatin1(kResetCodes[i]);
}

int IndexOfResetCode(QStringView code) {
    for (int i = 1; i < static_cast<int>(std::size(kResetCodes)); ++i)
        if (code == QLatin1String(kResetCodes[i])) return i;
    return 0;
}

// ---- register text --------------------------------------------------------------------------

double DecimalScale(int decimals) { return std::pow(10.0, decimals); }

int DecimalsOf(RegFormat format) {
    switch (format) {
    case F::D1: return 1;
    case F::D2: return 2;
    case F::D3: return 3;
    default: return 0;
    }
}

QString FormatRegister(RegFormat format, quint16 value) {
    switch (format) {
    case F::N: return QString::number(value);
    case F::D1:
    case F::D2:
    case F::D3: return FormatFixed(value / DecimalScale(DecimalsOf(format)), DecimalsOf(format));
    case F::Z4: return QString::asprintf("%04d", int(value));
    case F::Z5: return QString::asprintf("%05d", int(value));
    case F::B5: return Digits(value, 1);
    case F::O5: return Digits(value, 3);
    case F::M: {
        QString capacity;
        ModelNameFromCode(value, capacity);
        return capacity;
    }
    }
    return {};
}

quint16 ParseRegisterText(RegFormat format, const QString& text) {
    switch (format) {
    case F::N:
    case F::Z4:
    case F::Z5: return ToRegister(Atoi(text));
    case F::D1:
    case F::D2: return CutToRegister((Atof(text) + 0.001) * DecimalScale(DecimalsOf(format)));
    case F::D3: return CutToRegister((Atof(text) + 0.0001) * DecimalScale(3));
    case F::B5: return ToRegister(static_cast<long long>(Strtoul(text, 2) & 0xFFFF));
    case F::O5: return ToRegister(static_cast<long long>(Strtoul(text, 8) & 0xFFFF));
    case F::M: return ToRegister(std::max(CodeFromCapacity(text), 0));
    }
    return 0;
}

quint16 CutToRegister(double scaled) {
    if (!std::isfinite(scaled)) return 0;
    // Clamped first: casting a double outside the integer range is undefined.
    return ToRegister(static_cast<long long>(std::clamp(scaled, double(INT_MIN), double(INT_MAX))));
}

RegFormat ReadFormatOf(int groupIndex, int row) {
    const ParamSpec* spec = FindParam(groupIndex, row);
    return spec ? spec->format : F::N;
}

GroupScaling GroupScalingOf(int groupIndex, int row) {
    const ParamSpec* spec = FindParam(groupIndex, row);
    return spec ? spec->groupScaling : GroupScaling::Plain;
}

double GroupScaledValue(int groupIndex, int row, const QString& text) {
    const RegFormat format = ReadFormatOf(groupIndex, row);
    const double nudge = GroupScalingOf(groupIndex, row) == GroupScaling::Nudged ? 0.0001 : 0.0;
    return std::trunc(Atof(text) * DecimalScale(DecimalsOf(format)) + nudge);
}

quint16 GroupWriteValue(int groupIndex, int row, const QString& text) {
    if (GroupScalingOf(groupIndex, row) == GroupScaling::WholeTimesTen)
        return ToRegister(static_cast<long long>(Atoi(text)) * 10);
    const RegFormat format = ReadFormatOf(groupIndex, row);
    if (format == F::D1 || format == F::D2)
        return CutToRegister(GroupScaledValue(groupIndex, row, text));
    // Whole numbers, bit fields and octal digits convert as their read format says.
    return ParseRegisterText(format, text);
}

// ---- validate and convert -------------------------------------------------------------------

std::optional<ParamLimits> LimitsOf(const ParamSpec& spec, int modelCode, LimitCheck check) {
    if (spec.modelLimits) {
        if (const auto limit = ModelRangeLimit(spec.group, spec.row, modelCode, check))
            return ParamLimits{limit->text, limit->lower, limit->upper};
    }
    if (!spec.shown || spec.control == ControlKind::Combo || spec.control == ControlKind::DigitGroup)
        return std::nullopt;
    return ParamLimits{QString::fromUtf8(spec.shown), spec.lower, spec.upper};
}

double RangeMargin(const ParamSpec& spec, LimitCheck check) {
    return spec.wideButtonMargin && check == LimitCheck::Button ? 0.00001 : kRangeMargin;
}

quint16 ButtonWriteValue(const ParamSpec& spec, const QString& text) {
    const double scale = DecimalScale(spec.Decimals());
    switch (spec.write) {
    case WriteConversion::Decimal: return CutToRegister((Atof(text) + 0.001) * scale);
    case WriteConversion::DecimalFine: return CutToRegister((Atof(text) + 0.0001) * scale);
    case WriteConversion::Binary: return ToRegister(static_cast<long long>(Strtoul(text, 2) & 0xFFFF));
    case WriteConversion::Octal: return ToRegister(static_cast<long long>(Strtoul(text, 8) & 0xFFFF));
    case WriteConversion::Capacity: return ParseRegisterText(F::M, text);
    case WriteConversion::Whole:
    case WriteConversion::None: break;
    }
    return ToRegister(Atoi(text));
}

QString RegisterToText(const ParamSpec& spec, quint16 value) {
    return FormatRegister(spec.format, value);
}

Converted ConvertAndValidate(const ParamSpec& spec, const QString& text, int modelCode,
                             LimitCheck check) {
    if (spec.readOnly) return Refused(ConvertError::ReadOnly);
    switch (spec.control) {
    case ControlKind::Combo: return ConvertCombo(spec, text);
    case ControlKind::DigitGroup: return ConvertDigits(spec, text);
    case ControlKind::IntegerEdit: {
        if (!IsWholeNumber(text)) return Refused(ConvertError::NotANumber);
        const int value = Atoi(text.trimmed());
        const auto limits = LimitsOf(spec, modelCode, check);
        if (limits && (value < limits->lower || value > limits->upper))
            return Refused(ConvertError::BeyondRange);
        return Converted{ConvertError::None, QString::number(value), ToRegister(value)};
    }
    case ControlKind::DecimalEdit: {
        if (!IsDecimalNumber(text)) return Refused(ConvertError::NotANumber);
        const double value = Atof(text.trimmed());
        const auto limits = LimitsOf(spec, modelCode, check);
        if (limits && !WithinRange(value, limits->lower, limits->upper, RangeMargin(spec, check)))
            return Refused(ConvertError::BeyondRange);
        // The project keeps the value in the field's format, and the write sends that text.
        const QString shown = FormatFixed(value, spec.Decimals());
        return Converted{ConvertError::None, shown, ButtonWriteValue(spec, shown)};
    }
    case ControlKind::TextEdit:
    case ControlKind::None: break;
    }
    // No page checks this row: any text of its register format, as the register would read it.
    if (!IsDecimalNumber(text) && spec.format != F::M) return Refused(ConvertError::NotANumber);
    const quint16 value = ParseRegisterText(spec.format, text.trimmed());
    return Converted{ConvertError::None, FormatRegister(spec.format, value), value};
}

QString ConvertErrorText(ConvertError error) {
    switch (error) {
    case ConvertError::None: return {};
    case ConvertError::ReadOnly: return QStringLiteral("The parameter read only!");
    case ConvertError::BeyondRange: return QStringLiteral("Beyond the range!");
    case ConvertError::NotANumber: return QStringLiteral("The value is not a number of this parameter.");
    case ConvertError::NoSuchEntry: return QStringLiteral("The value is not an entry of this parameter's list.");
    case ConvertError::BadDigits: return QStringLiteral("The value is not a digit string of this parameter.");
    }
    return {};
}

}  // namespace quillon
