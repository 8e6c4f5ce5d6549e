# Where `cmake --install` puts the programs and their files (the usual places of a Linux desktop),
# and the Debian package that CPack makes of them (scripts/package).
include(GNUInstallDirs)

set(CORVANDEL_APP_ID de.corvandel.Corvandel)
install(TARGETS corvandel corvandel-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# Translations::folders() looks in ../share/corvandel/translations beside the program.
install(FILES ${CORVANDEL_QM_FILES} DESTINATION ${CMAKE_INSTALL_DATADIR}/corvandel/translations)
install(FILES ${PROJECT_SOURCE_DIR}/data/${CORVANDEL_APP_ID}.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/data/${CORVANDEL_APP_ID}.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${PROJECT_SOURCE_DIR}/data/${CORVANDEL_APP_ID}.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME corvandel)
set(CPACK_PACKAGE_VENDOR "The Corvandel developers")
set(CPACK_PACKAGE_CONTACT "The Corvandel developers <corvandel@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
string(CONCAT CPACK_PACKAGE_DESCRIPTION
    "Corvandel edits the channel lists (lamedb, bouquets, picons) of Enigma2 receivers: it loads "
    "them from the receiver over FTP or from a folder, edits bouquets, and sends them back after a "
    "backup. corvandel-cli checks, reads and exchanges lists without a window.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
# The libraries come from dpkg-shlibdeps; curl is run as a program, so it is named here.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "curl")
# Qt's own texts (standard buttons, command-line help) in the chosen language, and a secret service
# for the box password (without one it is kept in a file only its owner can read).
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "gnome-keyring")
include(CPack)
