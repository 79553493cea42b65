# SPDX-License-Identifier: MIT
# Part of an installation, before its files: writes down which of `folders`, and of those above them, it is about to
# make. Only those go again when it is undone.
foreach(folder IN LISTS folders)
    if(NOT IS_ABSOLUTE "${folder}")
        set(folder "${CMAKE_INSTALL_PREFIX}/${folder}")
    endif()
    string(REGEX REPLACE "/+" "/" folder "$ENV{DESTDIR}${folder}")
    while(NOT EXISTS "${folder}")
        file(APPEND "${notes}" "${folder}\n")
        get_filename_component(folder "${folder}" DIRECTORY)
    endwhile()
endforeach()
