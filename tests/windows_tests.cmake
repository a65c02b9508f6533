# The tests of a tree for Windows, under Wine.
set(native ${CMAKE_SOURCE_DIR}/build/${QZ7_NATIVE_PRESET}/bin)
qz7_test(native_programs 900 sh -c "cmake --preset ${QZ7_NATIVE_PRESET} && \
cmake --build --preset ${QZ7_NATIVE_PRESET} --target qz7ctl qz7radio")
set_tests_properties(native_programs PROPERTIES FIXTURES_SETUP native_programs)

qz7_wine_test(installed_windows 120 python3 ${CMAKE_CURRENT_SOURCE_DIR}/install_test.py
  ${CMAKE_BINARY_DIR} wine)
qz7_wine_test(version_windows 300 python3 ${CMAKE_CURRENT_SOURCE_DIR}/version_test.py
  ${CMAKE_BINARY_DIR} wine)
if(NOT QZ7_TESTS)
  return()
endif()

qz7_test(clang_tidy_windows 2400 ${CMAKE_SOURCE_DIR}/tools/tidy ${CMAKE_BINARY_DIR})
set_tests_properties(clang_tidy_windows PROPERTIES COST 90)

qz7_wine_test(unit_windows 600 python3 ${system}/with_echo_line.py --wine
  wine $<TARGET_FILE:unit_tests> --gtest_brief=1)
# The focus is one for a whole display: these windows have one of their own.
qz7_test(dialogs_windows 900 env WINEPREFIX=${CMAKE_SOURCE_DIR}/build/dialogs-prefix
  ${CMAKE_SOURCE_DIR}/tools/with-wine wine $<TARGET_FILE:ui_tests> --gtest_brief=1
  --gtest_filter=-RandomUse*)
set_tests_properties(dialogs_windows PROPERTIES COST 85)
qz7_wine_test(random_use 900 wine $<TARGET_FILE:ui_tests> --gtest_brief=1
  --gtest_filter=RandomUse*)
# What the test programs were shown is held against the help.
set(records)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/record)
foreach(part unit_windows dialogs_windows)
  set(record ${CMAKE_BINARY_DIR}/record/${part})
  list(APPEND records ${record})
  set_tests_properties(${part} PROPERTIES FIXTURES_SETUP record ENVIRONMENT QZ7_RECORD=${record})
endforeach()
qz7_test(help_recorded 60 python3 ${CMAKE_CURRENT_SOURCE_DIR}/help/recorded.py ${records})
set_tests_properties(help_recorded PROPERTIES FIXTURES_REQUIRED record)

foreach(part desktop_test desktop_exchange_test desktop_faults_test desktop_help_test
    desktop_paths_test desktop_printing_test desktop_session_test)
  qz7_wine_test(${part} 900 python3 ${system}/${part}.py ${programs} ${native})
  set_tests_properties(${part} PROPERTIES RESOURCE_LOCK desktop
    FIXTURES_REQUIRED native_programs COST 80)
endforeach()
# What is worked by the screen's own keyboard and mouse, on a usual and on a finer one.
foreach(part desktop_drop_test desktop_keys_test desktop_list_test desktop_values_test)
  foreach(dpi 96 144)
    qz7_wine_test(${part}_${dpi} 900 ${CMAKE_COMMAND} -E env QZ7_DPI=${dpi}
      python3 ${system}/${part}.py ${programs} ${native})
    set_tests_properties(${part}_${dpi} PROPERTIES RESOURCE_LOCK desktop
      FIXTURES_REQUIRED native_programs COST 80)
  endforeach()
endforeach()
# A silent line is told by the clock: what plays the radio must not have to wait for its turn.
set_tests_properties(desktop_exchange_test desktop_faults_test PROPERTIES RUN_SERIAL ON)
# Wine asks for the printers once, as long as any of its programs runs: a prefix of its own.
qz7_test(printing 600 env WINEPREFIX=${CMAKE_SOURCE_DIR}/build/printing-prefix
  ${CMAKE_SOURCE_DIR}/tools/with-wine
  python3 ${system}/printing_test.py ${native} ${programs})
set_tests_properties(printing PROPERTIES FIXTURES_REQUIRED native_programs)
qz7_wine_test(console_program_windows 600 python3 ${system}/qz7ctl_windows_test.py ${programs})
