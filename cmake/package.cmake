# The Debian package: `cmake --build build --target package` gives vorlan_<version>_amd64.deb. The program
# goes to /usr/bin and what ships with it to /usr/share/vorlan, where the program looks for it when its
# own folder does not hold the library; the user's return files are made in ~/.local/share/Vorlan.
set(VORLAN_ID org.vorlan.Vorlan)
set(VORLAN_PACKAGE_FILES ${CMAKE_SOURCE_DIR}/data/package)

install(TARGETS vorlan RUNTIME DESTINATION bin)
install(FILES ${VORLAN_PROGRAM_DIR}/0909214SD01.mdb ${VORLAN_PROGRAM_DIR}/1309214SD02.mdb
              ${VORLAN_PROGRAM_DIR}/1509214SD03.mdb
        DESTINATION share/vorlan)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/data/program/ DESTINATION share/vorlan)
install(FILES ${VORLAN_PACKAGE_FILES}/${VORLAN_ID}.desktop DESTINATION share/applications)
install(FILES ${VORLAN_PACKAGE_FILES}/${VORLAN_ID}.svg DESTINATION share/icons/hicolor/scalable/apps)
install(FILES ${VORLAN_PACKAGE_FILES}/${VORLAN_ID}.png DESTINATION share/icons/hicolor/256x256/apps)
install(FILES ${VORLAN_PACKAGE_FILES}/${VORLAN_ID}.metainfo.xml DESTINATION share/metainfo)
install(FILES ${VORLAN_PACKAGE_FILES}/copyright DESTINATION share/doc/vorlan)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vorlan)
set(CPACK_PACKAGE_VENDOR Vorlan)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Kerala VAT laws, and the monthly VAT return registers")
set(CPACK_PACKAGE_DESCRIPTION
  "A desktop reference on the VAT law of Kerala (Act, Rules, Circulars, Notifications, Schedules,
Judgements, Forms) for tax practitioners and dealers, and beside it the monthly return registers:
purchase and sales bills, rate-wise totals, the monthly summary, the return pages, printed registers.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Vorlan developers <vorlan@localhost>")
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Malayalam text, and fonts metric-compatible with those the documents name; none is a linked library.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-smc-meera, fonts-liberation2, fonts-dejavu-core")
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
include(CPack)
