// SPDX-License-Identifier: MIT
// Counting instructions: callgrind looks at nothing but the calls of one row, and writes a file for each.
#ifndef QV8NUMERIC_BENCH_INSTRUMENTATION_H
#define QV8NUMERIC_BENCH_INSTRUMENTATION_H

#include <string>

#include "trial.h"

namespace qv8numeric_bench {

// Few are enough, since they are the same in every run.
inline constexpr std::size_t kCountedCalls = 1024;

// Throws std::runtime_error where the program was built without callgrind's header.
void count_instructions(Trial& trial, const std::string& title);

}  // namespace qv8numeric_bench

#endif
