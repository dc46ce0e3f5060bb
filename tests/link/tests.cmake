# Link layer: frames, results, port names, and CDriveSerial over the in-process simulator, a
# real pseudo-terminal and TCP.
find_package(PkgConfig REQUIRED)
pkg_check_modules(LIBMODBUS REQUIRED IMPORTED_TARGET libmodbus)

add_library(link_test_support STATIC ${CMAKE_CURRENT_LIST_DIR}/LinkTestSupport.cpp
  ${CMAKE_CURRENT_LIST_DIR}/InterceptChannel.cpp)
target_link_libraries(link_test_support PUBLIC quillon_test_support r770_sim_lib GTest::gtest)
target_include_directories(link_test_support PUBLIC ${CMAKE_CURRENT_LIST_DIR})

quillon_add_test(link_tests SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/DriveSerialSimTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/FrameLogTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ModbusFrameTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PortMapTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PtyTransportTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/RegisterReadersTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ReplyJudgeTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SearchProtocolTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/StationListTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/TcpTransportTest.cpp
)
target_link_libraries(link_tests PRIVATE link_test_support)

# The connection: connect sequence, supervision, session files, and the device search and a
# link through network modules in a network namespace of the test's own.
quillon_add_test(link_session_tests SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/DeviceSearchTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/LinkSessionTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PortSessionFileTest.cpp
)
target_link_libraries(link_session_tests PRIVATE link_test_support)

# The connection dialog and its IP dialogs, on the main window.
quillon_add_test(connect_dialog_tests WIDGETS SOURCES ${CMAKE_CURRENT_LIST_DIR}/ConnectDlgTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/FrameLogDlgTest.cpp)
target_link_libraries(connect_dialog_tests PRIVATE link_test_support)
