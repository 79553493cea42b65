# SPDX-License-Identifier: MIT
# What `cmake --install` lays out, in components: `runtime` is the shared library, `debugger` what gdb loads with it,
# `development` all that a compiler and a linker need to use either library, `documentation` what people read. All but
# the debugger's finds its neighbours by their place beside it, so that the prefix may be moved.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/qv8numeric)
set(example_folder ${CMAKE_INSTALL_DOCDIR}/examples)
set(generated_folder ${PROJECT_BINARY_DIR}/install)

if(top_level)
    set(installed_folders ${CMAKE_INSTALL_BINDIR} ${CMAKE_INSTALL_INCLUDEDIR} ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        ${package_folder} ${example_folder}/data ${CMAKE_INSTALL_MANDIR}/man3 ${CMAKE_INSTALL_MANDIR}/man7
        "${CMAKE_INSTALL_DATADIR}/gdb/auto-load/\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}")
    include(cmake/uninstall/target.cmake)  # ahead of the files, whose folders it takes note of
endif()

# ---- runtime and development ----

# One file of targets for each library, so that either may be installed without the other.
if(QV8NUMERIC_BUILD_SHARED)
    install(TARGETS qv8numeric EXPORT qv8numeric-shared-targets
        RUNTIME COMPONENT runtime
        LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
        ARCHIVE COMPONENT development
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
    install(EXPORT qv8numeric-shared-targets NAMESPACE qv8numeric::
        DESTINATION ${package_folder} COMPONENT development)
    include(cmake/debugger.cmake)
endif()
if(QV8NUMERIC_BUILD_STATIC)
    install(TARGETS qv8numeric_static EXPORT qv8numeric-static-targets
        ARCHIVE COMPONENT development
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
    install(EXPORT qv8numeric-static-targets NAMESPACE qv8numeric::
        DESTINATION ${package_folder} COMPONENT development)
endif()

install(FILES ${PROJECT_SOURCE_DIR}/include/qv8numeric.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

write_basic_package_version_file(${generated_folder}/qv8numeric-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_SOURCE_DIR}/cmake/qv8numeric-config.cmake ${generated_folder}/qv8numeric-config-version.cmake
    DESTINATION ${package_folder} COMPONENT development)

# A folder as qv8numeric.pc names it: by its place in the prefix, or as it is, where the user wants it out of there.
function(qv8numeric_pc_folder result folder)
    if(NOT IS_ABSOLUTE "${folder}")
        set(folder "\${prefix}/${folder}")
    endif()
    set(${result} ${folder} PARENT_SCOPE)
endfunction()

qv8numeric_pc_folder(pc_libdir ${CMAKE_INSTALL_LIBDIR})
qv8numeric_pc_folder(pc_includedir ${CMAKE_INSTALL_INCLUDEDIR})
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
    set(pc_prefix ${CMAKE_INSTALL_PREFIX})
else()
    file(RELATIVE_PATH prefix_from_pc /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
    string(REGEX REPLACE "/$" "" pc_prefix "\${pcfiledir}/${prefix_from_pc}")
endif()
configure_file(cmake/qv8numeric.pc.in ${generated_folder}/qv8numeric.pc @ONLY)
install(FILES ${generated_folder}/qv8numeric.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

# ---- documentation ----

install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/ DESTINATION ${example_folder} COMPONENT documentation
    FILES_MATCHING PATTERN "*.c" PATTERN "*.csv")
foreach(section 3 7)
    file(GLOB pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/man/*.${section})
    install(FILES ${pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section} COMPONENT documentation)
endforeach()
