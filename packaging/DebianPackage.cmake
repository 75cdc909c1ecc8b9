# `cpack -G DEB` in the build folder makes the package (scripts/package.sh does all of it).
find_program(TAVO_GZIP gzip)
mark_as_advanced(TAVO_GZIP)
if(TAVO_GZIP)
  set(changelog ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz)
  add_custom_command(
    OUTPUT ${changelog}
    COMMAND ${TAVO_GZIP} -9nc ${CMAKE_CURRENT_SOURCE_DIR}/debian/changelog > ${changelog}
    DEPENDS debian/changelog)
  add_custom_target(changelog ALL DEPENDS ${changelog})
  install(FILES ${changelog} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tavocalendar)
endif()
install(FILES debian/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/tavocalendar)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tavocalendar)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Tavo Calendar developers <developers@tavocalendar.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "calendar with alarms, reminders and handwritten notes")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "A clock, a month, a day: appointments, alarms, holidays and anniversaries in
a store of their own, handwriting on every day and every appointment,
reminders that come also while the calendar is closed, and undo for everything. Calendars of other programs
come in and go out as iCalendar files.
.
The command tavo does the same from a terminal.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ
    WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Loaded by name, so that nothing else tells of them.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "tzdata, fonts-liberation, libqt6svg6")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-comic-neue, qt6-wayland, dbus-user-session")
include(CPack)
