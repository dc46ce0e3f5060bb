quillon_add_test(transfer_layout_test SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/ReadLayoutTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/WriteLayoutTest.cpp
)

# Group read and write, their commands, the password, auto refresh and the communication
# change against the in-process simulated drive.
quillon_add_test(transfer_tests SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/TransferFixture.cpp
  ${CMAKE_CURRENT_LIST_DIR}/AutoRefreshTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/CommChangeTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/FleetBackupTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PasswordTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ReadCommandTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/WriteCommandTest.cpp
)
target_link_libraries(transfer_tests PRIVATE link_test_support)

# The dialogs, and the commands on the main window over the simulated drive.
quillon_add_test(transfer_widgets_tests WIDGETS SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/TransferWidgetsTest.cpp
)
target_link_libraries(transfer_widgets_tests PRIVATE link_test_support)

# quillon-cli read and write against r770-sim on loopback.
quillon_add_test(transfer_cli_tests SOURCES ${CMAKE_CURRENT_LIST_DIR}/CliTransferTest.cpp)
target_link_libraries(transfer_cli_tests PRIVATE link_test_support)
target_compile_definitions(transfer_cli_tests PRIVATE
  QUILLON_CLI_PATH="$<TARGET_FILE:quillon-cli>" R770_SIM="$<TARGET_FILE:r770-sim>")
add_dependencies(transfer_cli_tests quillon-cli r770-sim)
