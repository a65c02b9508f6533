# Where things are installed: by the usual folders on Linux; on Windows beside one another, as the
# desktop program looks for its library, font and help in its own folder.
if(WIN32)
  set(QZ7_INSTALL_PROGRAMS .)
  set(QZ7_INSTALL_DOCS .)
  set(QZ7_INSTALL_SAMPLES samples)
else()
  include(GNUInstallDirs)
  set(QZ7_INSTALL_PROGRAMS ${CMAKE_INSTALL_BINDIR})
  set(QZ7_INSTALL_DOCS ${CMAKE_INSTALL_DOCDIR})
  set(QZ7_INSTALL_SAMPLES ${CMAKE_INSTALL_DATADIR}/qz7/samples)
endif()

install(FILES LICENSE README.md DESTINATION ${QZ7_INSTALL_DOCS})
install(DIRECTORY samples/ DESTINATION ${QZ7_INSTALL_SAMPLES})
