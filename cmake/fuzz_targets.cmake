# libFuzzer targets: one executable fuzz_<name> per tests/fuzz/fuzz_<name>.cpp,
# with the fakes of tests/fakes/ and the shared rig of tests/fuzz/. The target
# "fuzz_targets" builds them all; tools/fuzz.sh runs them over their corpora
# (tests/fuzz/corpus/<name>/).
file(GLOB KW_FUZZERS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/fuzz/fuzz_*.cpp)
file(GLOB KW_FUZZ_RIG CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/fuzz/rig/*.cpp)
add_library(kw_fuzz_rig STATIC ${KW_FAKES} ${KW_FUZZ_RIG})
target_include_directories(kw_fuzz_rig PUBLIC ${CMAKE_SOURCE_DIR}/tests)
target_compile_options(kw_fuzz_rig PRIVATE ${KW_WARNINGS})
target_link_libraries(kw_fuzz_rig PUBLIC kw_app)
add_custom_target(fuzz_targets)
foreach(fuzzer ${KW_FUZZERS})
  get_filename_component(name ${fuzzer} NAME_WE)
  add_executable(${name} ${fuzzer})
  target_compile_options(${name} PRIVATE ${KW_WARNINGS})
  target_link_libraries(${name} PRIVATE kw_fuzz_rig)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  add_dependencies(fuzz_targets ${name})
endforeach()
