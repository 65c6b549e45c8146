# SPDX-License-Identifier: MIT
#
# Libraries that Vellumark loads when it first needs them (platform/loaded_library.h), or, with
# VELLUMARK_LINK_LIBRARIES, is linked with.
if(VELLUMARK_LINK_LIBRARIES)
  target_compile_definitions(vellumark PRIVATE VELLUMARK_LINK_LIBRARIES=1)
else()
  target_link_libraries(vellumark PRIVATE ${CMAKE_DL_LIBS})
endif()

# vellumark_load_libraries(gif ...) defines VELLUMARK_SONAME_GIF as the name that the linker would note
# in a program that is linked with libgif.
function(vellumark_load_libraries)
  foreach(library IN LISTS ARGN)
    find_library(VELLUMARK_LOADED_${library} NAMES lib${library}.so REQUIRED)
    execute_process(COMMAND ${CMAKE_OBJDUMP} -p ${VELLUMARK_LOADED_${library}}
      OUTPUT_VARIABLE facts COMMAND_ERROR_IS_FATAL ANY)
    if(NOT facts MATCHES "SONAME +([^ \n]+)")
      message(FATAL_ERROR "${VELLUMARK_LOADED_${library}} has no soname; configure with "
        "-DVELLUMARK_LINK_LIBRARIES=ON to link it")
    endif()
    set(soname ${CMAKE_MATCH_1})
    string(TOUPPER ${library} name)
    string(REPLACE - _ name ${name})
    target_compile_definitions(vellumark PRIVATE VELLUMARK_SONAME_${name}="${soname}")
  endforeach()
endfunction()
