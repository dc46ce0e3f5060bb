quillon_add_test(transfer_layout_test SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/ReadLayoutTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/WriteLayoutTest.cpp
)
