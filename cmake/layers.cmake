# The subsystem folders as libraries. docs/architecture.md holds the one table
# of which folder may include which; this file reads it, links each folder's
# library to the folders it may use, and runs check_layers.cmake before any of
# them compiles, so an include that points upward fails the build.
#
# kw_layer_library(folder) is defined for every folder of the table that holds
# sources: kw_<folder>, with its *_win.cpp files only in the Windows build.

set(KW_LAYER_TABLE ${CMAKE_SOURCE_DIR}/docs/architecture.md)
include(${CMAKE_CURRENT_LIST_DIR}/layer_table.cmake)
kw_read_layer_table(${KW_LAYER_TABLE} KW_LAYERS)

# Warnings on every target; CI turns them into errors.
option(KW_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)
# GCC 12 reports -Wrestrict for std::string concatenation at -O2 where no
# overlap can happen (GCC bug 105329), so that one warning stays off.
set(KW_WARNINGS -Wall -Wextra)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  list(APPEND KW_WARNINGS -Wno-restrict)
endif()
if(KW_WARNINGS_AS_ERRORS)
  list(APPEND KW_WARNINGS -Werror)
endif()

set(KW_LAYER_STAMP ${CMAKE_BINARY_DIR}/layer_check.stamp)
file(GLOB_RECURSE KW_LAYER_SOURCES CONFIGURE_DEPENDS
     ${CMAKE_SOURCE_DIR}/*.h ${CMAKE_SOURCE_DIR}/*.cpp)
list(FILTER KW_LAYER_SOURCES EXCLUDE REGEX "/(build[^/]*|tests)/")
add_custom_command(
  OUTPUT ${KW_LAYER_STAMP}
  COMMAND ${CMAKE_COMMAND} -DROOT=${CMAKE_SOURCE_DIR} -DTABLE=${KW_LAYER_TABLE}
          -P ${CMAKE_CURRENT_LIST_DIR}/check_layers.cmake
  COMMAND ${CMAKE_COMMAND} -E touch ${KW_LAYER_STAMP}
  DEPENDS ${KW_LAYER_SOURCES} ${KW_LAYER_TABLE} ${CMAKE_CURRENT_LIST_DIR}/check_layers.cmake
          ${CMAKE_CURRENT_LIST_DIR}/layer_table.cmake
  COMMENT "Checking that every include points downward"
  VERBATIM)
add_custom_target(layer_check DEPENDS ${KW_LAYER_STAMP})

set(KW_LAYER_LIBRARIES)
# InHook.dll is built on its own (cmake/hook_library.cmake).
set(KW_LIBRARY_LAYERS ${KW_LAYERS})
list(REMOVE_ITEM KW_LIBRARY_LAYERS hooklib)
foreach(folder ${KW_LIBRARY_LAYERS})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
  if(NOT WIN32)
    list(FILTER sources EXCLUDE REGEX "_win\\.cpp$")
  endif()
  # The program's entry is the executable's own source.
  list(FILTER sources EXCLUDE REGEX "/winmain_win\\.cpp$")
  if(NOT sources)
    continue()
  endif()
  add_library(kw_${folder} STATIC ${sources})
  target_include_directories(kw_${folder} PUBLIC ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR}/generated)
  target_compile_options(kw_${folder} PRIVATE ${KW_WARNINGS})
  add_dependencies(kw_${folder} layer_check)
  foreach(used ${KW_LAYER_USES_${folder}})
    if(TARGET kw_${used})
      target_link_libraries(kw_${folder} PUBLIC kw_${used})
    endif()
  endforeach()
  list(APPEND KW_LAYER_LIBRARIES kw_${folder})
endforeach()
