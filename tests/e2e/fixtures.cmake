# End-to-end fixtures, built with the Windows program: probe.exe logs the
# input and window events it receives; kwdriver.exe reads and operates other
# programs' controls from outside. All land beside Klickwerk.exe.
add_executable(probe WIN32 ${CMAKE_CURRENT_LIST_DIR}/probe/probe_win.cpp)

file(GLOB KW_DRIVER_SOURCES CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/driver/*_win.cpp)
add_executable(kwdriver ${KW_DRIVER_SOURCES})
target_link_libraries(kwdriver PRIVATE comctl32 winmm psapi)

foreach(fixture probe kwdriver)
  target_compile_options(${fixture} PRIVATE ${KW_WARNINGS})
  target_link_options(${fixture} PRIVATE ${KW_STATIC_RUNTIME})
  set_target_properties(${fixture} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
endforeach()

# The tests themselves run on the build host: ctest in this build tree runs
# each test module under Wine through the harness.
find_program(KW_PYTHON3 python3)
if(KW_PYTHON3)
  enable_testing()
  file(GLOB KW_E2E_TESTS CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/test_*.py)
  foreach(test_file ${KW_E2E_TESTS})
    get_filename_component(test_name ${test_file} NAME_WE)
    add_test(NAME e2e.${test_name}
             COMMAND ${KW_PYTHON3} ${CMAKE_CURRENT_LIST_DIR}/run_e2e.py --build ${CMAKE_BINARY_DIR} ${test_name})
    set_tests_properties(e2e.${test_name} PROPERTIES RUN_SERIAL TRUE TIMEOUT 600)
  endforeach()
endif()

# A program of the program's own code and resources (its manifest: common
# controls 6 and per-monitor DPI awareness), beside Klickwerk.exe.
function(kw_program_fixture name source library)
  add_executable(${name} ${source} ${KW_RESOURCE_SCRIPT})
  target_include_directories(${name} PRIVATE ${KW_RESOURCE_INCLUDES})
  target_compile_options(${name} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:${KW_WARNINGS}>)
  target_link_libraries(${name} PRIVATE ${library})
  target_link_options(${name} PRIVATE ${KW_STATIC_RUNTIME})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
endfunction()

# The custom controls in a window of their own, as a host shows them.
kw_program_fixture(controls_fixture ${CMAKE_CURRENT_LIST_DIR}/controls_fixture/controls_fixture_win.cpp kw_controls)

# InHook.dll without one of its exports, for the recorder's failure cases:
# hook-variants/InHook-without-<export>.dll.
file(STRINGS ${CMAKE_SOURCE_DIR}/hooklib/inhook.def KW_HOOK_DEF_LINES)
foreach(missing MouseProc InitMouse)
  set(lines ${KW_HOOK_DEF_LINES})
  list(FILTER lines EXCLUDE REGEX "^ *${missing}$")
  list(JOIN lines "\n" text)
  file(WRITE ${CMAKE_BINARY_DIR}/generated/InHook-without-${missing}.def "${text}\n")
  kw_hook_library(InHook-without-${missing} ${CMAKE_BINARY_DIR}/generated/InHook-without-${missing}.def
                  ${CMAKE_BINARY_DIR}/hook-variants)
endforeach()

# The internet client INetClass driven from the command line, for the FTP
# operations against a loopback server.
kw_program_fixture(inet_fixture ${CMAKE_CURRENT_LIST_DIR}/inet_fixture/inet_fixture_win.cpp kw_app)
