#include "editing/CrossRules.h"

#include "base/TextConv.h"
#include "base/TextTable.h"

#include <array>

namespace quillon {
namespace {

using K = RuleKind;
using B = ButtonTest;
using G = GroupTest;

constexpr const char* kSame = "The value of parameter %s and %s can't be the same!";
constexpr const char* kSame0506 = "The value of parameter 00-05 and 00-06 can't be same!";
// Written without the blank before "can't", as the drive tool always has.
constexpr const char* kSame1001 = "The value of parameter 10-00 and 10-01can't be same!";
constexpr const char* kFree = "when 01-00=7,the parameter can be writed into inverter!";
constexpr const char* k0406 = "when 01-04>=01-06,the parameter can be writed into inverter!";
constexpr const char* k0507 = "when 01-05>=01-07,the parameter can be writed into inverter!";
constexpr const char* k040608 = "when 01-04>=01-06>=01-08,the parameter can be writed into inverter!";
constexpr const char* k050709 = "when 01-05>=01-07>=01-09,the parameter can be writed into inverter!";
constexpr const char* k0608 = "when 01-06>=01-08,the parameter can be writed into inverter!";
constexpr const char* k0709 = "when 01-07>=01-09,the parameter can be writed into inverter!";
constexpr const char* k0201 = "The value of 02-00 must be less than the value of 02-01!";
constexpr int kFreeCurve = 7;

constexpr CrossRule Free(int row) {
    return {1, row, K::FreeVfCurve, 0, false, -1, B::Drive, G::LeftOut, kFree, nullptr, nullptr};
}
constexpr CrossRule Order(int group, int row, int upper, bool strict, int lower, const char* text,
                          const char* groupText) {
    return {group, row, K::Order, upper, strict, lower, B::Drive, G::Drive, text, nullptr, groupText};
}

constexpr std::array kRules{
    CrossRule{0, 1, K::RunSourceZero, -1, false, -1, B::Reg0002, G::None, nullptr, nullptr, nullptr},
    // The button only makes sure the partner can be read; the group write compares the list.
    CrossRule{0, 2, K::Differ, 3, false, -1, B::ReadPartner, G::ListTexts, nullptr, nullptr, kSame},
    CrossRule{0, 3, K::Differ, 2, false, -1, B::ReadPartner, G::None, nullptr, nullptr, nullptr},
    CrossRule{0, 5, K::Differ, 6, false, -1, B::DriveAndInWrite, G::ListTexts, kSame, kSame0506,
              kSame0506},
    CrossRule{0, 6, K::Differ, 5, false, -1, B::DriveAndInWrite, G::None, kSame, kSame0506, nullptr},
    // The curve points only count on the free V/f curve; the button says so before the order
    // of the points is looked at.
    Free(2), Free(3), Free(4), Free(5), Free(6), Free(7), Free(8), Free(9),
    Order(1, 4, -1, false, 6, k0406, k0406),
    Order(1, 5, -1, false, 7, k0507, k0507),
    Order(1, 6, 4, false, 8, k040608, k040608),
    Order(1, 7, 5, false, 9, k050709, k050709),
    Order(1, 8, 6, false, -1, k0608, k0608),
    // The group write's words for the last point name 01-05 and 01-07.
    Order(1, 9, 7, false, -1, k0709, k0507),
    Order(2, 0, 1, true, -1, k0201, k0201),
    Order(2, 1, -1, false, 0, k0201, k0201),
    CrossRule{10, 0, K::Differ, 1, false, -1, B::InWrite, G::ListTexts, nullptr, kSame1001, kSame1001},
    CrossRule{10, 1, K::Differ, 0, false, -1, B::InWrite, G::None, nullptr, kSame1001, nullptr},
};

QString Code(int group, int row) { return QString::asprintf("%02d-%02d", group, row); }

// The rule's text with its "%s" filled by the row's code and the partner's.
QString Words(const CrossRule& rule, const char* text) {
    QString out = QString::fromUtf8(text);
    const QString codes[] = {Code(rule.group, rule.row), Code(rule.group, rule.upper)};
    for (const QString& code : codes) {
        const qsizetype at = out.indexOf(QLatin1String("%s"));
        if (at < 0) break;
        out.replace(at, 2, code);
    }
    return out;
}

RuleVerdict Refuse(QString text) { return {false, std::move(text)}; }
RuleVerdict CommError() { return Refuse(QStringLiteral("Communication error!")); }

// The order test against the drive: reads the partners the rule names.
RuleVerdict DriveOrder(const CrossRule& rule, double value, const PartnerReader& read,
                       const char* text) {
    int upper = 0;
    int lower = 0;
    if (rule.upper >= 0 && !read(RuleRegister(rule.group, rule.upper), upper)) return CommError();
    if (rule.lower >= 0 && !read(RuleRegister(rule.group, rule.lower), lower)) return CommError();
    const bool above = rule.upper >= 0 && (rule.upperStrict ? value >= upper : value > upper);
    const bool below = rule.lower >= 0 && value < lower;
    return above || below ? Refuse(Words(rule, text)) : RuleVerdict{};
}

template <typename F>
RuleVerdict ForRules(int group, int row, F&& test) {
    for (const CrossRule& rule : kRules) {
        if (rule.group != group || rule.row != row) continue;
        if (RuleVerdict v = test(rule); !v.ok) return v;
    }
    return {};
}

const QString& RowText(std::span<const QString> rows, int row) {
    static const QString kEmpty;
    return row >= 0 && static_cast<std::size_t>(row) < rows.size()
               ? rows[static_cast<std::size_t>(row)]
               : kEmpty;
}

}  // namespace

std::span<const CrossRule> CrossRules() { return kRules; }

RuleVerdict ButtonRules(int group, int row, const QString&, double scaled, int reg0002,
                        const PartnerReader& read) {
    return ForRules(group, row, [&](const CrossRule& rule) -> RuleVerdict {
        int partner = 0;
        switch (rule.button) {
        case B::Reg0002:
            return reg0002 != 0 ? Refuse(LoadText(TextId::RunSourceNotZero)) : RuleVerdict{};
        case B::ReadPartner:
            return read(RuleRegister(rule.group, rule.upper), partner) ? RuleVerdict{} : CommError();
        case B::Drive:
        case B::DriveAndInWrite:
            if (rule.kind == K::Order) return DriveOrder(rule, scaled, read, rule.buttonText);
            if (!read(RuleRegister(rule.group, rule.upper), partner)) return CommError();
            if (rule.kind == K::FreeVfCurve)
                return partner != kFreeCurve ? Refuse(Words(rule, rule.buttonText)) : RuleVerdict{};
            return partner == static_cast<int>(scaled) ? Refuse(Words(rule, rule.buttonText))
                                                       : RuleVerdict{};
        case B::None:
        case B::InWrite:
            return {};
        }
        return {};
    });
}

RuleVerdict InWriteRules(int group, int row, const QString& text, const PartnerReader& read) {
    return ForRules(group, row, [&](const CrossRule& rule) -> RuleVerdict {
        if (rule.button != B::InWrite && rule.button != B::DriveAndInWrite) return {};
        int partner = 0;
        if (!read(RuleRegister(rule.group, rule.upper), partner)) return CommError();
        return QString::number(partner) == text ? Refuse(Words(rule, rule.inWriteText))
                                                : RuleVerdict{};
    });
}

RuleVerdict ListRules(int group, std::span<const QString> rows) {
    for (const CrossRule& rule : kRules) {
        if (rule.group != group || rule.groupTest != G::ListTexts) continue;
        if (RowText(rows, rule.row) == RowText(rows, rule.upper))
            return Refuse(Words(rule, rule.groupText));
    }
    return {};
}

RuleVerdict DriveRulesBeforeFrame(int group, int row, double scaled, const PartnerReader& read) {
    return ForRules(group, row, [&](const CrossRule& rule) -> RuleVerdict {
        if (rule.groupTest != G::Drive) return {};
        return DriveOrder(rule, scaled, read, rule.groupText);
    });
}

bool LeftOutOfGroupWrite(int group, int row, std::span<const QString> rows) {
    for (const CrossRule& rule : kRules)
        if (rule.group == group && rule.row == row && rule.groupTest == G::LeftOut &&
            Atoi(RowText(rows, rule.upper)) != kFreeCurve)
            return true;
    return false;
}

}  // namespace quillon
