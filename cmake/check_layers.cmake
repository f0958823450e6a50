# cmake -DROOT=<tree> -DTABLE=<docs/architecture.md> -P check_layers.cmake
#
# Fails when a header or source of a folder in the table includes a file of a
# folder that its row does not list, or of a folder the table does not know.
cmake_policy(SET CMP0057 NEW)  # if(IN_LIST)
include(${CMAKE_CURRENT_LIST_DIR}/layer_table.cmake)
kw_read_layer_table(${TABLE} folders)

set(problems)
foreach(folder ${folders})
  file(GLOB files ${ROOT}/${folder}/*.h ${ROOT}/${folder}/*.cpp)
  set(allowed ${folder} ${KW_LAYER_USES_${folder}})
  foreach(file ${files})
    file(STRINGS ${file} includes REGEX "^#include \"[a-z_]+/")
    foreach(include IN LISTS includes)
      string(REGEX REPLACE "^#include \"([a-z_]+)/.*" "\\1" target "${include}")
      if(NOT target IN_LIST allowed)
        file(RELATIVE_PATH shown ${ROOT} ${file})
        list(APPEND problems "${shown}: ${include} (${folder}/ may include: ${KW_LAYER_USES_${folder}})")
      endif()
    endforeach()
  endforeach()
endforeach()

if(problems)
  list(JOIN problems "\n  " listed)
  message(FATAL_ERROR "Includes that point upward or sideways:\n  ${listed}")
endif()
