# The status monitor, the control panel and the keypad against the in-process simulated drive.
quillon_add_test(monitor_tests SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/ControlPanelTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/GraphTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/KeyPadTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/StatusMonitorTest.cpp
)
target_link_libraries(monitor_tests PRIVATE link_test_support)

# Both windows on the simulated drive, and quillon-cli control and status against r770-sim.
quillon_add_test(monitor_widgets_tests WIDGETS SOURCES ${CMAKE_CURRENT_LIST_DIR}/MonitorWidgetsTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/GraphWidgetsTest.cpp)
target_link_libraries(monitor_widgets_tests PRIVATE link_test_support)
quillon_add_test(monitor_cli_tests SOURCES ${CMAKE_CURRENT_LIST_DIR}/MonitorCliTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/GraphCliTest.cpp)
target_link_libraries(monitor_cli_tests PRIVATE link_test_support)
target_compile_definitions(monitor_cli_tests PRIVATE
  QUILLON_CLI_PATH="$<TARGET_FILE:quillon-cli>" R770_SIM="$<TARGET_FILE:r770-sim>")
add_dependencies(monitor_cli_tests quillon-cli r770-sim)
