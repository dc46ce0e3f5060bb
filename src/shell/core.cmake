target_sources(quillon_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/CommandTable.cpp
  ${CMAKE_CURRENT_LIST_DIR}/HandOver.cpp
  ${CMAKE_CURRENT_LIST_DIR}/InstanceChannel.cpp
  ${CMAKE_CURRENT_LIST_DIR}/LanguageSwitch.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MenuLayout.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ParamList.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ProjectCommands.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ProjectTreeRules.cpp
  ${CMAKE_CURRENT_LIST_DIR}/RecentFileList.cpp
  ${CMAKE_CURRENT_LIST_DIR}/StartupArgs.cpp
)
