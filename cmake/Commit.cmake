# SPDX-License-Identifier: MIT
#
# Writes a header with the commit that the tree is of, for `vellumark --version`:
#
#     cmake -DSOURCE=folder -DOUTPUT=file -P Commit.cmake
#
# A source archive has it in cmake/commit.txt, which git fills in (.gitattributes); a clone asks git,
# and marks a tree with changes. Anything else has an empty text. The file is only touched if the
# text changes.
cmake_minimum_required(VERSION 3.21)

set(kLetters 12)  # of the commit's hash

file(STRINGS "${CMAKE_CURRENT_LIST_DIR}/commit.txt" commit LIMIT_COUNT 1)
if(NOT commit MATCHES "^[0-9a-f]+$")
  set(commit "")
  find_program(GIT git)
  if(GIT AND EXISTS "${SOURCE}/.git")
    execute_process(
      COMMAND "${GIT}" describe --always --dirty --exclude=* --abbrev=${kLetters}
      WORKING_DIRECTORY "${SOURCE}" OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE
      ERROR_QUIET)
  endif()
elseif(commit)
  string(SUBSTRING "${commit}" 0 ${kLetters} commit)
endif()

file(CONFIGURE OUTPUT "${OUTPUT}" @ONLY CONTENT "// SPDX-License-Identifier: MIT
// Made by cmake/Commit.cmake.
#pragma once
#define VELLUMARK_COMMIT \"@commit@\"
")
