target_sources(quillon_ui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/ExchangeUi.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ExportFormatDlg.cpp
)
