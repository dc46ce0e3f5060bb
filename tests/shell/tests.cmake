quillon_add_test(shell_test SOURCES ${CMAKE_CURRENT_LIST_DIR}/SessionFilesTest.cpp)
quillon_add_test(shell_widgets_test WIDGETS SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/AppTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/MainFrameTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/LanguageTest.cpp
)
quillon_add_test(shell_rules_test SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/CommandRulesTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ProjectCommandsTest.cpp
)
quillon_add_test(last_resort_test WIDGETS SOURCES ${CMAKE_CURRENT_LIST_DIR}/LastResortTest.cpp)
quillon_add_test(handover_tests WIDGETS SOURCES ${CMAKE_CURRENT_LIST_DIR}/HandOverTest.cpp)
target_link_libraries(handover_tests PRIVATE link_test_support)
