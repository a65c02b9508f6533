# What ./package makes of a tree: of one for Windows the setup and the zip, of one for Linux the
# Debian package, of either the archive of the sources. All of it from the install rules.
set(CPACK_PACKAGE_NAME qz7)
set(CPACK_PACKAGE_VENDOR "Tamro")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "memory programmer for the QZ-7H handheld radio")
set(CPACK_RESOURCE_FILE_LICENSE ${CMAKE_SOURCE_DIR}/LICENSE)
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_SOURCE_DIR}/packaging/generator.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/packaging/stage.cmake)
set(CPACK_MODULE_PATH ${CMAKE_SOURCE_DIR}/packaging)
set(CPACK_EXTERNAL_ENABLE_STAGING ON)
set(CPACK_EXTERNAL_PACKAGE_SCRIPT ${CMAKE_SOURCE_DIR}/packaging/archive.cmake)
set(CPACK_VERBATIM_VARIABLES ON)

set(CPACK_SOURCE_GENERATOR External)
set(CPACK_SOURCE_PACKAGE_FILE_NAME qz7-${PROJECT_VERSION})
set(CPACK_SOURCE_IGNORE_FILES /build/ /out/ /dist/ /\\.git/ /\\.git$ /\\.cache/ __pycache__)

if(WIN32)
  set(CPACK_GENERATOR NSIS External)
  set(CPACK_PACKAGE_FILE_NAME qz7-${PROJECT_VERSION}-windows)
  set(CPACK_QZ7_PICTURES ${CMAKE_SOURCE_DIR}/resources/pictures)
else()
  set(CPACK_GENERATOR DEB)
  set(CPACK_STRIP_FILES ON)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The QZ-7H Programmer developers <qz7@packages.invalid>")
  set(CPACK_DEBIAN_PACKAGE_SECTION hamradio)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
  set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"The console program qz7ctl reads the memory of a QZ-7H radio over its cable,
keeps it in a file, edits it, imports lists of channels, and writes it back.
.
With it comes qz7radio, a stand-in for the radio on a pseudo-terminal.")
  # A list of changes that Debian's tools read.
  string(TIMESTAMP package_date "%a, %d %b %Y %H:%M:%S +0000" UTC)
  configure_file(packaging/debian_changelog.in debian_changelog)
  install(FILES ${CMAKE_BINARY_DIR}/debian_changelog DESTINATION ${QZ7_INSTALL_DOCS}
    RENAME changelog)
endif()
include(CPack)
