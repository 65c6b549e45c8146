# SPDX-License-Identifier: MIT
#
# vellumark_warnings: the warnings every target of this tree is built with, and the floating-point
# and sanitizer switches that all of them share.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

add_library(vellumark_warnings INTERFACE)
target_compile_options(vellumark_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  $<$<BOOL:${VELLUMARK_WERROR}>:-Werror>)

# Coordinates are rounded from single precision: a fused multiply-add, or the x87's wider registers,
# would round some of them differently from one machine to the next.
add_compile_options(-ffp-contract=off)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^i.86$")
  add_compile_options(-msse2 -mfpmath=sse)
endif()

# Everything is watched by the fuzz targets, so that nothing is compiled twice for them.
if(VELLUMARK_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

if(VELLUMARK_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)  # beyond a view or a span, not only beyond memory
  add_link_options(-fsanitize=address,undefined)
endif()
