# SPDX-License-Identifier: MIT
#
# Turns the glyph tables of layout/glyphs into a header of constants:
#
#     cmake -DTABLES=folder -DOUTPUT=file -P GlyphTables.cmake
#
# `folder` has latin.txt, symbol.txt, zapfdingbats.txt and composed.txt; each tells in its head what
# its lines are. What the rows become is declared in layout/glyph_rows.h. A line that is not a line of
# its table, and a number outside its range or given twice, stops the build with file and line.
cmake_minimum_required(VERSION 3.21)

set(kCharacter "([0-9A-F][0-9A-F][0-9A-F][0-9A-F])")
set(kNumber "(0|[1-9][0-9]*)")
set(kName "([A-Za-z][A-Za-z0-9]*)")

include("${CMAKE_CURRENT_LIST_DIR}/TableLines.cmake")

# Stops at a number above `limit`. A macro, because it speaks of the caller's file and line.
macro(check_limit what number limit)
  if(${number} GREATER ${limit})
    refuse("${file}" ${line} "${what} ${number} is above ${limit}")
  endif()
endmacro()

# A code in one of the two encodings: "-" becomes 0, which is not a character's code.
macro(read_code encoding code out)
  set(${out} 0)
  if(NOT "${code}" STREQUAL "-")
    check_limit("${encoding} code" ${code} 255)
    if(DEFINED line_of_${encoding}_${code})
      refuse("${file}" ${line}
        "${encoding} code ${code} stands in line ${line_of_${encoding}_${code}} already")
    endif()
    set(line_of_${encoding}_${code} ${line})
    set(${out} ${code})
  endif()
endmacro()

# The lines of latin.txt as rows, by rising code point.
function(read_latin file rows_out)
  read_lines("${file}" lines)
  string(REPEAT " +${kNumber}" 6 widths)
  set(rows "")
  set(line 0)
  set(last "")
  foreach(text IN LISTS lines)
    math(EXPR line "${line} + 1")
    if(text MATCHES "^ *$")
      continue()
    endif()
    # CMake remembers nine groups of a match: the widths are a match of their own.
    if(NOT text MATCHES "^${kCharacter} +${kName} +(-|[1-9][0-9]*) +(-|[1-9][0-9]*)( [ 0-9]*)$")
      refuse("${file}" ${line} "'${text}' is not a line of this table")
    endif()
    set(character ${CMAKE_MATCH_1})
    set(name ${CMAKE_MATCH_2})
    set(win_ansi ${CMAKE_MATCH_3})
    set(extended ${CMAKE_MATCH_4})
    set(rest "${CMAKE_MATCH_5}")
    if(NOT rest MATCHES "^${widths}$")
      refuse("${file}" ${line} "'${rest}' are not six widths")
    endif()
    string(REGEX MATCHALL "[0-9]+" numbers "${rest}")
    foreach(number IN LISTS numbers)
      check_limit("width" ${number} 65535)
    endforeach()
    list(JOIN numbers ", " numbers)
    if(NOT character STRGREATER "${last}")
      refuse("${file}" ${line} "${character} does not come after ${last}")
    endif()
    set(last ${character})
    read_code(WinAnsi "${win_ansi}" win_ansi_code)
    read_code(Extended "${extended}" extended_code)
    if(win_ansi_code EQUAL 0 AND extended_code EQUAL 0)
      refuse("${file}" ${line} "${character} has no code")
    endif()
    string(APPEND rows
      "    {0x${character}, ${win_ansi_code}, ${extended_code}, {${numbers}}, \"${name}\"},\n")
  endforeach()
  set(${rows_out} "${rows}" PARENT_SCOPE)
endfunction()

# The lines of symbol.txt or zapfdingbats.txt as rows, by rising code.
function(read_built_in file rows_out)
  read_lines("${file}" lines)
  set(rows "")
  set(line 0)
  set(last 0)
  foreach(text IN LISTS lines)
    math(EXPR line "${line} + 1")
    if(text MATCHES "^ *$")
      continue()
    elseif(NOT text MATCHES "^ *${kNumber} +${kNumber} +${kCharacter} +${kName}$")
      refuse("${file}" ${line} "'${text}' is not a line of this table")
    endif()
    check_limit("code" ${CMAKE_MATCH_1} 255)
    check_limit("width" ${CMAKE_MATCH_2} 65535)
    if(NOT CMAKE_MATCH_1 GREATER last)
      refuse("${file}" ${line} "code ${CMAKE_MATCH_1} does not come after ${last}")
    endif()
    set(last ${CMAKE_MATCH_1})
    string(APPEND rows
      "    {0x${CMAKE_MATCH_3}, ${CMAKE_MATCH_1}, ${CMAKE_MATCH_2}, \"${CMAKE_MATCH_4}\"},\n")
  endforeach()
  set(${rows_out} "${rows}" PARENT_SCOPE)
endfunction()

# The lines of composed.txt as rows, by rising base and mark.
function(read_composed file rows_out)
  read_lines("${file}" lines)
  set(rows "")
  set(line 0)
  set(last "")
  foreach(text IN LISTS lines)
    math(EXPR line "${line} + 1")
    if(text MATCHES "^ *$")
      continue()
    elseif(NOT text MATCHES "^${kCharacter} +${kCharacter} +${kCharacter} *$")
      refuse("${file}" ${line} "'${text}' is not a line of this table")
    elseif(NOT "${CMAKE_MATCH_1} ${CMAKE_MATCH_2}" STRGREATER "${last}")
      refuse("${file}" ${line} "${CMAKE_MATCH_1} ${CMAKE_MATCH_2} does not come after ${last}")
    endif()
    set(last "${CMAKE_MATCH_1} ${CMAKE_MATCH_2}")
    string(APPEND rows "    {0x${CMAKE_MATCH_1}, 0x${CMAKE_MATCH_2}, 0x${CMAKE_MATCH_3}},\n")
  endforeach()
  set(${rows_out} "${rows}" PARENT_SCOPE)
endfunction()

read_latin("${TABLES}/latin.txt" latin)
read_built_in("${TABLES}/symbol.txt" symbol)
read_built_in("${TABLES}/zapfdingbats.txt" zapf_dingbats)
read_composed("${TABLES}/composed.txt" composed)

file(WRITE "${OUTPUT}" "// SPDX-License-Identifier: MIT
//
// Made by cmake/GlyphTables.cmake from the tables in layout/glyphs.
#pragma once

#include \"layout/glyph_rows.h\"

namespace vellumark::layout {

inline constexpr LatinGlyph kLatinGlyphs[] = {
${latin}};

inline constexpr BuiltInGlyph kSymbolGlyphs[] = {
${symbol}};

inline constexpr BuiltInGlyph kZapfDingbatsGlyphs[] = {
${zapf_dingbats}};

inline constexpr ComposedLetter kComposedLetters[] = {
${composed}};

}  // namespace vellumark::layout
")
