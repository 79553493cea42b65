# SPDX-License-Identifier: MIT
# The target `uninstall` takes away every file that installing has laid down, and the folders among `installed_folders`,
# and above them, that were made for these files. CMake notes the files, but not which folders were there before.
foreach(component runtime debugger development documentation)
    install(CODE "
        set(folders \"${installed_folders}\")
        set(notes \"${PROJECT_BINARY_DIR}/install_folders.txt\")
        include(\"${CMAKE_CURRENT_LIST_DIR}/note_folders.cmake\")"
        COMPONENT ${component})
endforeach()

add_custom_target(uninstall COMMENT "Removing what was installed"
    COMMAND ${CMAKE_COMMAND} -D build=${PROJECT_BINARY_DIR} -P ${CMAKE_CURRENT_LIST_DIR}/remove.cmake VERBATIM)
