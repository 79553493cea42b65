# SPDX-License-Identifier: MIT
# Of the host's installation in `prefix`, the library is no part.
file(GLOB_RECURSE installed RELATIVE "${prefix}" "${prefix}/*")
if(NOT installed STREQUAL "host.c")
    message(FATAL_ERROR "installed: ${installed}; expected: host.c")
endif()
