quillon_add_test(importexport_test SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/ParamCsvTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ParamWorkbookTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/GraphDataTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ExchangeCliTest.cpp
)
target_compile_definitions(importexport_test PRIVATE QUILLON_CLI_PATH="$<TARGET_FILE:quillon-cli>")
add_dependencies(importexport_test quillon-cli)
quillon_add_test(importexport_widgets_test WIDGETS SOURCES ${CMAKE_CURRENT_LIST_DIR}/ExchangeUiTest.cpp)
