# SPDX-License-Identifier: MIT
#
# Builds for 64-bit Windows on another system.
set(CMAKE_SYSTEM_PROCESSOR x86_64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
