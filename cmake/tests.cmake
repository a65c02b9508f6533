# qz7_test(NAME SECONDS COMMAND...): a test of this build tree, run in the top folder.
function(qz7_test name limit)
  add_test(NAME ${name} COMMAND ${ARGN} WORKING_DIRECTORY ${CMAKE_SOURCE_DIR})
  set_tests_properties(${name} PROPERTIES TIMEOUT ${limit})
endfunction()

# The same with a Wine prefix and a display around it, where there are none yet.
function(qz7_wine_test name limit)
  qz7_test(${name} ${limit} ${CMAKE_SOURCE_DIR}/tools/with-wine ${ARGN})
endfunction()
