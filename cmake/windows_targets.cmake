# Windows build (MinGW-w64 cross build): Klickwerk.exe, InHook.dll and the
# end-to-end fixtures. The C and C++ runtimes are linked statically so the
# program needs no DLLs beyond the system's.
enable_language(RC)
set(KW_STATIC_RUNTIME -static -static-libgcc -static-libstdc++)
