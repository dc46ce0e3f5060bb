target_sources(quillon_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/CommandTable.cpp
  ${CMAKE_CURRENT_LIST_DIR}/CommSettings.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Globals.cpp
  ${CMAKE_CURRENT_LIST_DIR}/GraphSettings.cpp
  ${CMAKE_CURRENT_LIST_DIR}/HandOver.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MenuLayout.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ParamList.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PathName.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ProjectCommands.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ProjectTreeRules.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ErrorReport.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Prompt.cpp
  ${CMAKE_CURRENT_LIST_DIR}/RecentFileList.cpp
  ${CMAKE_CURRENT_LIST_DIR}/StartupArgs.cpp
  ${CMAKE_CURRENT_LIST_DIR}/StatusPanes.cpp
  ${CMAKE_CURRENT_LIST_DIR}/TextTable.cpp
)
