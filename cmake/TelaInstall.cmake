# What `cmake --install` and the Debian package put where. The programs find their files relative to
# themselves, so any prefix serves.
include(GNUInstallDirs)

install(TARGETS tela_console tela_catalogue tela_table)
install(DIRECTORY reports DESTINATION ${CMAKE_INSTALL_DATADIR}/tela)
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR})

if(TELA_OFFICE)
  install(TARGETS tela_office DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/tela)
endif()

if(TELA_DESKTOP)
  set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
  install(TARGETS tela_reports)
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
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The reports are laid out for this font: in a wider one headings and names are shortened.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libreoffice-calc, tdsodbc")
include(CPack)
