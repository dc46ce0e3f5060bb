target_sources(quillon_ui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/M330App.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MainFrame.cpp
)
