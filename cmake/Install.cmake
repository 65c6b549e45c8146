# SPDX-License-Identifier: MIT
#
# What `cmake --install` puts in place: the library, its public headers (in a folder of their own,
# so that <vellumark/vellumark.h> and the headers it includes cannot meet anybody else's), a CMake
# package and a pkg-config file. For Windows also the width resources, which programs link beside it.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(include_dir ${CMAKE_INSTALL_INCLUDEDIR}/vellumark)
target_include_directories(vellumark PUBLIC $<INSTALL_INTERFACE:${include_dir}>)

install(FILES
    vellumark/enumerations.h vellumark/export.h vellumark/refusal.h vellumark/run_time_error.h
    vellumark/vellumark.h
  DESTINATION ${include_dir}/vellumark)
install(FILES platform/bitmap.h platform/platform.h DESTINATION ${include_dir}/platform)
if(WIN32)
  install(FILES platform/windows_platform.h DESTINATION ${include_dir}/platform)
  install(TARGETS vellumark_windows_resources EXPORT vellumark-targets
    OBJECTS DESTINATION ${CMAKE_INSTALL_LIBDIR}/vellumark)
else()
  install(FILES
      platform/library_identity.h platform/memory_platform.h platform/portable_platform.h
      platform/posix_platform.h
    DESTINATION ${include_dir}/platform)
endif()

set_target_properties(vellumark PROPERTIES VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR})
install(TARGETS vellumark EXPORT vellumark-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT vellumark-targets NAMESPACE vellumark::
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/vellumark)
configure_package_config_file(cmake/vellumark-config.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/vellumark-config.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/vellumark)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/vellumark-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
    ${CMAKE_CURRENT_BINARY_DIR}/vellumark-config.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/vellumark-config-version.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/vellumark)
if(WIN32)
  return()  # pkg-config would not bring the width resources along
endif()
# Relative, so that the package works wherever it is installed or moved to.
file(RELATIVE_PATH prefix_from_pkgconfig
  /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/vellumark.pc.in ${CMAKE_CURRENT_BINARY_DIR}/vellumark.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/vellumark.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
