# SPDX-License-Identifier: MIT
#
# What `cmake --install` puts in place: the library, its public headers, a CMake package and a
# pkg-config file. For Windows also the width resources, which programs link beside it.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

target_include_directories(vellumark PUBLIC $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)

install(DIRECTORY include/vellumark DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN *.h)
if(WIN32)
  install(TARGETS vellumark_windows_resources EXPORT vellumark-targets
    OBJECTS DESTINATION ${CMAKE_INSTALL_LIBDIR}/vellumark)
endif()

# With BUILD_SHARED_LIBS: the soname is libvellumark.so.MAJOR, and exports.map has the last word on
# what is exported.
set_target_properties(vellumark PROPERTIES VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR})
if(BUILD_SHARED_LIBS AND UNIX AND NOT APPLE)
  target_link_options(vellumark PRIVATE
    LINKER:--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map)
  set_property(TARGET vellumark APPEND PROPERTY LINK_DEPENDS
    ${PROJECT_SOURCE_DIR}/cmake/exports.map)
endif()
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
# Relative, so that an installed package may be moved as a whole; CMAKE_INSTALL_LIBDIR and
# CMAKE_INSTALL_INCLUDEDIR must be relative for it, which is their default.
file(RELATIVE_PATH prefix_from_pkgconfig
  /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
set(pkgconfig_requires "")
set(pkgconfig_libraries "")
if(NOT VELLUMARK_LINK_LIBRARIES)
  list(TRANSFORM CMAKE_DL_LIBS PREPEND "-l" OUTPUT_VARIABLE pkgconfig_libraries)
else()
  if(VELLUMARK_PICTURE_DECODERS)
    set(pkgconfig_requires "libjpeg libpng")
    set(pkgconfig_libraries -lgif)  # giflib has no pkg-config file
  endif()
  if(VELLUMARK_FONTS)
    string(APPEND pkgconfig_requires " harfbuzz harfbuzz-subset fribidi libunibreak libthai")
  endif()
endif()
configure_file(cmake/vellumark.pc.in ${CMAKE_CURRENT_BINARY_DIR}/vellumark.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/vellumark.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
