# SPDX-License-Identifier: MIT
# GoogleTest and the Boost headers. Debian has the first as a library for this machine only, and the second in a folder
# that holds this machine's C library as well: for another machine GoogleTest is built from its sources, and the Boost
# headers are reached by a link of their own.
if(NOT CMAKE_CROSSCOMPILING)
    find_package(GTest REQUIRED)
    find_path(QV8NUMERIC_BOOST_INCLUDE_DIR boost/multiprecision/cpp_int.hpp)
else()
    set(googletest /usr/src/googletest)
    if(NOT EXISTS ${googletest}/CMakeLists.txt)
        message(FATAL_ERROR "The tests need GoogleTest's sources (on Debian: libgtest-dev).")
    endif()
    set(BUILD_GMOCK OFF CACHE INTERNAL "")
    set(INSTALL_GTEST OFF CACHE INTERNAL "")
    add_subdirectory(${googletest} googletest EXCLUDE_FROM_ALL)

    find_path(boost_beside_c_library boost/multiprecision/cpp_int.hpp NO_CMAKE_FIND_ROOT_PATH)
    if(boost_beside_c_library)
        set(QV8NUMERIC_BOOST_INCLUDE_DIR ${CMAKE_CURRENT_BINARY_DIR}/headers CACHE INTERNAL "")
        file(MAKE_DIRECTORY ${QV8NUMERIC_BOOST_INCLUDE_DIR})
        file(CREATE_LINK ${boost_beside_c_library}/boost ${QV8NUMERIC_BOOST_INCLUDE_DIR}/boost SYMBOLIC)
    endif()
endif()
if(NOT QV8NUMERIC_BOOST_INCLUDE_DIR)
    message(FATAL_ERROR "The tests need the Boost headers (on Debian: libboost-dev).")
endif()
