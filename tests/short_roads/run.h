// SPDX-License-Identifier: MIT
// The walk and the drawn cases, one call after the other.
#ifndef QV8NUMERIC_TESTS_SHORT_ROADS_RUN_H
#define QV8NUMERIC_TESTS_SHORT_ROADS_RUN_H

#include <cstdint>
#include <functional>

#include "call.h"
#include "operations.h"

namespace short_roads {

inline constexpr std::uint64_t kMostDifferences = 20;

struct Plan {
    std::uint64_t seed = 20260101;
    std::uint64_t first_case = 0;
    std::uint64_t cases = 1000000;
    std::uint64_t walk_every = 1;  // of the walks only every such call; 0: none
    bool showing = false;          // every call, not only those that differ
};

struct Progress {
    std::uint64_t calls;  // begun
    std::uint64_t differences;
    std::uint64_t outcomes[64][8];  // by operation and by status + 3
};

// Makes the calls of the plan, prints those that differ and stops at the twentieth of them.
void run(const Plan& plan, Progress& progress);

// The call that this one of the plan's calls is, without making it.
void print_call(const Plan& plan, std::uint64_t wanted);

}  // namespace short_roads

#endif
