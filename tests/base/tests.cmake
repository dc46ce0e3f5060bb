quillon_add_test(base_test SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/DataFilesTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/TextConvTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/TextFileTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/TextTableTest.cpp
)
