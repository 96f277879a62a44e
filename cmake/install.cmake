# Where the program lies once installed: program and data in one folder of their own, for the program looks
# for its lists beside itself; the names to call it by are links in bin.
include(GNUInstallDirs)
set(home ${CMAKE_INSTALL_LIBDIR}/omnivanex)

set(programs vanexc)
set(links vanexc:vanexc)
if(TARGET vanex)
  list(APPEND programs vanex)
  # The sides by name: one program, which looks at what it was started as.
  list(APPEND links vanex:vanex vanexw:vanex vanexv:vanex)
endif()
install(TARGETS ${programs} RUNTIME DESTINATION ${home})
install(FILES ${shipped} DESTINATION ${home})
file(RELATIVE_PATH upward /${CMAKE_INSTALL_BINDIR} /${home})
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/links)
foreach(pair ${links})
  string(REPLACE ":" ";" pair ${pair})
  list(GET pair 0 name)
  list(GET pair 1 program)
  file(CREATE_LINK ${upward}/${program} ${CMAKE_BINARY_DIR}/links/${name} SYMBOLIC)
  install(FILES ${CMAKE_BINARY_DIR}/links/${name} DESTINATION ${CMAKE_INSTALL_BINDIR})
endforeach()

install(FILES resources/man/vanexc.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
if(TARGET vanex)
  install(FILES resources/man/vanex.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  foreach(name vanexw vanexv) # one page for the program and the names of its sides
    file(WRITE ${CMAKE_BINARY_DIR}/links/${name}.1 ".so man1/vanex.1\n")
    install(FILES ${CMAKE_BINARY_DIR}/links/${name}.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  endforeach()
  install(FILES resources/omnivanex.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES resources/omnivanex.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES resources/omnivanex-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
          RENAME omnivanex.xml)
  install(FILES resources/icons/omnivanex.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME omnivanex)
set(CPACK_PACKAGE_CONTACT "OmniVANEX <omnivanex@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "plotting and statistics workbench for life and failure data")
set(CPACK_PACKAGE_DESCRIPTION "Type or load failures, suspensions, inspections and intervals, and get a
fitted line, its confidence bounds, a report and a plot, for the Weibull, lognormal, normal and Gumbel
families. With a desktop, a console program and a script channel.")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What no linker sees: the plugin that paints icons, and a font; without one every letter is a box.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6widgets6, libqt6printsupport6, libqt6svg6, fonts-dejavu-core")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
