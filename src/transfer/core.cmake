target_sources(quillon_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/ReadLayout.cpp
  ${CMAKE_CURRENT_LIST_DIR}/WriteLayout.cpp
)
