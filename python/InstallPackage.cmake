# SPDX-License-Identifier: MIT
#
# Runs during `cmake --install --component python`: copies the folder of the module to a place that
# the Python of the prefix searches. It needs the variables package (the folder), python_version
# (such as 3.11) and destination (relative to the prefix or absolute; if empty, one of these):
#
#     prefix            folder                             why
#     /usr              lib/python3/dist-packages          Debian's own packages
#     a venv            lib/python3.11/site-packages       as everywhere
#     /usr/local, else  lib/python3.11/dist-packages       Debian's folder for what is built here
if(destination STREQUAL "")
  if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(destination lib/python3/dist-packages)
  elseif(EXISTS "${CMAKE_INSTALL_PREFIX}/pyvenv.cfg")
    set(destination lib/python${python_version}/site-packages)
  else()
    set(destination lib/python${python_version}/dist-packages)
  endif()
endif()
get_filename_component(destination "${destination}" ABSOLUTE BASE_DIR "${CMAKE_INSTALL_PREFIX}")
file(INSTALL DESTINATION "${destination}" TYPE DIRECTORY FILES "${package}"
  PATTERN __pycache__ EXCLUDE)
