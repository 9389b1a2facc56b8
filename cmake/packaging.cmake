# Installation and the Debian package: the program in bin, its read-only files in share/homebook, the
# menu entry, icons and AppStream data where the desktop looks for them.
include(GNUInstallDirs)

set(HB_SHARE_DIR ${CMAKE_INSTALL_DATADIR}/homebook)
# The program finds its share folder relative to itself, so an unpacked package works from any root.
file(RELATIVE_PATH HB_SHARE_FROM_BIN /${CMAKE_INSTALL_BINDIR} /${HB_SHARE_DIR})
set_property(SOURCE ${CMAKE_SOURCE_DIR}/core/datafolder.cpp APPEND PROPERTY
  COMPILE_DEFINITIONS HB_SHARE_FROM_BIN="${HB_SHARE_FROM_BIN}/")

set(HB_PACKAGING ${CMAKE_SOURCE_DIR}/packaging)
set(HB_APP_ID org.homebook.Homebook)

install(TARGETS homebook RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS homebook-mdbreader RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/homebook)
install(FILES ${HB_BIN_DIR}/Data/hb10db.shell ${HB_BIN_DIR}/Data/export.mdb DESTINATION ${HB_SHARE_DIR})
install(DIRECTORY ${CMAKE_SOURCE_DIR}/help/ DESTINATION ${HB_SHARE_DIR}/help)
install(FILES ${HB_PACKAGING}/${HB_APP_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${HB_PACKAGING}/${HB_APP_ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${HB_PACKAGING}/homebook.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(size 48 256)
  install(FILES ${HB_PACKAGING}/homebook-${size}.png DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
    RENAME homebook.png)
endforeach()

# The screenshots of the AppStream data, taken of the real windows by a test of the reports ("screenshots"
# target; the package carries them when they were taken, and the project's site shows the same pictures).
if(TARGET test_reports)
  set(HB_SCREENSHOTS ${CMAKE_BINARY_DIR}/screenshots)
  add_custom_target(screenshots
    COMMAND ${CMAKE_COMMAND} -E make_directory ${HB_SCREENSHOTS}
    COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen HB_SCREENSHOT_DIR=${HB_SCREENSHOTS}
            $<TARGET_FILE:test_reports> --gtest_filter=PackageScreenshots.*
    DEPENDS test_reports shells helpfiles
    WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/tests
    COMMENT "Taking the screenshots of the AppStream data"
    VERBATIM)
  install(DIRECTORY ${HB_SCREENSHOTS}/ DESTINATION ${HB_SHARE_DIR}/screenshots OPTIONAL)
endif()

# Debian wants its changelog and the manual page compressed, the same bytes at every build.
set(HB_DOC_DIR ${CMAKE_INSTALL_DATADIR}/doc/homebook)
set(HB_GZIPPED ${CMAKE_BINARY_DIR}/packaging)
find_program(HB_GZIP gzip REQUIRED)
add_custom_command(
  OUTPUT ${HB_GZIPPED}/changelog.gz ${HB_GZIPPED}/homebook.1.gz
  COMMAND ${CMAKE_COMMAND} -E make_directory ${HB_GZIPPED}
  COMMAND ${HB_GZIP} -9nc ${HB_PACKAGING}/changelog > ${HB_GZIPPED}/changelog.gz
  COMMAND ${HB_GZIP} -9nc ${HB_PACKAGING}/homebook.1 > ${HB_GZIPPED}/homebook.1.gz
  DEPENDS ${HB_PACKAGING}/changelog ${HB_PACKAGING}/homebook.1)
add_custom_target(packagingdocs ALL DEPENDS ${HB_GZIPPED}/changelog.gz ${HB_GZIPPED}/homebook.1.gz)
install(FILES ${HB_PACKAGING}/copyright ${HB_GZIPPED}/changelog.gz DESTINATION ${HB_DOC_DIR})
install(FILES ${HB_GZIPPED}/homebook.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME homebook)
set(CPACK_PACKAGE_VENDOR "Homebook developers")
set(CPACK_PACKAGE_CONTACT "Homebook developers <dev@homebook.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "address book with reports, labels and envelopes")
set(CPACK_PACKAGE_DESCRIPTION "Homebook keeps the addresses of households, families and firms with the
people in them, their phone numbers, e-mail addresses and birthdays. It prints
address, phone, detail, custom and birthday reports, and makes labels,
envelopes, post cards and note cards with a page preview.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://homebook.org/)
# Qt, SQLite, libcsv and whatever else the program links come from the libraries it needs.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS glabels-data)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
include(CPack)
