#pragma once
// The editing commands of the main window: the fifteen group commands open the parameter editor
// on their group (the project's modified mark untouched, whichever button closed it), a double
// click in the list opens it on the clicked row's group and marks the project modified after OK,
// and Parameter Select switches between the simplified group and the complete groups.

namespace quillon {

class CFrameFeatures;
class CMainFrame;

void InstallEditorCommands(CMainFrame& frame);
void RegisterEditorCommands(CFrameFeatures& features);
// Runs the editor on `group` with `rowIndex` (-1 for none); the modal result, or -1 without a
// project.
int RunParamEditor(CMainFrame& frame, int group, int rowIndex);
// Parameter Select's change of `m_bCompleteParams` with its effects on tree and list; choosing
// the mode in force does nothing.
void ApplyParamSelect(CMainFrame& frame, int completeParams);

}  // namespace quillon
