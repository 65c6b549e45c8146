# SPDX-License-Identifier: MIT
#
# Turns the glyph-width tables into the data resources 101 to 110:
#
#     cmake "-DTABLES=a.txt;b.txt;..." -DOUTPUT=folder -P WidthResources.cmake
#
# writes folder/width_resources.cpp (what width_resources.h declares: 512 bytes for each table,
# little-endian) and folder/width_resources.rc (ten RCDATA blocks of 256 16-bit numbers, for a
# Windows module). It runs on the building machine and needs nothing but CMake.
#
# A table is a text file; the order of its lines does not matter, `#` starts a comment:
#
#     table  = number line*                     each code 0..255 covered exactly once
#     number = "resource" id                    101..110, each by one table
#     line   = "fill" code ["-" code] width     codes with no glyph
#            | code width glyph-name
#
# Anything else stops the build with the file and the line.
cmake_minimum_required(VERSION 3.21)

set(kNumber "(0|[1-9][0-9]*)")

include("${CMAKE_CURRENT_LIST_DIR}/TableLines.cmake")

# Gives the codes first..last of the table being read their width. A macro, because it fills the
# caller's width_of_<code> and line_of_<code>.
macro(set_widths first last width)
  if(${first} GREATER ${last} OR ${last} GREATER 255)
    refuse("${file}" ${line} "codes ${first}-${last} are not a range within 0-255")
  elseif(${width} GREATER 65535)
    refuse("${file}" ${line} "width ${width} is outside 0-65535")
  endif()
  foreach(code RANGE ${first} ${last})
    if(DEFINED line_of_${code})
      refuse("${file}" ${line} "code ${code} has a width already, from line ${line_of_${code}}")
    endif()
    set(width_of_${code} ${width})
    set(line_of_${code} ${line})
  endforeach()
endmacro()

# Reads one table: its resource number and the list of its 256 widths.
function(read_table file resource_out widths_out)
  read_lines("${file}" lines)
  set(resource "")
  set(line 0)
  foreach(text IN LISTS lines)
    math(EXPR line "${line} + 1")
    if(text MATCHES "^[ \t]*$")
      continue()
    elseif(text MATCHES "^ *${kNumber} +${kNumber} +[A-Za-z][A-Za-z0-9.]* *$")
      set_widths(${CMAKE_MATCH_1} ${CMAKE_MATCH_1} ${CMAKE_MATCH_2})
    elseif(text MATCHES "^fill +${kNumber}-${kNumber} +${kNumber} *$")
      set_widths(${CMAKE_MATCH_1} ${CMAKE_MATCH_2} ${CMAKE_MATCH_3})
    elseif(text MATCHES "^fill +${kNumber} +${kNumber} *$")
      set_widths(${CMAKE_MATCH_1} ${CMAKE_MATCH_1} ${CMAKE_MATCH_2})
    elseif(NOT text MATCHES "^resource +${kNumber} *$")
      refuse("${file}" ${line} "'${text}' is not a line of a width table")
    elseif(NOT resource STREQUAL "")
      refuse("${file}" ${line} "the table has a resource number already, ${resource}")
    elseif(CMAKE_MATCH_1 LESS 101 OR CMAKE_MATCH_1 GREATER 110)
      refuse("${file}" ${line} "resource ${CMAKE_MATCH_1} is outside 101-110")
    else()
      set(resource ${CMAKE_MATCH_1})
    endif()
  endforeach()
  if(resource STREQUAL "")
    refuse("${file}" "" "no line gives the resource number")
  endif()

  set(widths "")
  foreach(code RANGE 255)
    if(NOT DEFINED line_of_${code})
      refuse("${file}" "" "code ${code} has neither a glyph nor a fill")
    endif()
    list(APPEND widths ${width_of_${code}})
  endforeach()
  set(${resource_out} ${resource} PARENT_SCOPE)
  set(${widths_out} "${widths}" PARENT_SCOPE)
endfunction()

# One table as bytes in C++ and as the numbers of a resource script, eight codes in a line.
function(format_table widths bytes_out words_out)
  set(bytes "")
  set(words "")
  set(column 0)
  foreach(width IN LISTS widths)
    math(EXPR low "${width} & 255")
    math(EXPR high "${width} >> 8")
    math(EXPR column "(${column} + 1) % 8")
    if(column EQUAL 0)
      set(end "\n")
    else()
      set(end " ")
    endif()
    string(APPEND bytes "${low}, ${high},${end}")
    string(APPEND words "${width},${end}")
  endforeach()
  string(REGEX REPLACE ",\n$" "\n" words "${words}")
  set(${bytes_out} "${bytes}" PARENT_SCOPE)
  set(${words_out} "${words}" PARENT_SCOPE)
endfunction()

foreach(file IN LISTS TABLES)
  read_table("${file}" resource widths)
  if(DEFINED file_of_${resource})
    refuse("${file}" "" "resource ${resource} is already that of ${file_of_${resource}}")
  endif()
  set(file_of_${resource} "${file}")
  set(widths_of_${resource} "${widths}")
endforeach()

set(head "// SPDX-License-Identifier: MIT\n//\n")
string(APPEND head "// Made by cmake/WidthResources.cmake from the tables in layout/widths.\n")
set(cpp "${head}")
set(rc "${head}")
string(APPEND cpp [[
#include "platform/width_resources.h"

namespace vellumark::platform {
namespace {

constexpr std::uint8_t kResources[10][512] = {
]])
foreach(resource RANGE 101 110)
  if(NOT DEFINED file_of_${resource})
    refuse("${OUTPUT}" "" "no table has resource number ${resource}")
  endif()
  get_filename_component(name "${file_of_${resource}}" NAME)
  format_table("${widths_of_${resource}}" bytes words)
  string(APPEND cpp "{  // ${resource}, ${name}\n${bytes}},\n")
  string(APPEND rc "\n// ${name}\n${resource} RCDATA\nBEGIN\n${words}END\n")
endforeach()
string(APPEND cpp [[
};

}  // namespace

std::span<const std::uint8_t> WidthResource(int number) noexcept {
  if (number < 101 || number > 110) return {};
  return kResources[number - 101];
}

}  // namespace vellumark::platform
]])

file(WRITE "${OUTPUT}/width_resources.cpp" "${cpp}")
file(WRITE "${OUTPUT}/width_resources.rc" "${rc}")
