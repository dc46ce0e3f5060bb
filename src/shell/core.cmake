target_sources(quillon_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/CommSettings.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Globals.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Prompt.cpp
  ${CMAKE_CURRENT_LIST_DIR}/RecentFileList.cpp
  ${CMAKE_CURRENT_LIST_DIR}/StartupArgs.cpp
  ${CMAKE_CURRENT_LIST_DIR}/TextTable.cpp
)
