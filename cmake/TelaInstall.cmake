# What `cmake --install` and the Debian package put where. The programs find their files relative to
# themselves, so any prefix serves.
include(GNUInstallDirs)

install(TARGETS tela_console tela_catalogue tela_table)
install(DIRECTORY reports DESTINATION ${CMAKE_INSTALL_DATADIR}/tela)
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES resources/linux/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})

# tela_compress(SOURCE DESTINATION): installs a file as the distribution wants its manuals: compressed,
# without the moment of it.
function(tela_compress source destination)
  cmake_path(GET source FILENAME name)
  set(compressed "${CMAKE_BINARY_DIR}/compressed/${name}.gz")
  add_custom_command(
    OUTPUT "${compressed}"
    COMMAND gzip -9nc "${CMAKE_SOURCE_DIR}/${source}" > "${compressed}"
    DEPENDS "${CMAKE_SOURCE_DIR}/${source}" VERBATIM)
  add_custom_target(tela_compressed_${name} ALL DEPENDS "${compressed}")
  install(FILES "${compressed}" DESTINATION ${destination})
endfunction()
file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/compressed")
tela_compress(resources/linux/changelog ${CMAKE_INSTALL_DOCDIR})
foreach(program tela_console tela_catalogue tela_table)
  tela_compress(resources/linux/man/${program}.1 ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()

if(TELA_OFFICE)
  install(TARGETS tela_office DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/tela)
endif()

if(TELA_DESKTOP)
  set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
  install(TARGETS tela_reports)
  tela_compress(resources/linux/man/tela_reports.1 ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES resources/linux/tela-reports.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES resources/linux/org.tela.Reports.metainfo.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES resources/tela-reports.svg DESTINATION ${icons}/scalable/apps)
  foreach(size 48 128 256)
    install(FILES resources/linux/tela-reports-${size}.png DESTINATION ${icons}/${size}x${size}/apps
            RENAME tela-reports.png)
  endforeach()
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "The Tela developers <developers@tela.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DESCRIPTION
    "Reads the bills, items and purchases that the tills of a supermarket have\nstored, and turns them into what the owner and the accountant ask for: sales by\nbill, item, category and supplier, profit, stock, purchases, GST with its\nsheets, and charts. The catalogue is a file on the shop's machine or a database\nserver.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The reports are laid out for this font: in a wider one headings and names are shortened.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libreoffice-calc, tdsodbc")
include(CPack)
