quillon_add_test(cli_test SOURCES ${CMAKE_CURRENT_LIST_DIR}/CliTest.cpp ${CMAKE_CURRENT_LIST_DIR}/DumpTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/IdentifyTest.cpp)
target_compile_definitions(cli_test PRIVATE QUILLON_CLI_PATH="$<TARGET_FILE:quillon-cli>")
target_link_libraries(cli_test PRIVATE link_test_support)
add_dependencies(cli_test quillon-cli)
