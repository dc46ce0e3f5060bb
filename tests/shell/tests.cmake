quillon_add_test(text_table_test SOURCES ${CMAKE_CURRENT_LIST_DIR}/TextTableTest.cpp)
quillon_add_test(shell_test SOURCES ${CMAKE_CURRENT_LIST_DIR}/SessionFilesTest.cpp)
quillon_add_test(shell_widgets_test WIDGETS SOURCES ${CMAKE_CURRENT_LIST_DIR}/AppTest.cpp)
