#include "sim/FactoryImage.h"

#include "base/SessionState.h"
#include "params/M330Doc.h"
#include "params/ModelTable.h"

#include <QDir>
#include <array>
#include <stdexcept>

namespace quillon::sim {
namespace {

// How the drive keeps each parameter of a group, row by row from row 0, as the drive's register
// map documents it: '0' a whole number, '1' '2' '3' tenths, hundredths, thousandths, 'b' five
// bits written as binary digits, 'o' five octal digits, 'm' the model code. Rows past the end of
// a string are whole numbers. The drive keeps this list of its own, so a wrong number of
// decimals in the tool's parameter table shows as a difference instead of being copied here.
constexpr std::array<const char*, 15> kRegisterKinds{
    "000000002002221111211",            // 00
    "0121212121121001102",              // 01
    "1110111",                          // 02
    "000000200b000221122011",           // 03
    "",                                 // 04
    "022222222000000001111111111111111", // 05
    "022222220000000011111111",         // 06
    "0100012010010",                    // 07
    "b0001b00000201111110",             // 08
    "0000001",                          // 09
    "00102212001001000212100",          // 10
    "0000111122220012",                 // 11
    "o000001",                          // 12
    "m3",                               // 13
    "000002211011000022201002010b003",  // simplified group
};

char KindOf(int group, int row) {
    const char* kinds = kRegisterKinds[static_cast<std::size_t>(group)];
    for (int i = 0; kinds[i]; ++i)
        if (i == row) return kinds[i];
    return '0';
}

// Digits of `text` in `base` up to the first other character, as the drive's panel enters them.
std::uint16_t DigitsValue(const QString& text, int base) {
    unsigned value = 0;
    for (QChar c : text.trimmed()) {
        const int d = c.digitValue();
        if (d < 0 || d >= base) break;
        value = value * static_cast<unsigned>(base) + static_cast<unsigned>(d);
    }
    return static_cast<std::uint16_t>(value);
}

// A decimal text with `decimals` places as the whole count of its smallest unit, digit by digit:
// "12.3" with two places is 1230, "5" with one is 50; further places are cut.
std::uint16_t FixedPointValue(const QString& text, int decimals) {
    const QString t = text.trimmed();
    const qsizetype point = t.indexOf(u'.');
    QString digits = point < 0 ? t : t.left(point);
    QString fraction = point < 0 ? QString() : t.mid(point + 1);
    fraction = fraction.left(decimals).leftJustified(decimals, u'0');
    return DigitsValue(digits + fraction, 10);
}

std::uint16_t RegisterOf(char kind, const QString& text, int modelCode) {
    switch (kind) {
    case '1': return FixedPointValue(text, 1);
    case '2': return FixedPointValue(text, 2);
    case '3': return FixedPointValue(text, 3);
    case 'b': return DigitsValue(text, 2);
    case 'o': return DigitsValue(text, 8);
    case 'm': return static_cast<std::uint16_t>(modelCode);
    default: return DigitsValue(text, 10);
    }
}

}  // namespace

RegisterImage FactoryImage(int modelCode, int freqClass, const QString& dataDir)
{
    SessionState session;
    session.m_nModelCode = modelCode;
    QString capacity;
    session.m_strModelName = ModelNameFromCode(modelCode, capacity);
    session.m_nFreqClass = freqClass;
    session.m_strAppDir = QDir(dataDir).absolutePath() + QLatin1Char('/');

    RegisterImage image;
    try {
        CM330Doc doc(session);  // catalogue, rated values of the model in both columns
        doc.m_bApplyToSetValue = 1;
        doc.LoadInitialTable(session.m_strAppDir + QLatin1String(kInitialTableFile));
        const int groups = std::min<int>(static_cast<int>(kRegisterKinds.size()),
                                         static_cast<int>(doc.m_groups.size()));
        for (int g = 0; g < groups; ++g) {
            const auto& rows = doc.GroupAt(g).m_rows;
            for (int r = 0; r < static_cast<int>(rows.size()) && r < 256; ++r) {
                const ParamRow& row = rows[static_cast<std::size_t>(r)];
                if (!row.m_bExists) continue;  // a hole of the register map
                image.values[static_cast<std::uint16_t>(g * 256 + r)] =
                    RegisterOf(KindOf(g, r), row.m_strDefault, modelCode);
            }
        }
    } catch (const std::out_of_range&) {
        throw std::runtime_error("the catalogue " + (session.m_strAppDir + QLatin1String(kCatalogueFile)).toStdString() +
                                 " is missing or incomplete");
    }
    if (image.values.empty())
        throw std::runtime_error("the catalogue in " + session.m_strAppDir.toStdString() +
                                 " holds no parameters");
    return image;
}

}  // namespace quillon::sim
