#include "params/M330Doc.h"

#include "base/DataFiles.h"
#include "base/Globals.h"
#include "base/Prompt.h"
#include "base/TextFile.h"
#include "base/TextTable.h"
#include "params/CatalogueReader.h"
#include "params/Overlays.h"

namespace quillon {

CM330Doc::CM330Doc(SessionState& session) : m_session(session) {
    LoadCatalogue(CataloguePath());
    LoadMotorList(MotorListPath());
    ApplyRatedDefaults(true);
    m_session.m_graphSettings.Reset();
    m_bApplyToSetValue = 1;
    m_session.m_bCompleteParams = 1;
}

void CM330Doc::OnNewDocument() { LoadInitialTable(InitialTablePath()); }

ParamGroup& CM330Doc::GroupAt(int g) { return CheckedAt(m_groups, g); }
const ParamGroup& CM330Doc::GroupAt(int g) const { return CheckedAt(m_groups, g); }
ParamRow& CM330Doc::RowAt(int group, int r) { return CheckedAt(GroupAt(group).m_rows, r); }
const ParamRow& CM330Doc::RowAt(int group, int r) const {
    return CheckedAt(GroupAt(group).m_rows, r);
}

void CM330Doc::SetMark(int group, int row, int mark) {
    CheckedAt(CheckedAt(m_rowChanged, group), row) = mark;
}

void CM330Doc::SetReadValue(int group, int row, const QString& text) {
    RowAt(group, row).m_strReadValue = text;
    emit GroupChanged(group);
}

void CM330Doc::SetSetValue(int group, int row, const QString& text, RowMark mark) {
    RowAt(group, row).m_strSetValue = text;
    if (mark != RowMark::Keep) SetMark(group, row, mark == RowMark::Changed ? 1 : 0);
    emit GroupChanged(group);
}

void CM330Doc::MarkWritten(int group, int row) {
    if (group < 0) {
        for (auto& g : m_rowChanged) g.fill(0);
    } else if (row < 0) {
        CheckedAt(m_rowChanged, group).fill(0);
    } else {
        SetMark(group, row, 0);
    }
    emit GroupChanged(group);
}

bool CM330Doc::RowChanged(int group, int row) const {
    return CheckedAt(CheckedAt(m_rowChanged, group), row) != 0;
}

QString CM330Doc::CataloguePath() const {
    return DataFilePath(m_session.m_strAppDir, QLatin1String(kCatalogueFile));
}
QString CM330Doc::MotorListPath() const {
    return DataFilePath(m_session.m_strAppDir, QLatin1String(kMotorListFile));
}
QString CM330Doc::InitialTablePath() {
    return DataFilePath(g_strAppDir, QLatin1String(kInitialTableFile));
}

void CM330Doc::LoadCatalogue(const QString& path) {
    for (auto& g : m_savedRow) g.fill(0);
    // A missing catalogue leaves no groups; the first indexed access then reports it.
    const auto lines = ReadTextLines(path);
    ParseCatalogue(lines ? *lines : std::vector<QString>{}, m_groups, m_rowExists);
}

void CM330Doc::LoadMotorList(const QString& path) {
    m_motorList.clear();
    if (const auto lines = ReadTextLines(path)) m_motorList = ParseMotorList(*lines);
}

void CM330Doc::LoadInitialTable(const QString& path) {
    const auto lines = ReadTextLines(path);
    if (!lines) {
        Prompt().Message(LoadText(TextId::CantOpenFile));
        return;
    }
    m_initTable = ParseInitialTable(*lines);
    ApplyInitialTable();
}

void CM330Doc::ApplyInitialTable() {
    ApplyInitialTableTo(m_groups, m_initTable, m_session.m_nModelCode, m_bApplyToSetValue != 0);
}

void CM330Doc::ApplyRatedDefaults(bool bothColumns) {
    ApplyRatedDefaultsTo(m_groups, m_session.m_strModelName, m_session.m_nModelCode,
                         m_session.m_nFreqClass, bothColumns);
}

void CM330Doc::ReloadCatalogue() {
    m_groups.clear();
    // All rows are new: nothing in them is changed.
    for (auto& g : m_rowChanged) g.fill(0);
    LoadCatalogue(CataloguePath());
    LoadInitialTable(InitialTablePath());
    emit GroupChanged(-1);
}

}  // namespace quillon
