# Linux build: the portable behaviour with its unit tests and benchmarks.
enable_testing()
find_package(GTest REQUIRED)
find_package(Threads REQUIRED)

file(GLOB KW_UNIT_TESTS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/unit/*.cpp)
file(GLOB KW_FAKES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/fakes/*.cpp)
add_executable(unit_tests ${KW_UNIT_TESTS} ${KW_FAKES})
target_include_directories(unit_tests PRIVATE ${CMAKE_SOURCE_DIR}/tests)
target_compile_options(unit_tests PRIVATE ${KW_WARNINGS})
target_link_libraries(unit_tests PRIVATE kw_app GTest::gtest GTest::gtest_main Threads::Threads)
include(GoogleTest)
gtest_discover_tests(unit_tests DISCOVERY_TIMEOUT 60)

# The include check must be able to fail: a folder of tests/layers includes
# upward and the check names it.
add_test(NAME layer_check_rejects_an_upward_include
         COMMAND ${CMAKE_COMMAND} -DROOT=${CMAKE_SOURCE_DIR}/tests/layers
                 -DTABLE=${CMAKE_SOURCE_DIR}/tests/layers/architecture.md
                 -P ${CMAKE_SOURCE_DIR}/cmake/check_layers.cmake)
set_tests_properties(layer_check_rejects_an_upward_include PROPERTIES
  PASS_REGULAR_EXPRESSION "core/upward.h: #include \"app/window.h\"")

find_package(benchmark QUIET)
if(benchmark_FOUND)
  file(GLOB KW_BENCHES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/bench/*.cpp)
  foreach(bench ${KW_BENCHES})
    get_filename_component(name ${bench} NAME_WE)
    add_executable(${name} ${bench} ${KW_FAKES})
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_compile_options(${name} PRIVATE ${KW_WARNINGS})
    target_link_libraries(${name} PRIVATE kw_app benchmark::benchmark Threads::Threads)
  endforeach()
endif()

if(KW_FUZZ)
  include(${CMAKE_CURRENT_LIST_DIR}/fuzz_targets.cmake)
endif()
