target_sources(quillon_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/AutoRefresh.cpp
  ${CMAKE_CURRENT_LIST_DIR}/CommChange.cpp
  ${CMAKE_CURRENT_LIST_DIR}/FleetBackup.cpp
  ${CMAKE_CURRENT_LIST_DIR}/GroupRead.cpp
  ${CMAKE_CURRENT_LIST_DIR}/GroupWrite.cpp
  ${CMAKE_CURRENT_LIST_DIR}/HeadlessWindows.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Password.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ReadLayout.cpp
  ${CMAKE_CURRENT_LIST_DIR}/TransferCommands.cpp
  ${CMAKE_CURRENT_LIST_DIR}/TransmitStations.cpp
  ${CMAKE_CURRENT_LIST_DIR}/WriteGuards.cpp
  ${CMAKE_CURRENT_LIST_DIR}/WriteLayout.cpp
)
