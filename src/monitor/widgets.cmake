target_sources(quillon_ui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/GraphDlg.cpp
  ${CMAKE_CURRENT_LIST_DIR}/KeyPadDlg.cpp
  ${CMAKE_CURRENT_LIST_DIR}/KeyPadPicture.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MonitorControlDlg.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MonitorStatusDlg.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MonitorUi.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PanelPictures.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ParamSetDlg.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ScopeWnd.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SetTimeDlg.cpp
)
