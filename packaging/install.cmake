# Where an installed Quillon puts its files, and the Debian package made of them (scripts/package.sh).
install(TARGETS quillon quillon-cli r770-sim RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${QUILLON_DATA_DIR}/ DESTINATION ${QUILLON_INSTALL_DATADIR})

# The desktop's menu entry, the icon, and the project file type that opens in the program.
install(FILES ${CMAKE_CURRENT_LIST_DIR}/quillon.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/quillon.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/quillon.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillon)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "configure and monitor R770 variable-frequency inverters")
set(CPACK_PACKAGE_CONTACT "Quillon developers <quillon@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Beside the libraries found by linking: the platform plugins that put a window on the screen.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
# The menu and the file type are taken up by the desktop's own triggers on install.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "shared-mime-info, desktop-file-utils, fonts-wqy-microhei")
include(CPack)
