# InHook.dll, the recorder's hook procedures: a library of its own that the
# system maps into other processes, so it links nothing of the program. Its
# exports are named by a .def file, undecorated.
function(kw_hook_library target def folder)
  add_library(${target} SHARED ${CMAKE_SOURCE_DIR}/hooklib/inhook_win.cpp ${def})
  set_target_properties(${target} PROPERTIES PREFIX "" RUNTIME_OUTPUT_DIRECTORY ${folder})
  target_compile_options(${target} PRIVATE ${KW_WARNINGS})
  target_link_options(${target} PRIVATE ${KW_STATIC_RUNTIME})
  target_link_libraries(${target} PRIVATE user32)
endfunction()

kw_hook_library(InHook ${CMAKE_SOURCE_DIR}/hooklib/inhook.def ${CMAKE_BINARY_DIR})
