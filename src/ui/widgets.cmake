target_sources(quillon_ui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/ColourLabel.cpp
  ${CMAKE_CURRENT_LIST_DIR}/IconCachingStyle.cpp
  ${CMAKE_CURRENT_LIST_DIR}/IpAddressEdit.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ModalLinkWork.cpp
  ${CMAKE_CURRENT_LIST_DIR}/QtPrompt.cpp
  ${CMAKE_CURRENT_LIST_DIR}/StationChooserDlg.cpp
)
