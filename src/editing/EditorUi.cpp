#include "editing/EditorUi.h"

#include "base/ErrorReport.h"
#include "editing/EditorTable.h"
#include "editing/ParamEditorDlg.h"
#include "editing/ParamSelectDlg.h"
#include "shell/CommandIds.h"
#include "shell/FrameFeatures.h"
#include "shell/M330View.h"
#include "shell/MainFrame.h"

namespace quillon {

int RunParamEditor(CMainFrame& frame, int group, int rowIndex) {
    CM330Doc* doc = frame.Document();
    if (!doc) return -1;
    EditorEnvironment env{frame.Session(), *doc, [&frame] { return frame.LinkSession().Link(); },
                          [&frame] {
                              if (CM330View* view = frame.View()) view->OnRefreshList();
                          }};
    CParamEditorDlg dlg(std::move(env), &frame);
    dlg.m_nGroupIndex = group;
    dlg.m_nRowIndex = rowIndex;
    return dlg.exec();
}

void ApplyParamSelect(CMainFrame& frame, int completeParams) {
    SessionState& session = frame.Session();
    if (completeParams == session.m_bCompleteParams) return;
    session.m_bCompleteParams = completeParams;
    frame.RebuildTree();
    session.m_nCurGroup = -1;
    if (CM330View* view = frame.View()) {
        view->FillList();
        view->FocusFirstLine();
    }
    frame.UpdateCommandUI();
}

void InstallEditorCommands(CMainFrame& frame) {
    for (int group = 0; group < kEditorGroups; ++group) {
        const int id = group < 14 ? CmdId::GroupCommand(group) : CmdId::SimplifiedGroup;
        frame.SetCommandHandler(id, [&frame, group] { RunParamEditor(frame, group, -1); });
    }
    QObject::connect(&frame, &CMainFrame::RowEditRequested, &frame,
                     Guarded([&frame](int group, int rowIndex) {
                         if (RunParamEditor(frame, group, rowIndex) != QDialog::Accepted) return;
                         if (CM330Doc* doc = frame.Document()) doc->SetModifiedFlag(true);
                     }));
    frame.SetCommandHandler(CmdId::ParamSelect, [&frame] {
        CParamSelectDlg dlg(frame.Session().m_bCompleteParams, &frame);
        if (dlg.exec() == QDialog::Accepted) ApplyParamSelect(frame, dlg.CompleteParams());
    });
}

void RegisterEditorCommands(CFrameFeatures& features) {
    features.Add([](CMainFrame& frame) { InstallEditorCommands(frame); });
}

}  // namespace quillon
