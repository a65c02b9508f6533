# The tests of a tree for this machine.
if(QZ7_TESTS)
  qz7_test(unit_native 600 python3 ${system}/with_echo_line.py $<TARGET_FILE:unit_tests>
    --gtest_brief=1)
  qz7_test(windows_model 300 $<TARGET_FILE:model_tests> --gtest_brief=1)
  qz7_test(clang_tidy_native 1200 ${CMAKE_SOURCE_DIR}/tools/tidy ${CMAKE_BINARY_DIR})
  set_tests_properties(clang_tidy_native PROPERTIES COST 100)
endif()
foreach(part send faults terminal)
  qz7_test(stand_in_radio_${part} 600
    python3 ${system}/qz7radio_${part}_test.py $<TARGET_FILE:qz7radio>)
endforeach()
qz7_test(console_program 900 python3 ${system}/qz7ctl_test.py ${programs})
qz7_test(console_codeplug 600 python3 ${system}/qz7ctl_codeplug_test.py ${programs})
qz7_test(codeplug_schema 300 python3 ${system}/codeplug_schema_test.py ${programs})
qz7_test(console_import 300 python3 ${system}/qz7ctl_import_test.py ${programs})
qz7_test(console_editing 600 python3 ${system}/qz7ctl_edit_test.py ${programs})
qz7_test(exchange_faults 900 python3 ${system}/faults_test.py ${programs})
qz7_test(random_exchanges 600 python3 ${system}/random_exchanges_test.py ${programs})
qz7_test(help 300 python3 ${CMAKE_CURRENT_SOURCE_DIR}/help/help_test.py ${programs} ${programs})
qz7_test(installed_native 120 python3 ${CMAKE_CURRENT_SOURCE_DIR}/install_test.py
  ${CMAKE_BINARY_DIR})
qz7_test(version_native 60 python3 ${CMAKE_CURRENT_SOURCE_DIR}/version_test.py ${CMAKE_BINARY_DIR})
qz7_test(source_rules 300 python3 ${CMAKE_CURRENT_SOURCE_DIR}/source_rules_test.py)
