# SPDX-License-Identifier: MIT
#
# Builds for Windows on another system, with mingw-w64 (Debian: g++-mingw-w64). What is linked needs
# nothing but Windows itself. windows-x64.cmake and windows-x86.cmake choose the processor.
set(CMAKE_SYSTEM_NAME Windows)

set(prefix ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32)
set(CMAKE_C_COMPILER ${prefix}-gcc-posix)
set(CMAKE_CXX_COMPILER ${prefix}-g++-posix)  # the variant with std::mutex and std::thread
set(CMAKE_RC_COMPILER ${prefix}-windres)

# Libraries that were built for Windows elsewhere (packaging/windows_libraries.py).
set(VELLUMARK_WINDOWS_LIBRARIES "" CACHE PATH "Folder of libraries for Windows")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VELLUMARK_WINDOWS_LIBRARIES)
set(CMAKE_FIND_ROOT_PATH ${VELLUMARK_WINDOWS_LIBRARIES} /usr/${prefix})
set(ENV{PKG_CONFIG_LIBDIR} "${VELLUMARK_WINDOWS_LIBRARIES}/lib/pkgconfig")  # not this system's own
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(ZLIB_USE_STATIC_LIBS ON)  # Windows has no zlib1.dll
set(static "-static -static-libgcc -static-libstdc++")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${static}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${static}")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "${static}")
