# SPDX-License-Identifier: MIT
# find_package(qv8numeric) gives, by what is installed beside this file,
#
#   qv8numeric::qv8numeric   the shared library, or the static one where there is no other
#   qv8numeric::static       the static library
#
# The components `shared` and `static` say that this very library has to be there.
set(qv8numeric_installed)
foreach(qv8numeric_library shared static)
    set(qv8numeric_${qv8numeric_library}_FOUND FALSE)
    set(qv8numeric_targets "${CMAKE_CURRENT_LIST_DIR}/qv8numeric-${qv8numeric_library}-targets.cmake")
    if(EXISTS "${qv8numeric_targets}")
        include("${qv8numeric_targets}")
        set(qv8numeric_${qv8numeric_library}_FOUND TRUE)
        list(APPEND qv8numeric_installed ${qv8numeric_library})
    endif()
endforeach()

if(NOT qv8numeric_installed)
    set(qv8numeric_FOUND FALSE)
    set(qv8numeric_NOT_FOUND_MESSAGE "Neither library of qv8numeric is installed.")
elseif(NOT TARGET qv8numeric::qv8numeric)
    add_library(qv8numeric::qv8numeric INTERFACE IMPORTED)
    set_target_properties(qv8numeric::qv8numeric PROPERTIES INTERFACE_LINK_LIBRARIES qv8numeric::static)
endif()

# CMake notes that the objects in the static library were made from C++, but they need no C++ runtime: a program in C is
# linked with it by the C driver.
if(TARGET qv8numeric::static)
    get_target_property(qv8numeric_configurations qv8numeric::static IMPORTED_CONFIGURATIONS)
    foreach(qv8numeric_configuration IN LISTS qv8numeric_configurations)
        set_target_properties(qv8numeric::static PROPERTIES
            IMPORTED_LINK_INTERFACE_LANGUAGES_${qv8numeric_configuration} C)
    endforeach()
endif()

foreach(qv8numeric_component IN LISTS qv8numeric_FIND_COMPONENTS)
    if(qv8numeric_FIND_REQUIRED_${qv8numeric_component} AND NOT qv8numeric_${qv8numeric_component}_FOUND)
        set(qv8numeric_FOUND FALSE)
        set(qv8numeric_NOT_FOUND_MESSAGE
            "qv8numeric has no component \"${qv8numeric_component}\" here, but: ${qv8numeric_installed}")
    endif()
endforeach()

unset(qv8numeric_component)
unset(qv8numeric_configuration)
unset(qv8numeric_configurations)
unset(qv8numeric_installed)
unset(qv8numeric_library)
unset(qv8numeric_targets)
