# The help file Klickwerk.chm, compiled from docs/help with chmcmd (Debian
# package fp-utils). chmcmd exits with 0 even when it reports a missing file
# or an undefined anchor, so the build runs it through this same file in
# script mode, which turns every "Warning:" or "Error:" line into a failure
# and only then puts the compiled file in place.
#
# Target `help_file` builds ${CMAKE_BINARY_DIR}/Klickwerk.chm (CMake reserves
# the name `help` for the generators' own target); KW_HELP_FILE names that path
# for the targets that ship it.

if(CMAKE_SCRIPT_MODE_FILE)
  # cmake -DCHMCMD=... -DHELP_SOURCE=... -DSTAGING=... -DOUTPUT=... -P help.cmake
  file(REMOVE_RECURSE "${STAGING}")
  file(COPY "${HELP_SOURCE}/" DESTINATION "${STAGING}")
  execute_process(COMMAND "${CHMCMD}" Klickwerk.hhp
                  WORKING_DIRECTORY "${STAGING}"
                  RESULT_VARIABLE result
                  OUTPUT_VARIABLE output
                  ERROR_VARIABLE errors)
  string(REGEX MATCHALL "(Warning|Error)[^\n]*" problems "${output}\n${errors}")
  set(compiled "${STAGING}/Klickwerk.chm")
  if(EXISTS "${compiled}")
    file(SIZE "${compiled}" compiled_size)
  else()
    set(compiled_size 0)
  endif()
  if(NOT result EQUAL 0 OR problems OR compiled_size EQUAL 0)
    message(FATAL_ERROR "chmcmd could not compile the help file (exit code ${result}):\n"
                        "${output}\n${errors}")
  endif()
  file(RENAME "${compiled}" "${OUTPUT}")
  return()
endif()

find_program(KW_CHMCMD chmcmd)
if(NOT KW_CHMCMD)
  message(STATUS "chmcmd not found (Debian package fp-utils): Klickwerk.chm is not built")
  return()
endif()

set(KW_HELP_SOURCE_DIR ${CMAKE_SOURCE_DIR}/docs/help)
set(KW_HELP_FILE ${CMAKE_BINARY_DIR}/Klickwerk.chm)
file(GLOB KW_HELP_SOURCES CONFIGURE_DEPENDS ${KW_HELP_SOURCE_DIR}/*)

add_custom_command(
  OUTPUT ${KW_HELP_FILE}
  COMMAND ${CMAKE_COMMAND}
          -DCHMCMD=${KW_CHMCMD}
          -DHELP_SOURCE=${KW_HELP_SOURCE_DIR}
          -DSTAGING=${CMAKE_BINARY_DIR}/help-staging
          -DOUTPUT=${KW_HELP_FILE}
          -P ${CMAKE_CURRENT_LIST_FILE}
  DEPENDS ${KW_HELP_SOURCES} ${CMAKE_CURRENT_LIST_FILE}
  COMMENT "Compiling Klickwerk.chm"
  VERBATIM)
add_custom_target(help_file ALL DEPENDS ${KW_HELP_FILE})

# The check of the compiled file runs on the build machine, so it needs the
# host's Python and extract_chmLib (Debian package libchm-bin).
find_program(KW_EXTRACT_CHMLIB extract_chmLib)
find_program(KW_PYTHON3 python3)
if(KW_EXTRACT_CHMLIB AND KW_PYTHON3)
  add_test(NAME help_file_contents
           COMMAND ${KW_PYTHON3} ${CMAKE_SOURCE_DIR}/tests/help/test_help_file.py ${KW_HELP_FILE})
endif()
