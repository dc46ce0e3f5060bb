quillon_add_test(params_test SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/CatalogueReaderTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/OverlaysTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ModelTableTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/M330DocTest.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ParamTableTest.cpp
)
quillon_add_test(params_widgets_test WIDGETS SOURCES ${CMAKE_CURRENT_LIST_DIR}/ModelSelectDlgTest.cpp)
quillon_add_test(catalogue_data_test SOURCES ${CMAKE_CURRENT_LIST_DIR}/CatalogueDataTest.cpp)
quillon_add_test(project_file_test SOURCES ${CMAKE_CURRENT_LIST_DIR}/ProjectFileTest.cpp)
