# SPDX-License-Identifier: MIT
#
# How the scripts that turn data tables into sources read them, and how they end the build.

# Ends the build; an empty `line` speaks of the file as a whole.
function(refuse file line reason)
  if(NOT line STREQUAL "")
    string(APPEND file ":${line}")
  endif()
  message(FATAL_ERROR "${file}: ${reason}")
endfunction()

# The lines of `file` without comments. A list keeps empty lines, which are needed for counting;
# characters that would upset a list become `?`, which no line may hold.
function(read_lines file lines)
  file(READ "${file}" text)
  string(REPLACE "\r" "" text "${text}")
  string(REGEX REPLACE "#[^\n]*" "" text "${text}")
  string(REGEX REPLACE "[][;\\]" "?" text "${text}")
  string(REPLACE "\n" ";" text "${text}")
  set(${lines} "${text}" PARENT_SCOPE)
endfunction()
