# SPDX-License-Identifier: MIT
# qv8numeric_checks: what the project's own build adds to find mistakes. Empty unless an option asks for something, so a
# new compiler's new warning never stands in the way of a user.
add_library(qv8numeric_checks INTERFACE)

set(gcc "$<CXX_COMPILER_ID:GNU>")
set(clang "$<CXX_COMPILER_ID:Clang,AppleClang>")
set(cxx "$<COMPILE_LANGUAGE:CXX>")

if(QV8NUMERIC_WERROR)
    target_compile_options(qv8numeric_checks INTERFACE
        -Werror -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wdouble-promotion -Wfloat-equal -Wshadow
        -Wundef -Wcast-qual -Wcast-align -Wformat=2 -Wmissing-declarations -Wredundant-decls -Wimplicit-fallthrough
        $<${cxx}:-Wold-style-cast> $<${cxx}:-Wextra-semi> $<${cxx}:-Wnon-virtual-dtor>
        "$<$<AND:${cxx},${gcc}>:-Wduplicated-cond;-Wlogical-op;-Warith-conversion;-Wzero-as-null-pointer-constant>"
        "$<$<AND:${cxx},${clang}>:-Wcomma;-Wunreachable-code-aggressive;-Wshadow-all;-Wextra-semi-stmt;-Wdocumentation>")
endif()

if(QV8NUMERIC_SANITIZE)
    set(sanitize -fsanitize=${QV8NUMERIC_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(qv8numeric_checks INTERFACE ${sanitize})
    # The check of indirect calls wants the type information of the C++ runtime, which the library is linked without.
    target_compile_options(qv8numeric_checks INTERFACE $<${clang}:-fno-sanitize=function>)
    target_link_options(qv8numeric_checks INTERFACE ${sanitize})
    if(QV8NUMERIC_SANITIZE MATCHES "unsigned-integer-overflow")
        # Wrapping unsigned numbers is no mistake; the standard library's headers do it wherever it suits them.
        target_compile_options(qv8numeric_checks INTERFACE
            -fsanitize-ignorelist=${CMAKE_CURRENT_LIST_DIR}/sanitizer_ignorelist.txt)
    endif()
endif()

if(QV8NUMERIC_FUZZ_ENGINE)
    # What tells the engine which branches an input has taken.
    target_compile_options(qv8numeric_checks INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(QV8NUMERIC_COVERAGE)
    target_compile_options(qv8numeric_checks INTERFACE --coverage)
    target_link_options(qv8numeric_checks INTERFACE --coverage)
endif()
