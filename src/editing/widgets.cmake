target_sources(quillon_ui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/ParamPage.cpp
)
