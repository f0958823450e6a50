# Programs that the performance report (bench_wine.py) runs under Wine
# beside Klickwerk.exe: reference.exe, the bare window program measured as
# the reference; wait_bench.exe, the responsive wait on the program's own
# clock; grid_bench.exe, a long script read into the shown main window and
# saved again.
add_executable(reference WIN32 ${CMAKE_CURRENT_LIST_DIR}/reference_win.cpp)
add_executable(wait_bench ${CMAKE_CURRENT_LIST_DIR}/wait_bench_win.cpp)
target_link_libraries(wait_bench PRIVATE kw_platform)
foreach(bench reference wait_bench)
  target_compile_options(${bench} PRIVATE ${KW_WARNINGS})
  target_link_options(${bench} PRIVATE ${KW_STATIC_RUNTIME})
  set_target_properties(${bench} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
endforeach()

kw_program_fixture(grid_bench ${CMAKE_CURRENT_LIST_DIR}/grid_bench_win.cpp kw_app)
