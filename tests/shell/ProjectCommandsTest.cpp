// The File commands in their order of steps, with a scripted prompt and a stand-in for the
// frame's windows that records what was done to them.

#include "base/Globals.h"
#include "base/StatusPanes.h"
#include "params/ProjectFile.h"
#include "shell/ProjectCommands.h"
#include "support/ScriptedPrompt.h"
#include "support/TestDirs.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <optional>

using namespace quillon;
using quillon::test::ScriptedPrompt;
using quillon::test::TempAppDir;

namespace {

const QString kRefusal = "PC software is under auto-refresh,Please stop auto-refresh first!";
const QString kQuestion = "The file has been modified,save it or not?";

class FakeWindows final : public IProjectWindows {
public:
    explicit FakeWindows(SessionState& s) : session(s) {}

    // The next Model Select: a name and class for OK, nullopt for Cancel.
    std::optional<std::pair<QString, int>> model;
    bool RunModelSelect() override {
        log << "model dialog";
        if (!model) return false;
        session.m_strModelName = model->first;
        session.m_nFreqClass = model->second;
        return true;
    }
    void ShowProjectWindow(CM330Doc& doc) override {
        log << "show";
        shown = &doc;
    }
    bool HasProjectWindow() const override { return shown != nullptr; }
    void DestroyProjectWindow() override {
        log << "destroy";
        shown = nullptr;
    }
    void SetProjectWindowTitle(const QString& t) override {
        log << "title " + t;
        title = t;
    }
    void RebuildTree() override { log << "rebuild tree"; }
    void ClearTree() override { log << "clear tree"; }
    void SetStatusPane(int pane, const QString& text) override { panes[pane] = StatusPaneText(pane, text); }
    void StopAutoRefresh() override {
        log << "stop refresh";
        session.m_bAutoRefresh = 0;
    }
    void RecentListChanged() override {}

    SessionState& session;
    QStringList log;
    CM330Doc* shown = nullptr;
    QString title;
    QString panes[5];
};

struct Fixture {
    Fixture() : recent(dir.File("recent.ini")), windows(session), commands(session, recent, windows) {
        g_strAppDir = dir.Path();
        session.m_strAppDir = dir.Path();
    }
    ~Fixture() { ResetGlobals(); }

    // A new project for `name`, with no question on the way.
    CM330Doc* NewProject(const QString& name, int freq = 0) {
        windows.model = {name, freq};
        commands.OnFileNew();
        return commands.Document();
    }
    // A project file for `name` saved at `file` in the test directory; no project open after.
    QString ProjectFile(const QString& file, int code, const char* name) {
        SessionState s;
        s.m_strAppDir = dir.Path();
        s.m_nModelCode = code;
        s.m_strModelName = name;
        CM330Doc doc(s);
        doc.RowAt(0, 3).m_strSetValue = "2";
        QString error;
        EXPECT_TRUE(SaveProjectDocument(doc, dir.File(file), error)) << error.toStdString();
        return dir.File(file);
    }

    TempAppDir dir;
    SessionState session;
    CRecentFileList recent;
    FakeWindows windows;
    CProjectCommands commands;
};

}  // namespace

TEST(ProjectCommands, NewProjectForAModel) {
    Fixture f;
    f.session.m_nCurGroup = 3;
    f.session.m_bCompleteParams = 0;
    f.session.m_strProjectPath = "/old/path.qpj";
    f.session.m_graphSettings.channelName[0] = "Output Current";
    ScriptedPrompt prompt;
    f.windows.model = {QStringLiteral("  R770-201-Kxx "), 1};
    f.commands.OnFileNew();

    CM330Doc* doc = f.commands.Document();
    ASSERT_NE(doc, nullptr);
    EXPECT_TRUE(prompt.Texts().isEmpty());
    EXPECT_EQ(f.session.m_nModelCode, 201);
    EXPECT_EQ(f.session.m_nFreqClass, 1);
    EXPECT_TRUE(f.session.m_strProjectPath.isEmpty());
    EXPECT_EQ(f.session.m_nCurGroup, -1);
    EXPECT_EQ(f.session.m_bCompleteParams, 1);
    EXPECT_EQ(f.session.m_graphSettings.channelName[0], "No display");
    EXPECT_EQ(doc->RowAt(0, 11).m_strSetValue, "60.00");
    EXPECT_FALSE(doc->IsModified());
    EXPECT_EQ(f.windows.shown, doc);
    EXPECT_EQ(f.windows.log, (QStringList{"model dialog", "show", "title New Project", "rebuild tree"}));
    EXPECT_EQ(f.windows.panes[0], "File name:New Project");
    EXPECT_EQ(f.windows.panes[3], "Model:  R770-201-Kxx ");
}

TEST(ProjectCommands, AutoRefreshRefusesNewAndOpenBeforeAnyQuestion) {
    Fixture f;
    CM330Doc* doc = f.NewProject("R770-201-Kxx");
    doc->SetModifiedFlag();
    const QString path = f.ProjectFile("a.qpj", 402, "R770-402-Kxx");
    f.recent.Add(path);
    f.session.m_bAutoRefresh = 1;
    f.windows.log.clear();

    ScriptedPrompt prompt;  // no answers: a question would fail the test
    f.commands.OnFileNew();
    f.commands.OnFileOpen();
    EXPECT_FALSE(f.commands.OpenRecentFile(path));
    EXPECT_FALSE(f.commands.OpenProjectFile(path));
    EXPECT_EQ(prompt.Texts(), QStringList(4, kRefusal));
    EXPECT_EQ(f.commands.Document(), doc);
    EXPECT_TRUE(doc->IsModified());
    EXPECT_EQ(f.session.m_nModelCode, 201);
    EXPECT_TRUE(f.windows.log.isEmpty());
    EXPECT_EQ(f.recent.At(0), path);
}

TEST(ProjectCommands, NoThenCancelOrAnUnknownModelLeavesTheProjectAsItWas) {
    Fixture f;
    CM330Doc* doc = f.NewProject("R770-201-Kxx", 1);
    doc->RowAt(0, 3).m_strSetValue = "edited";
    doc->SetModifiedFlag();
    f.windows.log.clear();
    {
        ScriptedPrompt prompt;
        prompt.Answer(Answer::No);
        f.windows.model.reset();  // Cancel in the model dialog
        f.commands.OnFileNew();
        EXPECT_EQ(prompt.Texts(), QStringList{kQuestion});
    }
    {
        ScriptedPrompt prompt;
        prompt.Answer(Answer::No);
        f.windows.model = {QStringLiteral("R770-999-Kxx"), 0};  // not one of the 19
        f.commands.OnFileNew();
    }
    {
        ScriptedPrompt prompt;
        prompt.Answer(Answer::Cancel);  // Cancel on the question: not even the model dialog
        f.commands.OnFileNew();
    }
    EXPECT_EQ(f.commands.Document(), doc);
    EXPECT_TRUE(doc->IsModified());
    EXPECT_EQ(doc->RowAt(0, 3).m_strSetValue, "edited");
    EXPECT_EQ(f.session.m_strModelName, "R770-201-Kxx");
    EXPECT_EQ(f.session.m_nFreqClass, 1);
    EXPECT_EQ(f.session.m_nModelCode, 201);
    EXPECT_EQ(f.windows.log, (QStringList{"model dialog", "model dialog"}));
}

TEST(ProjectCommands, SaveSaveAsAndAFailedSave) {
    Fixture f;
    CM330Doc* doc = f.NewProject("R770-203-Kxx");
    doc->SetModifiedFlag();
    const QString path = f.dir.File("pump.qpj");
    {
        ScriptedPrompt prompt;
        prompt.FileName(path);
        f.commands.OnFileSave();  // no path yet: the save dialog
        EXPECT_EQ(prompt.Texts(), QStringList{"Save As"});
    }
    EXPECT_TRUE(QFile::exists(path));
    EXPECT_EQ(f.session.m_strProjectPath, path);
    EXPECT_FALSE(doc->IsModified());
    EXPECT_EQ(f.recent.At(0), path);
    EXPECT_EQ(f.windows.title, "pump.qpj");
    EXPECT_EQ(f.windows.panes[0], "File name:pump.qpj");
    {
        ScriptedPrompt prompt;  // a path: Save asks nothing
        doc->SetModifiedFlag();
        f.commands.OnFileSave();
        EXPECT_FALSE(doc->IsModified());
    }
    {
        ScriptedPrompt prompt;
        prompt.FileName(QString());  // Save As cancelled: path and title stay
        f.windows.log.clear();
        f.commands.OnFileSaveAs();
        EXPECT_EQ(f.session.m_strProjectPath, path);
        EXPECT_TRUE(f.windows.log.isEmpty());
    }
    {
        // A path that can't be written: a message, and no path, so the next Save asks again.
        ScriptedPrompt prompt;
        const QString nowhere = f.dir.File("no such folder/x.qpj");
        prompt.FileName(nowhere);
        f.commands.OnFileSaveAs();
        EXPECT_EQ(prompt.Messages(),
                  QStringList{"can't save " + nowhere + ": No such file or directory"});
        EXPECT_TRUE(f.session.m_strProjectPath.isEmpty());
        prompt.FileName(QString());
        f.commands.OnFileSave();
        EXPECT_EQ(prompt.Texts().last(), "Save As");
    }
    {
        // A path without a separator has an empty file name.
        const QString cwd = QDir::currentPath();
        ASSERT_TRUE(QDir::setCurrent(f.dir.Path()));
        ScriptedPrompt prompt;
        prompt.FileName("relative.qpj");
        f.commands.OnFileSaveAs();
        QDir::setCurrent(cwd);
        EXPECT_EQ(f.session.m_strProjectPath, "relative.qpj");
        EXPECT_EQ(f.windows.panes[0], "File name:");
        EXPECT_EQ(f.commands.ProjectFileName(), "");
    }
}

TEST(ProjectCommands, OpenReplacesTheProjectOrLeavesItWhole) {
    Fixture f;
    const QString good = f.ProjectFile("good.qpj", 402, "R770-402-Kxx");
    CM330Doc* first = f.NewProject("R770-201-Kxx");
    first->SetModifiedFlag();
    f.session.m_nCurGroup = 4;
    f.windows.log.clear();
    {
        ScriptedPrompt prompt;
        prompt.Answer(Answer::No).FileName(good);
        f.commands.OnFileOpen();
        EXPECT_EQ(prompt.Texts(), (QStringList{kQuestion, "Open"}));
    }
    CM330Doc* opened = f.commands.Document();
    ASSERT_NE(opened, nullptr);
    EXPECT_NE(opened, first);
    EXPECT_EQ(f.windows.shown, opened);
    EXPECT_EQ(opened->RowAt(0, 3).m_strSetValue, "2");
    EXPECT_EQ(f.session.m_nModelCode, 402);
    EXPECT_EQ(f.session.m_strProjectPath, good);
    EXPECT_EQ(f.session.m_nCurGroup, -1);
    EXPECT_EQ(f.windows.panes[0], "File name:good.qpj");
    EXPECT_EQ(f.windows.panes[3], "Model:R770-402-Kxx");
    EXPECT_EQ(f.windows.title, "good.qpj");
    EXPECT_EQ(f.windows.log.last(), "rebuild tree");
    EXPECT_EQ(f.recent.At(0), good);
    EXPECT_FALSE(opened->IsModified());

    // A damaged file: a clear message, and the open project and the session stay as they were.
    QFile file(good);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    f.dir.Write("cut.qpj", file.readAll().left(40));
    f.session.m_nCurGroup = 2;
    {
        ScriptedPrompt prompt;
        prompt.FileName(f.dir.File("cut.qpj"));
        f.commands.OnFileOpen();
        ASSERT_EQ(prompt.Messages().size(), 1);
        EXPECT_TRUE(prompt.Messages()[0].startsWith("Can't open the file!"));
        EXPECT_TRUE(prompt.Messages()[0].contains("cut.qpj"));
    }
    EXPECT_EQ(f.commands.Document(), opened);
    EXPECT_EQ(f.session.m_strProjectPath, good);
    EXPECT_EQ(f.session.m_nCurGroup, 2);
    EXPECT_EQ(f.session.m_strModelName, "R770-402-Kxx");

    // A file whose flags reach beyond the catalogue: the range failure, the session restored.
    QByteArray beyond;
    const auto i32 = [&beyond](qint32 v) { for (int i = 0; i < 4; ++i) beyond.append(char((quint32(v) >> (8 * i)) & 0xFF)); };
    i32(2), i32(201), i32(12), beyond.append("R770-201-Kxx"), i32(1), i32(60);
    for (int r = 0; r < 60; ++r) i32(r == 59);
    i32(1), i32(60);
    for (int r = 0; r < 60; ++r) i32(1), beyond.append('5');
    f.dir.Write("beyond.qpj", beyond);
    {
        ScriptedPrompt prompt;
        EXPECT_THROW(f.commands.OpenProjectFile(f.dir.File("beyond.qpj")), std::out_of_range);
    }
    EXPECT_EQ(f.commands.Document(), opened);
    EXPECT_EQ(f.session.m_nModelCode, 402);
    EXPECT_EQ(f.session.m_strModelName, "R770-402-Kxx");
}

TEST(ProjectCommands, RecentEntries) {
    Fixture f;
    const QString a = f.ProjectFile("a.qpj", 201, "R770-201-Kxx");
    const QString gone = f.dir.File("gone.qpj");
    f.recent.Add(a);
    f.recent.Add(gone);
    {
        ScriptedPrompt prompt;
        f.commands.OnOpenRecentFile(0);  // gone.qpj: can't be opened, so it leaves the list
        EXPECT_EQ(prompt.Messages().size(), 1);
    }
    EXPECT_EQ(f.recent.Size(), 1);
    EXPECT_EQ(f.recent.At(0), a);
    EXPECT_EQ(f.commands.Document(), nullptr);
    EXPECT_TRUE(f.session.m_strProjectPath.isEmpty());

    f.recent.Add(f.ProjectFile("b.qpj", 402, "R770-402-Kxx"));
    ScriptedPrompt prompt;
    f.commands.OnOpenRecentFile(1);  // a.qpj goes back to the top
    ASSERT_NE(f.commands.Document(), nullptr);
    EXPECT_EQ(f.recent.At(0), a);
    EXPECT_EQ(f.session.m_strProjectPath, a);
    EXPECT_EQ(f.session.m_nModelCode, 201);
    EXPECT_FALSE(f.commands.OpenRecentFile(QString()));
}

TEST(ProjectCommands, CloseAndTheSaveQuestion) {
    Fixture f;
    CM330Doc* doc = f.NewProject("R770-201-Kxx");
    // Not modified: no question.
    {
        ScriptedPrompt prompt;
        EXPECT_TRUE(f.commands.SaveModified());
    }
    doc->SetModifiedFlag();
    {
        ScriptedPrompt prompt;
        prompt.Answer(Answer::Cancel);
        f.commands.OnFileClose();
        EXPECT_EQ(f.commands.Document(), doc);
        prompt.Answer(Answer::Yes).FileName(QString());  // Yes, then Cancel in the save dialog
        EXPECT_FALSE(f.commands.SaveModified());
        prompt.Answer(Answer::Yes).FileName(f.dir.File("none/x.qpj"));  // Yes, and the save fails
        EXPECT_TRUE(f.commands.SaveModified());
        prompt.Answer(Answer::No);
        EXPECT_TRUE(f.commands.SaveModified());
    }
    f.windows.log.clear();
    {
        ScriptedPrompt prompt;
        prompt.Answer(Answer::Yes).FileName(f.dir.File("closed.qpj"));
        f.commands.OnFileClose();
        EXPECT_EQ(prompt.Texts(), (QStringList{kQuestion, "Save As"}));
    }
    EXPECT_TRUE(QFile::exists(f.dir.File("closed.qpj")));
    EXPECT_EQ(f.commands.Document(), nullptr);
    EXPECT_EQ(f.windows.log.mid(f.windows.log.indexOf("destroy")), (QStringList{"destroy", "clear tree"}));
    EXPECT_TRUE(f.session.m_strProjectPath.isEmpty());
    EXPECT_TRUE(f.session.m_strModelName.isEmpty());
    EXPECT_EQ(f.windows.panes[0], "File name:");
    EXPECT_EQ(f.windows.panes[3], "Model:");
}

TEST(ProjectCommands, WindowCloseBoxAndFrameClose) {
    Fixture f;
    CM330Doc* doc = f.NewProject("R770-201-Kxx");
    doc->SetModifiedFlag();
    f.windows.log.clear();
    {
        // The tree is cleared before the question, even when the answer keeps the window.
        ScriptedPrompt prompt;
        prompt.Answer(Answer::Cancel);
        EXPECT_FALSE(f.commands.OnProjectWindowClose());
        EXPECT_EQ(f.windows.log, QStringList{"clear tree"});
        EXPECT_EQ(f.commands.Document(), doc);
    }
    {
        // Closing the program: auto refresh stops first, then the question.
        f.session.m_bAutoRefresh = 1;
        f.windows.log.clear();
        ScriptedPrompt prompt;
        prompt.Answer(Answer::Cancel);
        EXPECT_FALSE(f.commands.CanCloseFrame());
        EXPECT_EQ(f.windows.log, QStringList{"stop refresh"});
        EXPECT_EQ(f.session.m_bAutoRefresh, 0);
        prompt.Answer(Answer::No);
        EXPECT_TRUE(f.commands.CanCloseFrame());
    }
    {
        ScriptedPrompt prompt;
        prompt.Answer(Answer::No);
        EXPECT_TRUE(f.commands.OnProjectWindowClose());
        EXPECT_EQ(f.commands.Document(), nullptr);
        EXPECT_EQ(f.windows.shown, nullptr);
        EXPECT_EQ(f.windows.panes[0] + f.windows.panes[3], "File name:Model:");
    }
    // A link taken over (or a Read) without a project makes the new project the panes show.
    f.session.m_strModelName = "R770-201-Kxx";
    f.commands.NewDocumentForLinkedDrive();
    EXPECT_EQ(f.windows.panes[0] + f.windows.panes[3], "File name:New ProjectModel:R770-201-Kxx");
}
