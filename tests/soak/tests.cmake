# The fault soak: Read, Write and auto refresh against r770-sim on a pseudo-terminal while it
# breaks, drops and cuts its replies, a station goes silent and the simulator is killed
# mid-read. About half a minute; bounded by its own deadlines and by the time-out below.
add_executable(soak_tests ${CMAKE_CURRENT_LIST_DIR}/FaultSoakTest.cpp)
target_link_libraries(soak_tests PRIVATE quillon_test_support link_test_support GTest::gtest_main)
target_compile_definitions(soak_tests PRIVATE R770_SIM="$<TARGET_FILE:r770-sim>")
add_dependencies(soak_tests r770-sim)
quillon_copy_data(soak_tests)
gtest_discover_tests(soak_tests
  PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen" TIMEOUT 120 LABELS soak
  DISCOVERY_TIMEOUT 60)
