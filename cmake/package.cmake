# The archive users download: klickwerk.zip with Klickwerk.exe and the files
# that travel beside it, as the program folder expects them:
#
#   Klickwerk.exe, InHook.dll, Klickwerk.chm, DYK.dat, Scripts\FirstRun.kwf
#
# The hook library, the help file and the hint file go in when they exist (the
# help file needs chmcmd). Each is looked up in the build tree first, then in
# the source tree, as the end-to-end harness does. The files are staged in a
# folder and zipped from there with `cmake -E tar`, so no zip program is needed.
#
# Target `package_zip` builds ${CMAKE_BINARY_DIR}/klickwerk.zip with every
# build; tests/package/test_package.py checks what it holds.

set(KW_PACKAGE_OPTIONAL InHook.dll Klickwerk.chm DYK.dat)

if(CMAKE_SCRIPT_MODE_FILE)
  # cmake -DSTAGING=... -DOUTPUT=... -DPROGRAM=... -DBUILD=... -DSOURCE=... -P package.cmake
  file(REMOVE_RECURSE "${STAGING}")
  file(MAKE_DIRECTORY "${STAGING}/Scripts")
  file(COPY "${PROGRAM}" DESTINATION "${STAGING}")
  file(COPY "${SOURCE}/Scripts/FirstRun.kwf" DESTINATION "${STAGING}/Scripts")
  get_filename_component(program_name "${PROGRAM}" NAME)
  set(entries "${program_name}")
  foreach(name ${KW_PACKAGE_OPTIONAL})
    foreach(folder "${BUILD}" "${SOURCE}")
      if(EXISTS "${folder}/${name}")
        file(COPY "${folder}/${name}" DESTINATION "${STAGING}")
        list(APPEND entries "${name}")
        break()
      endif()
    endforeach()
  endforeach()
  list(APPEND entries "Scripts/FirstRun.kwf")
  file(REMOVE "${OUTPUT}")
  execute_process(COMMAND "${CMAKE_COMMAND}" -E tar cf "${OUTPUT}" --format=zip ${entries}
                  WORKING_DIRECTORY "${STAGING}" RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "could not write ${OUTPUT}")
  endif()
  return()
endif()

set(KW_PACKAGE ${CMAKE_BINARY_DIR}/klickwerk.zip)
set(KW_PACKAGE_DEPENDS Klickwerk ${CMAKE_SOURCE_DIR}/Scripts/FirstRun.kwf ${CMAKE_CURRENT_LIST_FILE})
if(KW_HELP_FILE)
  list(APPEND KW_PACKAGE_DEPENDS ${KW_HELP_FILE})
endif()
if(EXISTS ${CMAKE_SOURCE_DIR}/DYK.dat)
  list(APPEND KW_PACKAGE_DEPENDS ${CMAKE_SOURCE_DIR}/DYK.dat)
endif()

add_custom_command(
  OUTPUT ${KW_PACKAGE}
  COMMAND ${CMAKE_COMMAND}
          -DSTAGING=${CMAKE_BINARY_DIR}/package-staging
          -DOUTPUT=${KW_PACKAGE}
          -DPROGRAM=$<TARGET_FILE:Klickwerk>
          -DBUILD=${CMAKE_BINARY_DIR}
          -DSOURCE=${CMAKE_SOURCE_DIR}
          -P ${CMAKE_CURRENT_LIST_FILE}
  DEPENDS ${KW_PACKAGE_DEPENDS}
  COMMENT "Packing klickwerk.zip"
  VERBATIM)
add_custom_target(package_zip ALL DEPENDS ${KW_PACKAGE})

# The hook library's target is defined after this file, if at all.
function(kw_package_hook_library)
  if(TARGET InHook)
    add_dependencies(package_zip InHook)
  endif()
endfunction()
cmake_language(DEFER DIRECTORY ${CMAKE_SOURCE_DIR} CALL kw_package_hook_library)

find_program(KW_PYTHON3 python3)
if(KW_PYTHON3)
  enable_testing()
  add_test(NAME package_contents
           COMMAND ${KW_PYTHON3} ${CMAKE_SOURCE_DIR}/tests/package/test_package.py
                   ${KW_PACKAGE} ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR})
endif()
