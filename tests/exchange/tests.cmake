# Compare and printing: the comparison and its read against the in-process simulated drive, the
# page layouts, the PDF of quillon-cli print.
quillon_add_test(compare_print_tests SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/../transfer/TransferFixture.cpp
  ${CMAKE_CURRENT_LIST_DIR}/CompareTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PrintLayoutTest.cpp
)
target_link_libraries(compare_print_tests PRIVATE link_test_support)
target_compile_definitions(compare_print_tests PRIVATE QUILLON_CLI_PATH="$<TARGET_FILE:quillon-cli>")
add_dependencies(compare_print_tests quillon-cli)

quillon_add_test(compare_print_widgets_tests WIDGETS SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/CompareWidgetsTest.cpp)
