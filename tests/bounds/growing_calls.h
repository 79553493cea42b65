// SPDX-License-Identifier: MIT
// Calls on as much text as is asked for: what they cost may grow with it, and in no other way than with it.
#ifndef QV8NUMERIC_TESTS_BOUNDS_GROWING_CALLS_H
#define QV8NUMERIC_TESTS_BOUNDS_GROWING_CALLS_H

#include <cstddef>
#include <functional>
#include <vector>

namespace bounds {

struct Prepared {
    std::size_t bytes;  // read, or written
    std::function<void()> run;
};

struct GrowingCall {
    const char* function;
    const char* family;
    Prepared (*prepare)(std::size_t size);
};

const std::vector<GrowingCall>& growing_calls();

}  // namespace bounds

#endif
