target_sources(quillon_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/Broadcast.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ChannelFactory.cpp
  ${CMAKE_CURRENT_LIST_DIR}/DriveSerial.cpp
  ${CMAKE_CURRENT_LIST_DIR}/FdIo.cpp
  ${CMAKE_CURRENT_LIST_DIR}/LineSettings.cpp
  ${CMAKE_CURRENT_LIST_DIR}/LinkResult.cpp
  ${CMAKE_CURRENT_LIST_DIR}/LinkThread.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ModbusFrame.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PortMap.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ReplyJudge.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Serial.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SerialChannel.cpp
  ${CMAKE_CURRENT_LIST_DIR}/TcpChannel.cpp
)
