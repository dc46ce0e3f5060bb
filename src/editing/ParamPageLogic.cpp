#include "editing/ParamPageLogic.h"

#include "base/Prompt.h"
#include "base/SessionState.h"
#include "base/TextConv.h"
#include "editing/CrossRules.h"
#include "link/Broadcast.h"
#include "link/DriveSerial.h"
#include "link/ModbusFrame.h"
#include "link/RegisterReaders.h"
#include "params/ParamNames.h"
#include "link/ReplyJudge.h"
#include "params/M330Doc.h"

#include <algorithm>
#include <cmath>

namespace quillon {
namespace {

constexpr quint16 kRunSourceRegister = 0x0002;

bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }

// The stored text of a digit group as its digits, left first: a missing digit reads as 0, and
// so does a fixed digit or one the base doesn't have.
QString SplitDigits(const QString& stored, const DigitSpec& d) {
    QString digits(d.count, u'0');
    for (int i = d.fixed; i < d.count && i < stored.size(); ++i)
        if (IsDigit(stored[i]) && stored[i].digitValue() < d.base) digits[i] = stored[i];
    return digits;
}

int ComboIndexOf(const ParamSpec& spec, const QString& stored) {
    switch (spec.comboValue) {
    case ComboValue::IndexPlusOne: return Atoi(stored) - 1;
    case ComboValue::ResetCode: return IndexOfResetCode(stored);
    case ComboValue::Index: break;
    }
    return Atoi(stored);
}

QString ComboText(const ParamSpec& spec, int index) {
    switch (spec.comboValue) {
    case ComboValue::IndexPlusOne: return QString::number(index + 1);
    case ComboValue::ResetCode: return ResetCodeOfIndex(index);
    case ComboValue::Index: break;
    }
    return QString::number(index);
}

}  // namespace

QString FilterDecimalText(const QString& before, const QString& after, double upper, int decimals) {
    for (qsizetype i = 0; i < after.size(); ++i) {
        if (after.startsWith(u'.') || after.count(u'.') > 1) return before;
        if (!IsDigit(after[i]) && after[i] != u'.') return before;
        if (Atof(after) > upper) return before;
    }
    const qsizetype point = after.indexOf(u'.');
    if (point >= 0 && after.size() - point - 1 > decimals) return after.left(after.size() - 1);
    return after;
}

QString FilterIntegerText(const QString& before, const QString& after, double lower, double upper) {
    if (after.isEmpty()) return after;
    bool ok = false;
    const int v = after.toInt(&ok);
    return ok && v >= lower && v <= upper ? after : before;
}

CParamPageLogic::CParamPageLogic(const PageSpec& page) : m_page(page) {
    for (int s = 0; s < kPageRows; ++s) {
        PageControl& c = m_controls[static_cast<std::size_t>(s)];
        c.row = page.RowAt(s);
        c.spec = c.row >= 0 ? FindParam(page.group, c.row) : nullptr;
    }
}

bool CParamPageLogic::HasCheckPage() const {
    return std::any_of(m_controls.begin(), m_controls.end(), [](const PageControl& c) {
        return c.spec && c.spec->control == ControlKind::DecimalEdit;
    });
}

bool CParamPageLogic::ReadsRunningState() const {
    return std::any_of(m_controls.begin(), m_controls.end(), [](const PageControl& c) {
        return c.spec && c.spec->runTest != RunTest::NotRead;
    });
}

void CParamPageLogic::OnInit(const CM330Doc& doc, int modelCode) {
    m_nModelCode = modelCode;
    for (PageControl& c : m_controls) {
        if (!c.spec) continue;
        const ParamRow& row = doc.RowAt(m_page.group, c.row);
        const ParamSpec& spec = *c.spec;
        c.label = ParamNameOf(row);
        const QString& value = row.m_strSetValue;
        switch (spec.control) {
        case ControlKind::Combo: c.index = ComboIndexOf(spec, value); break;
        case ControlKind::DecimalEdit: c.text = FormatFixed(Atof(value), spec.Decimals()); break;
        case ControlKind::IntegerEdit: c.text = QString::number(Atoi(value)); break;
        case ControlKind::DigitGroup: c.text = SplitDigits(value, spec.digits); break;
        case ControlKind::TextEdit:
            c.text = spec.format == RegFormat::Z5 ? QString::asprintf("%05d", Atoi(value)) : value;
            break;
        case ControlKind::None: break;
        }
        const auto limits = LimitsOf(spec, modelCode, LimitCheck::Page);
        c.range = limits ? limits->text : spec.shown ? QString::fromUtf8(spec.shown) : QString();
    }
}

QString CParamPageLogic::OnEditChange(int slot, const QString& before, const QString& after) const {
    const PageControl& c = m_controls.at(static_cast<std::size_t>(slot));
    if (!c.IsEdit()) return after;
    if (c.spec->control == ControlKind::IntegerEdit) {
        const auto limits = LimitsOf(*c.spec, m_nModelCode, LimitCheck::Page);
        return limits ? FilterIntegerText(before, after, limits->lower, limits->upper) : after;
    }
    const auto limits = LimitsOf(*c.spec, m_nModelCode, LimitCheck::EditFilter);
    return limits ? FilterDecimalText(before, after, limits->upper, c.spec->Decimals()) : after;
}

bool CParamPageLogic::Refuse(int slot, const QString& text) {
    if (slot >= 0 && onFocusField) onFocusField(slot);
    Prompt().Message(text);
    return false;
}

bool CParamPageLogic::TakeControls() {
    for (int s = 0; s < kPageRows; ++s) {
        const PageControl& c = m_controls[static_cast<std::size_t>(s)];
        if (!c.spec || c.spec->control != ControlKind::IntegerEdit) continue;
        const auto limits = LimitsOf(*c.spec, m_nModelCode, LimitCheck::Page);
        if (!limits) continue;
        bool ok = false;
        const int v = c.text.trimmed().toInt(&ok);
        if (!ok || v < limits->lower || v > limits->upper)
            return Refuse(s, QStringLiteral("Please enter an integer between %1 and %2.")
                                 .arg(limits->lower)
                                 .arg(limits->upper));
    }
    return true;
}

bool CParamPageLogic::WithinLimits(const PageControl& c, LimitCheck check) const {
    const auto limits = LimitsOf(*c.spec, m_nModelCode, check);
    if (!limits) return true;
    return WithinRange(Atof(c.text), limits->lower, limits->upper, RangeMargin(*c.spec, check));
}

bool CParamPageLogic::CheckPage() {
    for (int s = 0; s < kPageRows; ++s) {
        PageControl& c = m_controls[static_cast<std::size_t>(s)];
        if (!c.spec || c.spec->control != ControlKind::DecimalEdit) continue;
        if (!WithinLimits(c, LimitCheck::Page))
            return Refuse(s, QString::fromLatin1(PageText::kBeyondRange));
        c.text = FormatFixed(Atof(c.text), c.spec->Decimals());
    }
    return true;
}

QString CParamPageLogic::RowText(int slot) const {
    const PageControl& c = m_controls.at(static_cast<std::size_t>(slot));
    if (!c.spec) return {};
    switch (c.spec->control) {
    case ControlKind::Combo: return ComboText(*c.spec, c.index);
    case ControlKind::DecimalEdit: return FormatFixed(Atof(c.text), c.spec->Decimals());
    case ControlKind::IntegerEdit: return QString::number(Atoi(c.text));
    case ControlKind::DigitGroup:
    case ControlKind::TextEdit:
    case ControlKind::None: break;
    }
    return c.text;
}

void CParamPageLogic::SaveToDocument(CM330Doc& doc) {
    for (int s = 0; s < kPageRows; ++s) SaveRow(doc, s);
}

void CParamPageLogic::SaveRow(CM330Doc& doc, int slot) {
    const PageControl& c = m_controls.at(static_cast<std::size_t>(slot));
    if (!c.spec) return;
    ParamRow& row = doc.RowAt(m_page.group, c.row);
    const QString text = RowText(slot);
    const auto s = static_cast<std::size_t>(slot);
    const QString& reference = m_written[s] ? m_writtenValue[s] : row.m_strSetValue;
    doc.SetSetValue(m_page.group, c.row, text,
                    text != reference ? RowMark::Changed : RowMark::Keep);
}

QString CParamPageLogic::EnterValue(int slot, const QString& value) {
    PageControl& c = m_controls.at(static_cast<std::size_t>(slot));
    if (!c.spec) return QStringLiteral("no control");
    if (c.IsEdit() && OnEditChange(slot, c.text, value) != value) {
        const auto limits = LimitsOf(*c.spec, m_nModelCode, LimitCheck::EditFilter);
        return limits && Atof(value) > limits->upper
                   ? QString::fromLatin1(PageText::kBeyondRange)
                   : QStringLiteral("the field doesn't take \"%1\"").arg(value);
    }
    const Converted converted = ConvertAndValidate(*c.spec, value, m_nModelCode, LimitCheck::Page);
    // An entry beyond the list is out of range as much as a number beyond the limits.
    if (converted.error == ConvertError::NoSuchEntry) return QString::fromLatin1(PageText::kBeyondRange);
    if (!converted.Ok()) return ConvertErrorText(converted.error);
    if (c.spec->control == ControlKind::Combo)
        c.index = ComboIndexOf(*c.spec, converted.text);
    else
        c.text = converted.text;
    return {};
}

int CParamPageLogic::MarkedSlot() const {
    const int slot = m_selectedRow - 10 * m_page.tab;
    return slot >= 0 && slot < kPageRows ? slot : -1;
}

bool CParamPageLogic::OnWriteButton(int slot, PageContext& context) {
    const PageControl& c = m_controls.at(static_cast<std::size_t>(slot));
    if (!c.spec) return false;
    const ParamSpec& spec = *c.spec;
    const QString readOnly = QString::fromLatin1(PageText::kReadOnly);
    SessionState& session = context.session;

    if (spec.readOnly && m_page.readOnly == ReadOnlyTest::First) return Refuse(-1, readOnly);
    if (!session.m_bOnline || !context.link)
        return Refuse(-1, QString::fromLatin1(PageText::kNotConnected));
    if (!TakeControls()) return false;
    if (spec.readOnly) return Refuse(-1, readOnly);
    if (HasCheckPage() && !CheckPage()) return false;

    const std::optional<int> chosen =
        Prompt().ChooseStation(QString::fromLatin1(PageText::kStationSelect), session.m_stations);
    if (!chosen) return false;
    const int station = *chosen;
    CDriveSerial& link = *context.link;

    int locked = 0;
    if (!ReadPasswordState(link, station, locked)) return false;
    if (locked) return Refuse(-1, QString::fromLatin1(PageText::kLocked).arg(station));
    if (ReadsRunningState()) {
        int running = 0;
        if (!ReadRunStatus(link, station, running)) return false;
        if (running && spec.runTest == RunTest::Blocked)
            return Refuse(-1, QString::fromLatin1(PageText::kRunning));
    }
    if (m_page.readsRunSource) {
        QString runSource;
        if (!ReadParameterText(link, kRunSourceRegister, station, runSource)) return false;
        session.m_nReg0002 = Atoi(runSource);
    }
    if (m_page.readsVersion && !ReadVersion(link, station, context.driveVersion)) return false;

    const QString text = RowText(slot);
    if (spec.control == ControlKind::DecimalEdit && !WithinLimits(c, LimitCheck::Button))
        return Refuse(slot, QString::fromLatin1(PageText::kBeyondRange));
    const double scaled = std::trunc(Atof(text) * DecimalScale(spec.Decimals()));
    const PartnerReader read = [&](quint16 reg, int& value) {
        return ReadRegister(link, station, reg, value) != 0;
    };
    if (const RuleVerdict v =
            ButtonRules(m_page.group, c.row, text, scaled, session.m_nReg0002, read);
        !v.ok)
        return Refuse(-1, v.text);

    m_writtenValue[static_cast<std::size_t>(slot)] = text;
    if (!WriteParameter(slot, text, station, context)) return false;
    m_written[static_cast<std::size_t>(slot)] = 1;
    context.doc.MarkWritten(m_page.group, c.row);
    if (context.refreshList) context.refreshList();
    Prompt().Message(QString::fromLatin1(PageText::kWriteSuccessful), MessageKind::Information);
    return true;
}

bool CParamPageLogic::WriteParameter(int slot, const QString& text, int station,
                                     PageContext& context) {
    const PageControl& c = m_controls.at(static_cast<std::size_t>(slot));
    if (!c.spec || !context.link) return false;
    CDriveSerial& link = *context.link;
    const PartnerReader read = [&](quint16 reg, int& value) {
        return ReadRegister(link, station, reg, value) != 0;
    };
    if (const RuleVerdict v = InWriteRules(m_page.group, c.row, text, read); !v.ok)
        return Refuse(-1, v.text);

    const quint16 value = ButtonWriteValue(*c.spec, text);
    // Drives never answer a broadcast: it is sent, given its pause, and counts as done.
    if (station == kBroadcastStation) return BroadcastWriteSingle(link, c.spec->Register(), value);

    std::array<unsigned char, kRequestLength> tx{};
    BuildWriteSingleFrame(tx, station, c.spec->Register(), value);
    std::array<unsigned char, kWriteReplyLength> rx{};
    const ErrType result = link.SendFrame(tx.data(), tx.size(), rx.data(), rx.size());
    const ReplyVerdict verdict =
        JudgeReply(ReplyCaller::PageAccess, result, rx.data(), ModbusFn::WriteSingle, station);
    ShowVerdict(verdict);
    return verdict.ok;
}

}  // namespace quillon
