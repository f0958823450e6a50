# InHook.dll, the recorder's hook procedures: a library of its own that the
# system maps into other processes, so it links nothing of the program. Its
# exports are named by hooklib/inhook.def, undecorated.
add_library(InHook SHARED ${CMAKE_SOURCE_DIR}/hooklib/inhook_win.cpp ${CMAKE_SOURCE_DIR}/hooklib/inhook.def)
set_target_properties(InHook PROPERTIES PREFIX "" RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR})
target_compile_options(InHook PRIVATE ${KW_WARNINGS})
target_link_options(InHook PRIVATE ${KW_STATIC_RUNTIME})
target_link_libraries(InHook PRIVATE user32)
