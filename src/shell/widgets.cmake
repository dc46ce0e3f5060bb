target_sources(quillon_ui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/AboutDlg.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ChildFrame.cpp
  ${CMAKE_CURRENT_LIST_DIR}/HelpDlg.cpp
  ${CMAKE_CURRENT_LIST_DIR}/M330App.cpp
  ${CMAKE_CURRENT_LIST_DIR}/M330View.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MainFrame.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ProjectTree.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ToolbarIcons.cpp
)
