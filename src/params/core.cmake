target_sources(quillon_core PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/Archive.cpp
  ${CMAKE_CURRENT_LIST_DIR}/CatalogueReader.cpp
  ${CMAKE_CURRENT_LIST_DIR}/M330Doc.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ModelSpec.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ModelLimits.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ModelTable.cpp
  ${CMAKE_CURRENT_LIST_DIR}/OptionLists.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ParamNames.cpp
  ${CMAKE_CURRENT_LIST_DIR}/Overlays.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ParamRows.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ParamTable.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ProjectFile.cpp
)
