# What ships and where it goes: on Windows all in one folder that can be carried about, elsewhere
# by the customs of /usr.

set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)  # the program alone, not its tests
set(velquist_manual ${PROJECT_SOURCE_DIR}/assets/resources/manual.txt)

if(WIN32)
  install(TARGETS velquist velquist_cli_program RUNTIME DESTINATION .)
  install(DIRECTORY assets/program/ DESTINATION .)
  install(FILES ${velquist_manual} DESTINATION . RENAME "Velquist Manual.txt")
  install(FILES LICENSE DESTINATION Licences RENAME Velquist.txt)
  # Of everything that is linked into the one file; and the texts that Debian keeps once for all,
  # where one of these refers to them.
  function(install_licence file name)
    install(FILES ${file} DESTINATION Licences RENAME ${name}.txt)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    file(READ ${file} text)
    string(REGEX MATCHALL "/usr/share/common-licenses/[A-Za-z0-9.-]*[A-Za-z0-9]" commons "${text}")
    foreach(common ${commons})
      file(REAL_PATH ${common} common)  # LGPL is a link to the newest
      get_filename_component(name ${common} NAME)
      install(FILES ${common} DESTINATION Licences RENAME ${name}.txt)
    endforeach()
  endfunction()
  foreach(library wxwidgets3.2 libjpeg-turbo zlib)
    install_licence(${VELQUIST_WINDOWS_LIBRARIES}/share/doc/${library}/copyright ${library})
  endforeach()
  foreach(library libcli11-dev nlohmann-json3-dev)
    install_licence(/usr/share/doc/${library}/copyright ${library})
  endforeach()
  install_licence(/usr/share/doc/gcc-mingw-w64-base/copyright gcc-runtime)
  install_licence(/usr/share/doc/mingw-w64-x86-64-dev/copyright mingw-w64-runtime)
  return()
endif()

include(GNUInstallDirs)
set(velquist_doc ${CMAKE_INSTALL_DATADIR}/doc/velquist)
install(TARGETS velquist velquist_cli_program RUNTIME)
install(DIRECTORY assets/program/ DESTINATION ${CMAKE_INSTALL_DATADIR}/velquist)
install(FILES packaging/linux/velquist.desktop
  DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/linux/org.velquist.Velquist.metainfo.xml
  DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
foreach(size 16 24 32 48 64 128 256)
  install(FILES assets/icon/velquist-${size}.png RENAME velquist.png
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()
install(FILES assets/icon/velquist.svg
  DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES packaging/linux/copyright DESTINATION ${velquist_doc})

# The manual with this system's line ends; manual page and changes packed as is the custom.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
  ${velquist_manual} CHANGELOG.md packaging/linux/changelog packaging/linux/velquist.1.in
  packaging/linux/velquist-cli.1.in)
file(READ ${velquist_manual} manual)
string(REPLACE "\r\n" "\n" manual "${manual}")
file(WRITE ${PROJECT_BINARY_DIR}/doc/manual.txt "${manual}")
install(FILES ${PROJECT_BINARY_DIR}/doc/manual.txt DESTINATION ${velquist_doc})
find_program(GZIP gzip REQUIRED)
foreach(page velquist.1 velquist-cli.1)
  configure_file(packaging/linux/${page}.in ${PROJECT_BINARY_DIR}/doc/${page} @ONLY)
  execute_process(COMMAND ${GZIP} -9nc ${PROJECT_BINARY_DIR}/doc/${page}
    OUTPUT_FILE ${PROJECT_BINARY_DIR}/doc/${page}.gz COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${PROJECT_BINARY_DIR}/doc/${page}.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()
install(FILES packaging/linux/velquist-cli.bash RENAME velquist-cli
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
execute_process(COMMAND ${GZIP} -9nc ${PROJECT_SOURCE_DIR}/CHANGELOG.md
  OUTPUT_FILE ${PROJECT_BINARY_DIR}/doc/changelog.gz COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${GZIP} -9nc ${PROJECT_SOURCE_DIR}/packaging/linux/changelog
  OUTPUT_FILE ${PROJECT_BINARY_DIR}/doc/changelog.Debian.gz COMMAND_ERROR_IS_FATAL ANY)
install(FILES ${PROJECT_BINARY_DIR}/doc/changelog.gz ${PROJECT_BINARY_DIR}/doc/changelog.Debian.gz
  DESTINATION ${velquist_doc})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME velquist)
set(CPACK_PACKAGE_VENDOR "Velquist Project")
set(CPACK_PACKAGE_CONTACT "Velquist Project <maintainers@velquist.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Change pressures, springs, dampers, camber, gears and differential of a
setup with arrow buttons and lists, see the engine's torque and power and
the speed bands of the gearing, and write the file back as the game reads
it. Serves the mod years 1965, 1966, 1967, 1969 and GT, with the game in a
Wine prefix or on a mounted drive.")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
