# Import and export: parameter and graph data files as CSV and workbooks, the scope's picture.
find_package(PkgConfig REQUIRED)
pkg_check_modules(QUILLON_EXCHANGE_LIBS REQUIRED IMPORTED_TARGET xlsxwriter minizip freexl)
target_sources(quillon_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/Bmp.cpp
  ${CMAKE_CURRENT_LIST_DIR}/CodeIndex.cpp
  ${CMAKE_CURRENT_LIST_DIR}/CsvText.cpp
  ${CMAKE_CURRENT_LIST_DIR}/GraphData.cpp
  ${CMAKE_CURRENT_LIST_DIR}/GraphExchange.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ParamCsv.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ParamExchange.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ParamWorkbook.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Workbook.cpp
  ${CMAKE_CURRENT_LIST_DIR}/XlsRead.cpp
  ${CMAKE_CURRENT_LIST_DIR}/XlsxRead.cpp
  ${CMAKE_CURRENT_LIST_DIR}/XlsxWrite.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ZipArchive.cpp
)
target_link_libraries(quillon_core PUBLIC PkgConfig::QUILLON_EXCHANGE_LIBS)
