target_sources(quillon_ui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/ParamPage.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ParamEditorDlg.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SmallKeyboardDlg.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ParamSelectDlg.cpp
  ${CMAKE_CURRENT_LIST_DIR}/EditorUi.cpp
)
