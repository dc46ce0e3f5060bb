#pragma once
// A session on the data files beside the test, with a scripted prompt, for the import and
// export tests.

#include "base/Globals.h"
#include "params/M330Doc.h"
#include "support/ScriptedPrompt.h"
#include "support/TestDirs.h"

#include <QTemporaryDir>
#include <memory>
#include <ostream>

QT_BEGIN_NAMESPACE
// Failures show texts as text.
inline void PrintTo(const QString& text, std::ostream* os) { *os << '"' << text.toStdString() << '"'; }
QT_END_NAMESPACE

namespace quillon::test {

struct ExchangeFixture {
    ExchangeFixture() {
        g_strAppDir = DataDir();
        session.m_strAppDir = DataDir();
    }
    ~ExchangeFixture() { ResetGlobals(); }

    // A new project of model 402, whose group 2 has gap rows 7 to 14.
    std::unique_ptr<CM330Doc> NewDoc(int code = 402, const char* name = "R770-402-Kxx") {
        session.m_nModelCode = code;
        session.m_strModelName = QString::fromLatin1(name);
        auto doc = std::make_unique<CM330Doc>(session);
        doc->OnNewDocument();
        return doc;
    }
    QString File(const QString& name) const { return dir.filePath(name); }

    SessionState session;
    ScriptedPrompt prompt;
    QTemporaryDir dir;
};

// How many rows of group g the row-exists table has; all groups' for g = -1.
inline int ExistingRows(const CM330Doc& doc, int g = -1) {
    int count = 0;
    for (int i = 0; i < kGroupCount; ++i)
        for (int e : doc.m_rowExists[i]) count += (g < 0 || g == i) ? e : 0;
    return count;
}

// The set values of groups first..last (all groups by default), group by group.
inline QStringList SetValues(const CM330Doc& doc, int first = 0, int last = kGroupCount - 1) {
    QStringList values;
    for (int g = first; g <= last; ++g)
        for (const auto& row : doc.GroupAt(g).m_rows) values << row.m_strSetValue;
    return values;
}

}  // namespace quillon::test
