# Painting pages needs fonts and a painter but no widget: quillon_paint serves the desktop and
# the command-line tool alike.
add_library(quillon_paint STATIC ${CMAKE_CURRENT_LIST_DIR}/PrintPainter.cpp)
target_link_libraries(quillon_paint PUBLIC quillon_core Qt6::Gui)

# The compare and print windows.
target_sources(quillon_ui PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/CompareDlg.cpp
  ${CMAKE_CURRENT_LIST_DIR}/CompareUi.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PrintTitleDlg.cpp
  ${CMAKE_CURRENT_LIST_DIR}/PrintUi.cpp
)
target_link_libraries(quillon_ui PUBLIC quillon_paint Qt6::PrintSupport)
