target_sources(quillon_ui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/TransferDialogs.cpp
  ${CMAKE_CURRENT_LIST_DIR}/TransferUi.cpp
)
