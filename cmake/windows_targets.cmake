# Windows build (MinGW-w64 cross build): Klickwerk.exe, InHook.dll and the
# end-to-end fixtures. The C and C++ runtimes are linked statically so the
# program needs no DLLs beyond the system's.
enable_language(RC)
set(KW_STATIC_RUNTIME -static -static-libgcc -static-libstdc++)

# The pictures (program icon, the grid's background, the window picker) are
# drawn by a script, so they are data kept in the repository as code, not
# hand-made files.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(KW_PICTURES_DIR ${CMAKE_BINARY_DIR}/generated/pictures)
set(KW_PICTURES ${KW_PICTURES_DIR}/klickwerk.ico ${KW_PICTURES_DIR}/grid_background.bmp
    ${KW_PICTURES_DIR}/picker_full.ico ${KW_PICTURES_DIR}/picker_empty.ico)
add_custom_command(
  OUTPUT ${KW_PICTURES}
  COMMAND ${Python3_EXECUTABLE} ${CMAKE_SOURCE_DIR}/tools/make_pictures.py ${KW_PICTURES_DIR}
  DEPENDS ${CMAKE_SOURCE_DIR}/tools/make_pictures.py
  COMMENT "Drawing the program's pictures")

set(KW_RESOURCE_SCRIPT ${CMAKE_SOURCE_DIR}/app/resources/klickwerk.rc)
set_source_files_properties(${KW_RESOURCE_SCRIPT} PROPERTIES
  OBJECT_DEPENDS "${KW_PICTURES};${CMAKE_SOURCE_DIR}/app/resources/klickwerk.manifest;${CMAKE_BINARY_DIR}/generated/version.h")

set(KW_SYSTEM_LIBRARIES comctl32 comdlg32 shell32 shlwapi advapi32 uxtheme wininet winmm gdi32 user32 kernel32)
# The program uses the ANSI calls throughout; Windows 7 is the oldest system
# whose headers it needs (GetDpiForWindow is looked up at run time).
foreach(library ${KW_LAYER_LIBRARIES})
  target_compile_definitions(${library} PUBLIC WINVER=0x0601 _WIN32_WINNT=0x0601 _WIN32_IE=0x0800
    NOMINMAX WIN32_LEAN_AND_MEAN)
  target_compile_options(${library} PRIVATE -Wno-missing-field-initializers)
  target_link_libraries(${library} PUBLIC ${KW_SYSTEM_LIBRARIES})
endforeach()

add_executable(Klickwerk WIN32 ${CMAKE_SOURCE_DIR}/app/winmain_win.cpp ${KW_RESOURCE_SCRIPT})
target_include_directories(kw_app PRIVATE ${CMAKE_SOURCE_DIR}/app/resources)
set(KW_RESOURCE_INCLUDES ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/app/resources ${KW_PICTURES_DIR} ${CMAKE_BINARY_DIR}/generated)
target_include_directories(Klickwerk PRIVATE ${KW_RESOURCE_INCLUDES})
target_compile_options(Klickwerk PRIVATE $<$<COMPILE_LANGUAGE:CXX>:${KW_WARNINGS} -Wno-missing-field-initializers>)
target_link_libraries(Klickwerk PRIVATE kw_app)
target_link_options(Klickwerk PRIVATE ${KW_STATIC_RUNTIME})

# End-to-end fixtures (the probe that logs the input it receives, the test
# driver that reads the program's controls from outside) and the programs
# that the performance report measures.
include(${CMAKE_SOURCE_DIR}/cmake/hook_library.cmake)
include(${CMAKE_SOURCE_DIR}/tests/e2e/fixtures.cmake OPTIONAL)
include(${CMAKE_SOURCE_DIR}/bench/wine/wine_benchmarks.cmake OPTIONAL)
include(${CMAKE_SOURCE_DIR}/cmake/help.cmake)
include(${CMAKE_SOURCE_DIR}/cmake/package.cmake)
