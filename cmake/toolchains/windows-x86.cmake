# SPDX-License-Identifier: MIT
#
# Builds for 32-bit Windows on another system.
set(CMAKE_SYSTEM_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
