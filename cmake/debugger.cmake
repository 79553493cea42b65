# SPDX-License-Identifier: MIT
# Installs the printers for gdb where it looks for what belongs to the installed shared library: in a folder named after
# the library's folder, in a file named after the library. (Of a prefix other than its own, which is usually /usr, gdb
# has to be told, by `set auto-load scripts-directory` and `add-auto-load-safe-path`.)
if(NOT CMAKE_EXECUTABLE_FORMAT STREQUAL "ELF")
    return()
endif()

set(folder_of_library ${CMAKE_INSTALL_LIBDIR})
if(NOT IS_ABSOLUTE "${folder_of_library}")
    # The prefix of `cmake --install`, which need not be that of the configuration.
    set(folder_of_library "\${CMAKE_INSTALL_PREFIX}/${folder_of_library}")
endif()
install(FILES ${PROJECT_SOURCE_DIR}/gdb/qv8numeric.py
    DESTINATION "${CMAKE_INSTALL_DATADIR}/gdb/auto-load/${folder_of_library}"
    RENAME ${CMAKE_SHARED_LIBRARY_PREFIX}qv8numeric${CMAKE_SHARED_LIBRARY_SUFFIX}.${PROJECT_VERSION}-gdb.py
    COMPONENT debugger)
