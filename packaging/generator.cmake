# Read once CPack knows which package it makes.
if(CPACK_GENERATOR STREQUAL "NSIS")
  set(CPACK_PACKAGE_FILE_NAME qz7-setup-${CPACK_PACKAGE_VERSION})
endif()
