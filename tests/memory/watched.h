// SPDX-License-Identifier: MIT
// What MemorySanitizer and valgrind's memcheck are told of the memory they watch. Where neither does, nothing happens.
#ifndef QV8NUMERIC_TESTS_MEMORY_WATCHED_H
#define QV8NUMERIC_TESTS_MEMORY_WATCHED_H

#include <cstddef>

#if defined(__has_feature)
#  if __has_feature(memory_sanitizer)
#    define QV8NUMERIC_TESTS_MSAN 1
#  endif
#endif

#if defined(QV8NUMERIC_TESTS_MSAN)
#  include <sanitizer/msan_interface.h>
#elif __has_include(<valgrind/memcheck.h>)
#  include <valgrind/memcheck.h>
#endif

namespace watched {

// From here on its bytes count as never written: whoever decides anything by them is reported.
inline void forget([[maybe_unused]] const void* begin, [[maybe_unused]] std::size_t size) {
#if defined(QV8NUMERIC_TESTS_MSAN)
    __msan_poison(begin, size);
#elif defined(VALGRIND_MAKE_MEM_UNDEFINED)
    VALGRIND_MAKE_MEM_UNDEFINED(begin, size);
#endif
}

// Not to be touched. To MemorySanitizer, which does not know that, not to be relied on.
inline void forbid([[maybe_unused]] const void* begin, [[maybe_unused]] std::size_t size) {
#if defined(VALGRIND_MAKE_MEM_NOACCESS)
    VALGRIND_MAKE_MEM_NOACCESS(begin, size);
#else
    forget(begin, size);
#endif
}

// Reports the first byte that was never written.
inline void demand([[maybe_unused]] const void* begin, [[maybe_unused]] std::size_t size) {
#if defined(QV8NUMERIC_TESTS_MSAN)
    __msan_check_mem_is_initialized(begin, size);
#elif defined(VALGRIND_CHECK_MEM_IS_DEFINED)
    VALGRIND_CHECK_MEM_IS_DEFINED(begin, size);
#endif
}

}  // namespace watched

#endif
