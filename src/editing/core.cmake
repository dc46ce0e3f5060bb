target_sources(quillon_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/CrossRules.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PageTable.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ParamPageLogic.cpp
  ${CMAKE_CURRENT_LIST_DIR}/DigitHints.cpp
  ${CMAKE_CURRENT_LIST_DIR}/EditorTable.cpp
  ${CMAKE_CURRENT_LIST_DIR}/GroupTransmit.cpp
)
