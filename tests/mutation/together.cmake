# SPDX-License-Identifier: MIT
# Read behind project(): compiles the library's files together, as far as their names allow, since a changed header is
# compiled with all of them. Those that a host may replace one by one stay apart.
if(NOT TARGET qv8numeric_numeric)
    cmake_language(EVAL CODE "cmake_language(DEFER CALL include [[${CMAKE_CURRENT_LIST_FILE}]])")
    return()
endif()

foreach(unit numeric numconv)
    set_target_properties(qv8numeric_${unit} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
endforeach()
foreach(file numeric/dump numeric/truncated_part numconv/literal_entry numconv/format numconv/from_double)
    string(REGEX REPLACE "/.*" "" unit ${file})
    set_source_files_properties(${PROJECT_SOURCE_DIR}/src/${file}.cpp TARGET_DIRECTORY qv8numeric_${unit}
        PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endforeach()

# It holds files of the library itself, beside the rest of it.
set_target_properties(qv8numeric_compiled PROPERTIES EXCLUDE_FROM_ALL ON)
