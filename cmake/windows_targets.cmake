# Windows build (MinGW-w64 cross build): Klickwerk.exe, InHook.dll and the
# end-to-end fixtures. The C and C++ runtimes are linked statically so the
# program needs no DLLs beyond the system's.
enable_language(RC)
set(KW_STATIC_RUNTIME -static -static-libgcc -static-libstdc++)

# End-to-end fixtures: the probe that logs the input it receives, and the
# test driver that reads the program's controls from outside.
include(${CMAKE_SOURCE_DIR}/tests/e2e/fixtures.cmake OPTIONAL)
