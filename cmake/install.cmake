# Where things are installed: by the usual folders on Linux; on Windows beside one another, as the
# desktop program looks for its library, font and help in its own folder.
if(WIN32)
  set(QZ7_INSTALL_PROGRAMS .)
  set(QZ7_INSTALL_DOCS .)
  set(QZ7_INSTALL_SAMPLES samples)
  set(QZ7_INSTALL_DATA .)
else()
  include(GNUInstallDirs)
  set(QZ7_INSTALL_PROGRAMS ${CMAKE_INSTALL_BINDIR})
  set(QZ7_INSTALL_DOCS ${CMAKE_INSTALL_DOCDIR})
  set(QZ7_INSTALL_DATA ${CMAKE_INSTALL_DATADIR}/qz7)
  set(QZ7_INSTALL_SAMPLES ${QZ7_INSTALL_DATA}/samples)
endif()

install(FILES LICENSE README.md DESTINATION ${QZ7_INSTALL_DOCS})
install(FILES docs/codeplug.schema.json DESTINATION ${QZ7_INSTALL_DATA})
install(DIRECTORY samples/ DESTINATION ${QZ7_INSTALL_SAMPLES})
