// SPDX-License-Identifier: MIT
// Of each function the call that most programs make, and the dearest ones that are known.
#ifndef QV8NUMERIC_TESTS_BOUNDS_NAMED_CALLS_H
#define QV8NUMERIC_TESTS_BOUNDS_NAMED_CALLS_H

#include <cstdint>
#include <vector>

#include "call.h"

namespace bounds {

struct NamedCall {
    const char* function;
    std::int32_t (*invoke)(short_roads::Arguments arguments);
    void (*repeat)(const short_roads::Call& call, short_roads::Memory& memory, std::uint64_t times);
    bool typical;
    const char* arguments;  // in words
    short_roads::Call call;
};

const std::vector<NamedCall>& named_calls();

}  // namespace bounds

#endif
