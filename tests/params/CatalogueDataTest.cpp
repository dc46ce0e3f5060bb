// Consistency of the data files shipped beside the program (PARAM.DAT, IntialParam.DAT,
// R770MOTORPARAM.DAT, R770.SPE) with the register layout, the parameter pages and each other.
// The files are loaded through the real readers, from the copies beside the test executable.

#include "base/SessionState.h"
#include "base/TextConv.h"
#include "base/TextTable.h"
#include "params/M330Doc.h"
#include "params/ModelSpec.h"
#include "params/ModelTable.h"
#include "params/ParamTable.h"
#include "support/TestDirs.h"
#include "transfer/ReadLayout.h"
#include "transfer/WriteLayout.h"

#include <QFile>
#include <QStringDecoder>
#include <QStringList>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace quillon {
namespace {

using RowKey = std::pair<int, int>;  // group index, row number

std::string Str(const QString& s) { return s.toStdString(); }

QString CodeOf(RowKey key) {
    return key.first == kSimplifiedGroup ? QString::asprintf("F%02d", key.second)
                                         : QString::asprintf("%02d-%02d", key.first, key.second);
}

RowKey KeyOf(const QString& code) {
    if (code.startsWith(u'F')) return {kSimplifiedGroup, code.mid(1, 2).toInt()};
    return {code.left(2).toInt(), code.mid(3, 2).toInt()};
}

// ---- the initial table: which record goes to which row, and each model's column -------------

enum class ColumnSet { A, B };
struct InitTarget {
    RowKey key;
    ColumnSet set;
};
const std::array<std::optional<InitTarget>, 22> kInitTargets{{
    InitTarget{{1, 1}, ColumnSet::A},  InitTarget{{1, 5}, ColumnSet::A},
    InitTarget{{1, 7}, ColumnSet::A},  InitTarget{{1, 9}, ColumnSet::A},
    InitTarget{{2, 0}, ColumnSet::A},  InitTarget{{2, 1}, ColumnSet::A},
    InitTarget{{2, 4}, ColumnSet::A},  InitTarget{{8, 4}, ColumnSet::A},
    InitTarget{{11, 14}, ColumnSet::A}, InitTarget{{1, 14}, ColumnSet::A},
    InitTarget{{2, 5}, ColumnSet::A},  std::nullopt, std::nullopt, std::nullopt, std::nullopt,
    InitTarget{{3, 20}, ColumnSet::A}, InitTarget{{3, 21}, ColumnSet::A},
    InitTarget{{7, 7}, ColumnSet::A},  InitTarget{{8, 1}, ColumnSet::B},
    InitTarget{{8, 2}, ColumnSet::B},  InitTarget{{8, 3}, ColumnSet::B},
    InitTarget{{kSimplifiedGroup, 11}, ColumnSet::A},
}};

struct ModelColumns {
    int model;
    int a;
    int b;
};
constexpr std::array<ModelColumns, 8> kModelColumns{{
    {1205, 15, 4}, {201, 17, 6}, {202, 18, 7}, {203, 19, 8},
    {401, 23, 12}, {402, 24, 13}, {403, 25, 14}, {405, 26, 15},
}};

int ColumnOf(const ModelColumns& m, ColumnSet set) { return set == ColumnSet::A ? m.a : m.b; }

// ---- documents over the real files ----------------------------------------------------------

QString DataFile(const char* name) { return test::DataDir() + QLatin1String(name); }

// A document as the program builds one for `model` and `freqClass`; the session outlives it.
struct LoadedDoc {
    explicit LoadedDoc(int model, int freqClass = 0) {
        session.m_strAppDir = test::DataDir();
        session.m_nModelCode = model;
        QString capacity;
        session.m_strModelName = ModelNameFromCode(model, capacity);
        session.m_nFreqClass = freqClass;
        doc = std::make_unique<CM330Doc>(session);
    }
    // A new project: the initial table's values in both columns.
    void ApplyInitialTable() {
        doc->m_bApplyToSetValue = 1;
        doc->LoadInitialTable(DataFile(kInitialTableFile));
    }
    // The catalogue as the file has it, without any overlay.
    void ReloadRawCatalogue() { doc->LoadCatalogue(doc->CataloguePath()); }
    const ParamRow& Row(RowKey k) const { return doc->RowAt(k.first, k.second); }

    SessionState session;
    std::unique_ptr<CM330Doc> doc;
};

std::set<RowKey> ExistingRows(const CM330Doc& doc) {
    std::set<RowKey> keys;
    for (int g = 0; g < static_cast<int>(doc.m_groups.size()); ++g)
        for (int r = 0; r < static_cast<int>(doc.GroupAt(g).m_rows.size()); ++r)
            if (doc.RowAt(g, r).m_bExists) keys.insert({g, r});
    return keys;
}

// Every row some part of the program addresses by number.
std::set<RowKey> AddressedRows() {
    std::set<RowKey> keys;
    for (const ParamSpec& p : ParamTable())
        if (p.page != 0) keys.insert({p.group, p.row});
    for (const RegisterFrame& f : ReadFrames())
        for (int r = f.FirstRow(); r <= f.LastRow(); ++r) keys.insert({f.group, r});
    for (const WriteFrame& f : WriteFrames())
        for (int r = f.frame.FirstRow(); r <= f.frame.LastRow(); ++r)
            keys.insert({f.frame.group, r});
    return keys;
}

// The default, and the set value where it differs.
QStringList ValuesOf(const ParamRow& row) {
    QStringList values{row.m_strDefault};
    if (row.m_strSetValue != row.m_strDefault) values << row.m_strSetValue;
    return values;
}

// Both value columns of every row hold the text a drive's register reads as.
void ExpectCanonicalTexts(const CM330Doc& doc, const char* what) {
    for (const RowKey& k : ExistingRows(doc)) {
        const ParamRow& row = doc.RowAt(k.first, k.second);
        const RegFormat format = ReadFormatOf(k.first, k.second);
        for (const QString& text : ValuesOf(row))
            EXPECT_EQ(Str(FormatRegister(format, ParseRegisterText(format, text))), Str(text))
                << what << ": " << Str(CodeOf(k));
    }
}

// Both value columns of every row a page shows are values the page accepts for `model`, spelled
// as the page would store them. Read-only rows are held to the limits their page shows.
void ExpectWithinPages(const CM330Doc& doc, int model, const char* what) {
    for (ParamSpec p : ParamTable()) {
        if (p.control == ControlKind::None || p.control == ControlKind::TextEdit) continue;
        p.readOnly = false;
        const ParamRow& row = doc.RowAt(p.group, p.row);
        for (const QString& text : ValuesOf(row)) {
            const Converted c = ConvertAndValidate(p, text, model);
            EXPECT_TRUE(c.Ok() && c.text == text)
                << what << " model " << model << ": " << Str(p.Code()) << " '" << Str(text)
                << "' " << Str(ConvertErrorText(c.error));
        }
    }
}

// The relations the drive and the group write insist on hold for the factory values, so that a
// factory set can be written back as it stands.
void ExpectDriveRulesHold(const CM330Doc& doc, const char* what) {
    auto text = [&](int g, int r) { return Str(doc.RowAt(g, r).m_strDefault); };
    auto num = [&](int g, int r) { return Atof(doc.RowAt(g, r).m_strDefault); };
    EXPECT_NE(text(0, 2), text(0, 3)) << what;
    EXPECT_NE(text(0, 5), text(0, 6)) << what;
    EXPECT_NE(text(10, 0), text(10, 1)) << what;
    EXPECT_GE(num(1, 4), num(1, 6)) << what;
    EXPECT_GE(num(1, 6), num(1, 8)) << what;
    EXPECT_GE(num(1, 5), num(1, 7)) << what;
    EXPECT_GE(num(1, 7), num(1, 9)) << what;
    EXPECT_LT(num(2, 0), num(2, 1)) << what;
    EXPECT_LE(num(0, 13), num(0, 12)) << what;  // lower and upper frequency limit
    EXPECT_LE(num(kSimplifiedGroup, 6), num(kSimplifiedGroup, 5)) << what;
}

// ---- the tests ------------------------------------------------------------------------------

TEST(CatalogueData, FilesAreUtf8TextWithLineFeeds) {
    for (const char* name : {kCatalogueFile, kInitialTableFile, kMotorListFile, "R770.SPE"}) {
        QFile file(DataFile(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << name;
        const QByteArray bytes = file.readAll();
        ASSERT_FALSE(bytes.isEmpty()) << name;
        EXPECT_FALSE(bytes.contains('\r')) << name;
        EXPECT_TRUE(bytes.endsWith('\n')) << name;  // readers drop a line's last character
        EXPECT_FALSE(bytes.contains("\n\n")) << name;
        QStringDecoder utf8(QStringDecoder::Utf8);
        const QString text = utf8.decode(bytes);
        EXPECT_FALSE(utf8.hasError()) << name;
        EXPECT_FALSE(text.isEmpty()) << name;
    }
}

TEST(CatalogueData, FifteenGroupsInOrderWithNamedRows) {
    LoadedDoc d(kDefaultModelCode);
    d.ReloadRawCatalogue();
    const CM330Doc& doc = *d.doc;
    ASSERT_EQ(doc.m_groups.size(), 15u);
    EXPECT_EQ(Str(doc.GroupAt(0).m_strName), "群组 00: 基本功能");
    for (int g = 1; g < 14; ++g) {
        const QString prefix = QString::asprintf("%02d: ", g).prepend(QStringLiteral("群组 "));
        const QString& name = doc.GroupAt(g).m_strName;
        EXPECT_TRUE(name.startsWith(prefix) && name.size() > prefix.size()) << Str(name);
    }
    EXPECT_EQ(Str(doc.GroupAt(kSimplifiedGroup).m_strName), "简易参数群组");
    // the project tree and the menu name the groups from the text table: the same words
    for (int g = 0; g < 14; ++g)
        EXPECT_EQ(Str(doc.GroupAt(g).m_strName), Str(LoadText(TextId::GroupName00 + g))) << g;
    EXPECT_EQ(Str(doc.GroupAt(kSimplifiedGroup).m_strName),
              Str(LoadText(TextId::SimplifiedGroupName)));

    for (int g = 0; g < kGroupCount; ++g) {
        const auto& rows = doc.GroupAt(g).m_rows;
        EXPECT_LE(rows.size(), static_cast<size_t>(kRowsPerGroup));
        for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
            const ParamRow& row = rows[r];
            const QString code = CodeOf({g, r});
            // the index of a row is its number, and the code carries it
            EXPECT_TRUE(row.m_strCode.startsWith(code)) << Str(code) << " " << Str(row.m_strCode);
            EXPECT_EQ(doc.m_rowExists[g][r], row.m_bExists) << Str(code);
            if (!row.m_bExists) {
                EXPECT_EQ(Str(row.m_strDefault), "0") << Str(code);
                continue;
            }
            // the code padded with blanks to the seventh character, where the list text that
            // compare, print and export show begins
            EXPECT_EQ(row.m_strCode.mid(code.size(), kListTextColumn - code.size()).trimmed(), "")
                << Str(row.m_strCode);
            EXPECT_FALSE(ListText(row).isEmpty() || ListText(row).front().isSpace())
                << Str(row.m_strCode);
            EXPECT_FALSE(row.m_strName.trimmed().isEmpty()) << Str(code);
            // texts travel unquoted through comma-separated exports
            EXPECT_FALSE(row.m_strCode.contains(u',') || row.m_strName.contains(u',')) << Str(code);
        }
    }
}

TEST(CatalogueData, RowsExistExactlyWhereTheyAreAddressed) {
    LoadedDoc d(kDefaultModelCode);
    const std::set<RowKey> existing = ExistingRows(*d.doc);
    const std::set<RowKey> addressed = AddressedRows();
    for (const RowKey& k : addressed) {
        ASSERT_LT(k.first, static_cast<int>(d.doc->m_groups.size()));
        const auto& rows = d.doc->GroupAt(k.first).m_rows;
        EXPECT_TRUE(k.second < static_cast<int>(rows.size()) && rows[k.second].m_bExists)
            << Str(CodeOf(k)) << " is addressed but missing";
    }
    // gap rows only in the holes of the register map, and no row nothing uses
    for (const RowKey& k : existing)
        EXPECT_TRUE(addressed.count(k)) << Str(CodeOf(k)) << " exists but nothing addresses it";
}

TEST(CatalogueData, DefaultsAreTheTextsAFactoryFreshDriveReads) {
    LoadedDoc d(kDefaultModelCode);
    d.ReloadRawCatalogue();
    for (const RowKey& k : ExistingRows(*d.doc))
        EXPECT_EQ(Str(d.Row(k).m_strDefault), Str(d.Row(k).m_strSetValue)) << Str(CodeOf(k));
    ExpectCanonicalTexts(*d.doc, "catalogue");
}

TEST(CatalogueData, InitialTableHasTwentyTwoRecordsOfTwentySevenValues) {
    LoadedDoc d(kDefaultModelCode);
    d.ApplyInitialTable();
    const auto& table = d.doc->m_initTable;
    ASSERT_EQ(table.size(), kInitTargets.size());
    std::set<QString> keys;
    for (size_t i = 0; i < table.size(); ++i) {
        EXPECT_FALSE(table[i].m_strKey.isEmpty()) << i;
        EXPECT_TRUE(keys.insert(table[i].m_strKey).second)
            << "key twice: " << Str(table[i].m_strKey);
        ASSERT_EQ(table[i].m_values.size(), 27u) << Str(table[i].m_strKey);
        for (size_t c = 0; c < 27; ++c)
            EXPECT_FALSE(table[i].m_values[c].isEmpty()) << i << "/" << c;
        // every column, used or not, is spelled in the target row's format
        if (const auto& t = kInitTargets[i]) {
            const RegFormat format = ReadFormatOf(t->key.first, t->key.second);
            for (const QString& v : table[i].m_values)
                EXPECT_EQ(Str(FormatRegister(format, ParseRegisterText(format, v))), Str(v))
                    << Str(table[i].m_strKey) << " for " << Str(CodeOf(t->key));
        }
    }
}

// The rated rows of a new project and their texts at 50 and 60 Hz; 02-03 goes by model.
struct RatedRow {
    RowKey key;
    const char* hz50;
    const char* hz60;
};
constexpr std::array<RatedRow, 9> kRatedRows{{
    {{0, 11}, "50.00", "60.00"}, {{0, 12}, "50.00", "60.00"}, {{1, 0}, "1", "4"},
    {{1, 2}, "50.00", "60.00"},  {{1, 4}, "2.50", "3.00"},    {{1, 6}, "2.50", "3.00"},
    {{1, 8}, "1.30", "1.50"},    {{2, 6}, "50.0", "60.0"},    {{12, 3}, "1500", "1800"},
}};
std::pair<const char*, const char*> RatedSpeed(int model) {
    switch (model) {
    case 202: case 402: return {"1430", "1715"};
    case 203: case 403: return {"1455", "1735"};
    case 405: return {"1445", "1745"};
    default: return {"1430", "1710"};  // 1205, 201, 401
    }
}

// Every model-dependent row of a new project, in both columns, at both frequencies: the rated
// texts of its class, its model's column of the initial table, its capacity code.
TEST(CatalogueData, NewProjectOfEachModelAndFrequencyHasItsRatedAndInitialValues) {
    for (const ModelColumns& m : kModelColumns)
        for (int freqClass : {0, 1}) {
            SCOPED_TRACE(testing::Message() << m.model << (freqClass ? " at 60 Hz" : " at 50 Hz"));
            LoadedDoc d(m.model, freqClass);
            d.ApplyInitialTable();
            const auto expect = [&](RowKey k, const QString& value) {
                EXPECT_EQ(Str(d.Row(k).m_strDefault), Str(value)) << Str(CodeOf(k));
                EXPECT_EQ(Str(d.Row(k).m_strSetValue), Str(value)) << Str(CodeOf(k));
            };
            for (const RatedRow& r : kRatedRows)
                expect(r.key, QLatin1String(freqClass ? r.hz60 : r.hz50));
            const auto speed = RatedSpeed(m.model);
            expect({2, 3}, QLatin1String(freqClass ? speed.second : speed.first));
            expect({13, 0}, m.model == 1205 ? QStringLiteral("2P5") : QString::number(m.model));
            const auto& table = d.doc->m_initTable;
            ASSERT_EQ(table.size(), kInitTargets.size());
            for (size_t i = 0; i < kInitTargets.size(); ++i)
                if (const auto& t = kInitTargets[i]) expect(t->key, table[i].m_values.at(ColumnOf(m, t->set)));
            ExpectCanonicalTexts(*d.doc, "new project");
            ExpectWithinPages(*d.doc, m.model, "new project");
            ExpectDriveRulesHold(*d.doc, "new project");
        }
}

TEST(CatalogueData, MotorListNamesTheMotorRowsOfAWrite) {
    LoadedDoc d(kDefaultModelCode);
    QStringList codes;
    for (const MotorParam& p : d.doc->m_motorList) {
        codes << p.m_strCode;
        const RowKey k = KeyOf(p.m_strCode);
        ASSERT_EQ(k.first, 2) << Str(p.m_strCode);
        EXPECT_EQ(Str(p.m_strName), Str(d.Row(k).m_strName)) << Str(p.m_strCode);
    }
    QStringList written;
    for (int r = 0; r < kRowsPerGroup; ++r)
        if (IsWrittenRow(2, r, WriteRoute::Command)) written << CodeOf({2, r});
    EXPECT_EQ(Str(codes.join(u' ')), Str(written.join(u' ')));
}

TEST(CatalogueData, ModelSpecDescribesEveryModelInTableOrder) {
    const ModelSpecList spec = ReadModelSpec(DataFile("R770.SPE"));
    QStringList expected;
    for (const ModelRow& m : ModelTable()) expected << QLatin1String(m.name);
    EXPECT_EQ(Str(spec.names.join(u' ')), Str(expected.join(u' ')));
    ASSERT_EQ(spec.descriptions.size(), expected.size());
    for (qsizetype i = 0; i < spec.descriptions.size(); ++i)
        EXPECT_GE(spec.descriptions[i].trimmed().size(), 5) << Str(expected[i]);
}

}  // namespace
}  // namespace quillon
