target_sources(quillon_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/ControlPanel.cpp
  ${CMAKE_CURRENT_LIST_DIR}/FrequencyEdit.cpp
  ${CMAKE_CURRENT_LIST_DIR}/GraphChannels.cpp
  ${CMAKE_CURRENT_LIST_DIR}/GraphRecorder.cpp
  ${CMAKE_CURRENT_LIST_DIR}/GraphStore.cpp
  ${CMAKE_CURRENT_LIST_DIR}/GraphStoreData.cpp
  ${CMAKE_CURRENT_LIST_DIR}/KeyPad.cpp
  ${CMAKE_CURRENT_LIST_DIR}/KeyPadItems.cpp
  ${CMAKE_CURRENT_LIST_DIR}/KnobMapping.cpp
  ${CMAKE_CURRENT_LIST_DIR}/LedDisplay.cpp
  ${CMAKE_CURRENT_LIST_DIR}/LinkExchange.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ParamSetFields.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ScopeGeometry.cpp
  ${CMAKE_CURRENT_LIST_DIR}/StatusMonitor.cpp
  ${CMAKE_CURRENT_LIST_DIR}/StatusReadout.cpp
  ${CMAKE_CURRENT_LIST_DIR}/WorkerRunner.cpp
)
