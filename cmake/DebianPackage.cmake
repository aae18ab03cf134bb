# The Debian package, made by CPack: what it holds beside the programs, and what dpkg is told of it. script/package calls it.
set(debian ${PROJECT_SOURCE_DIR}/packaging/debian)
set(documents ${CMAKE_INSTALL_DATADIR}/doc/ravlin)

install(FILES ${debian}/copyright DESTINATION ${documents})
install(FILES ${PROJECT_SOURCE_DIR}/CHANGELOG.md DESTINATION ${documents} RENAME changelog)
install(FILES ${debian}/changelog DESTINATION ${documents} RENAME changelog.Debian)
install(FILES ${debian}/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME ravlin)
install(DIRECTORY DESTINATION /etc/ravlin/ports)
# Policy wants these compressed. -n: without the time, so that the same sources make the same package.
install(CODE [[
    set(share $ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/share)
    file(GLOB pages ${share}/man/man1/*.1 ${share}/doc/ravlin/changelog*)
    execute_process(COMMAND gzip -9n ${pages} COMMAND_ERROR_IS_FATAL ANY)]])

set(CPACK_GENERATOR DEB)
set(CPACK_SET_DESTDIR ON) # /etc is not below the prefix
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_NAME ravlin)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR})
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Ravlin developers <maintainers@users.noreply.c-seed-f2fbb3fc.example>")
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
string(JOIN "\n" CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Ravlin prepares bar-code scanners and scales at a point of sale for OPOS"
    "applications: it makes, changes and deletes their profiles, programs scanners"
    "over their serial port, and tests scanners and scales with real labels and"
    "weights. A wizard leads a first-time user through all of it."
    ""
    "ravlin-reg shows and changes the stored profiles from a command line and"
    "exchanges them with Windows machines; ravlin-lane puts scanners and a scale on"
    "virtual serial ports, for a desk without hardware.")
# The libraries are found by dpkg-shlibdeps. Without the plugin for X11, which Qt only recommends, there is no window.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "adduser, qt6-qpa-plugins")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${debian}/postinst ${debian}/postrm)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
