# GoogleTest: the target's own package where it has one, otherwise built from the distribution's
# source. Under sanitizers always from source: containers that cross into code without them alarm.
if(NOT QZ7_SANITIZE)
  find_package(GTest QUIET)
endif()
if(NOT TARGET GTest::gtest)
  find_path(QZ7_GOOGLETEST CMakeLists.txt PATHS /usr/src/googletest/googletest
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  set(INSTALL_GTEST OFF)
  set(gtest_disable_pthreads OFF)
  add_subdirectory(${QZ7_GOOGLETEST} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
  if(NOT TARGET GTest::gtest)
    add_library(GTest::gtest ALIAS gtest)
  endif()
endif()
