quillon_add_test(editing_limits_test SOURCES ${CMAKE_CURRENT_LIST_DIR}/ModelLimitsTest.cpp)
# The pages' logic and the cross-parameter rules against the in-process simulated drive.
quillon_add_test(editing_page_tests SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/PageLogicTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/GroupTransmitTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/../transfer/TransferFixture.cpp
)
target_link_libraries(editing_page_tests PRIVATE link_test_support)
# The page widget over every page; pictures with QUILLON_SCREENSHOT_DIR.
quillon_add_test(editing_widgets_tests WIDGETS SOURCES ${CMAKE_CURRENT_LIST_DIR}/ParamPageWidgetTest.cpp)
# quillon-cli set and page-write against r770-sim on loopback.
quillon_add_test(editing_cli_tests SOURCES ${CMAKE_CURRENT_LIST_DIR}/PageCliTest.cpp)
target_link_libraries(editing_cli_tests PRIVATE link_test_support)
target_compile_definitions(editing_cli_tests PRIVATE
  QUILLON_CLI_PATH="$<TARGET_FILE:quillon-cli>" R770_SIM="$<TARGET_FILE:r770-sim>")
add_dependencies(editing_cli_tests quillon-cli r770-sim)
# The editor, the Small Keyboard and Parameter Select on the main window.
quillon_add_test(editing_editor_widgets_tests WIDGETS SOURCES ${CMAKE_CURRENT_LIST_DIR}/EditorWidgetTest.cpp)
