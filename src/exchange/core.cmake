# Compare and printing: the comparison, the saved text and the page layouts, without widgets.
target_sources(quillon_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/CompareCommand.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ComparePrint.cpp
  ${CMAKE_CURRENT_LIST_DIR}/CompareRows.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PrintLayout.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PrintTitleRules.cpp
)
