target_sources(quillon_ui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/AssignIpDlg.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ConnectDlg.cpp
  ${CMAKE_CURRENT_LIST_DIR}/FrameLogDlg.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SetIpDlg.cpp
)
