quillon_add_test(editing_limits_test SOURCES ${CMAKE_CURRENT_LIST_DIR}/ModelLimitsTest.cpp)
