# The bottom layer: what every subsystem uses (globals, the prompt seam, texts, error reporting,
# session state, settings records, text conversion, bounded file reading). It includes nothing
# from the layers above it.
target_sources(quillon_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/CommSettings.cpp
  ${CMAKE_CURRENT_LIST_DIR}/DataFiles.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ErrorReport.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Globals.cpp
  ${CMAKE_CURRENT_LIST_DIR}/GraphSettings.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Language.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PathName.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Prompt.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SafeSave.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SessionPlaces.cpp
  ${CMAKE_CURRENT_LIST_DIR}/StatusPanes.cpp
  ${CMAKE_CURRENT_LIST_DIR}/TextConv.cpp
  ${CMAKE_CURRENT_LIST_DIR}/TextFile.cpp
  ${CMAKE_CURRENT_LIST_DIR}/TextTable.cpp
)
# The installed data folder as seen from the installed programs' folder.
set_source_files_properties(${CMAKE_CURRENT_LIST_DIR}/DataFiles.cpp PROPERTIES
  COMPILE_DEFINITIONS QUILLON_RELATIVE_DATA_DIR="${QUILLON_RELATIVE_DATA_DIR}")
