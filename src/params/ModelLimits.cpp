#include "params/ModelLimits.h"

#include "base/TextConv.h"

#include <array>

namespace quillon {
namespace {

constexpr int kClass100 = 100;
constexpr int kClass400 = 400;
constexpr int kCodeBelowClass400 = 400;
constexpr int kClass100Exception = 1205;

// A range text gives its limits as its two numbers: "0.0~3.7" is 0.0 to 3.7.
RangeLimit FromText(const char* text) {
    const QString t = QString::fromLatin1(text);
    const qsizetype tilde = t.indexOf(u'~');
    return RangeLimit{t, static_cast<float>(Atof(QStringView(t).left(tilde))),
                      static_cast<float>(Atof(QStringView(t).mid(tilde + 1)))};
}

RangeLimit Limit(const char* text, float lower, float upper) {
    return RangeLimit{QString::fromLatin1(text), lower, upper};
}

// Rows that follow the voltage class.
struct ClassRow {
    int group;
    int row;
    const char* class100;
    const char* class400;
};
constexpr std::array kClassRows{
    ClassRow{1, 1, "170.0~264.0", "323.0~528.0"},  // maximum output voltage
    ClassRow{8, 4, "350.0~390.0", "700.0~780.0"},  // over-voltage stall level
    ClassRow{11, 14, "300.0~400.0", "600.0~800.0"},
};
// The write button of 11-14 tests the class-100 range whatever the model.
constexpr float kRow1114ButtonLower = 300.0f;
constexpr float kRow1114ButtonUpper = 400.0f;

// Rated data of the motor page, by model code; each text gives its limits.
struct RatedRow {
    int code;
    const char* row0200;
    const char* row0201;
    const char* row0204;
    const char* row0205;
};
constexpr std::array kRatedRows{
    RatedRow{1205, "0.0~3.7", "0.2~3.8", "170.0~264.0", "0.1~0.8"},
    RatedRow{201, "0.0~6.7", "0.3~6.8", "170.0~264.0", "0.1~1.6"},
    RatedRow{202, "0.0~12.1", "0.6~12.2", "170.0~264.0", "0.2~3.0"},
    RatedRow{203, "0.0~17.3", "0.9~17.4", "170.0~264.0", "0.2~4.4"},
    RatedRow{401, "0.0~3.1", "0.2~3.2", "323.0~528.0", "0.1~1.6"},
    RatedRow{402, "0.0~5.9", "0.3~6.0", "323.0~528.0", "0.2~3.0"},
    RatedRow{403, "0.0~8.5", "0.4~8.6", "323.0~528.0", "0.2~4.4"},
    RatedRow{405, "0~13.5", "0.7~13.6", "323.0~528.0", "0.4~7.4"},
};

const RatedRow* FindRated(int code) {
    for (const RatedRow& r : kRatedRows)
        if (r.code == code) return &r;
    return nullptr;
}

bool InRange(int code, int first, int last) { return code >= first && code <= last; }

// 03-20 and 03-21: the codes 401 to 405 have the 400 V brake levels.
const char* const kBrakeHigh = "500.0~800.0";
const char* const kBrakeLow = "240.0~400.0";

std::optional<RangeLimit> RatedLimit(int row, int code) {
    const RatedRow* rated = FindRated(code);
    switch (row) {
    case 0:
        return rated ? FromText(rated->row0200) : Limit("0.0~6553.5", 0.0f, 2.5f);
    case 1:
        return rated ? FromText(rated->row0201) : Limit("0.1~6553.5", 0.2f, 2.6f);
    case 4:
        if (rated) return FromText(rated->row0204);
        // 404 has no row of its own but lies in the 400 V range.
        return FromText(InRange(code, 401, 405) ? "323.0~528.0" : "170.0~264.0");
    case 5:
        return rated ? FromText(rated->row0205) : Limit("0.0~22.0", 0.1f, 0.8f);
    default:
        return std::nullopt;
    }
}

}  // namespace

int VoltageClass(int modelCode) {
    if (modelCode == kClass100Exception) return kClass100;
    return modelCode < kCodeBelowClass400 ? kClass100 : kClass400;
}

std::optional<RangeLimit> ModelRangeLimit(int group, int row, int modelCode, LimitCheck check) {
    for (const ClassRow& c : kClassRows) {
        if (c.group != group || c.row != row) continue;
        RangeLimit limit = FromText(VoltageClass(modelCode) == kClass100 ? c.class100 : c.class400);
        if (group == 11 && check == LimitCheck::Button) {
            limit.lower = kRow1114ButtonLower;
            limit.upper = kRow1114ButtonUpper;
        }
        return limit;
    }
    if (group == 3 && (row == 20 || row == 21)) {
        RangeLimit limit = FromText(InRange(modelCode, 401, 405) ? kBrakeHigh : kBrakeLow);
        // The page check of 03-21 reaches up to 415; its text and its button stop at 405.
        if (row == 21 && check != LimitCheck::Button) {
            const RangeLimit checked =
                FromText(InRange(modelCode, 401, 415) ? kBrakeHigh : kBrakeLow);
            limit.lower = checked.lower;
            limit.upper = checked.upper;
        }
        return limit;
    }
    if (group == 2) return RatedLimit(row, modelCode);
    if (group == 14 && row == 11) {
        // F11 is the rated current 02-01 of the simplified group.
        if (!FindRated(modelCode)) return std::nullopt;
        return RatedLimit(1, modelCode);
    }
    return std::nullopt;
}

bool WithinRange(double value, double lower, double upper, double margin) {
    return lower - margin < value && value < upper + margin;
}

}  // namespace quillon
