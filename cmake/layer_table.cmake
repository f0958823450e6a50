# Reads the folder table of docs/architecture.md: the rows between the lines
# "<!-- layers -->" and "<!-- /layers -->", each
#
#   | folder | what it holds | folders it may include, separated by blanks |
#
# from the bottom up. Sets <out> to the folders in table order and
# KW_LAYER_USES_<folder> to each one's list.
function(kw_read_layer_table table out)
  file(STRINGS ${table} lines)
  set(inside FALSE)
  set(folders)
  foreach(line IN LISTS lines)
    if(line MATCHES "<!-- layers -->")
      set(inside TRUE)
    elseif(line MATCHES "<!-- /layers -->")
      set(inside FALSE)
    elseif(inside AND line MATCHES "^\\| *`([a-z_]+)/` *\\|[^|]*\\|([^|]*)\\|")
      set(folder ${CMAKE_MATCH_1})
      string(REGEX MATCHALL "[a-z_]+" uses "${CMAKE_MATCH_2}")
      list(APPEND folders ${folder})
      set(KW_LAYER_USES_${folder} ${uses} PARENT_SCOPE)
    endif()
  endforeach()
  if(NOT folders)
    message(FATAL_ERROR "${table} holds no folder table")
  endif()
  set(${out} ${folders} PARENT_SCOPE)
endfunction()
