# The simulated drive: its behaviour through our link, its framing and command line, and the
# r770-sim program against an independent Modbus master (libmodbus) over socat ptys.
quillon_add_test(sim_tests SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/FrameAssemblerTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SimDriveTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/SimOptionsTest.cpp
)
target_link_libraries(sim_tests PRIVATE link_test_support)

quillon_add_test(sim_libmodbus_tests SOURCES ${CMAKE_CURRENT_LIST_DIR}/LibmodbusMasterTest.cpp)
target_link_libraries(sim_libmodbus_tests PRIVATE link_test_support PkgConfig::LIBMODBUS)
target_compile_definitions(sim_libmodbus_tests PRIVATE R770_SIM="$<TARGET_FILE:r770-sim>")
add_dependencies(sim_libmodbus_tests r770-sim)
