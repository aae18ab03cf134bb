# What cmake --install puts where on a desktop of the XDG kind: the programs, their manual pages, icon and menu entries.
# Nothing of it is read at run time: topics, pictures and icons are in the programs.
include(GNUInstallDirs)

install(TARGETS ravlin ravlin-reg ravlin-lane DESTINATION ${CMAKE_INSTALL_BINDIR})

set(manual ${PROJECT_SOURCE_DIR}/docs/man)
install(FILES ${manual}/ravlin.1 ${manual}/ravlin-reg.1 ${manual}/ravlin-lane.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

set(desktop ${PROJECT_SOURCE_DIR}/packaging/desktop)
install(FILES ${desktop}/org.ravlin.ravlin.desktop ${desktop}/org.ravlin.lane.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${desktop}/org.ravlin.ravlin.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

set(theme ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
set(rendered ${PROJECT_BINARY_DIR}/resources)
install(FILES ${PROJECT_SOURCE_DIR}/resources/icons/ravlin.svg DESTINATION ${theme}/scalable/apps)
foreach(size 16 32 48 64 128 256)
    install(FILES ${rendered}/icons/ravlin-${size}.png DESTINATION ${theme}/${size}x${size}/apps RENAME ravlin.png)
endforeach()
foreach(size 22 24 512)
    install(FILES ${rendered}/desktop/ravlin-${size}.png DESTINATION ${theme}/${size}x${size}/apps RENAME ravlin.png)
endforeach()
