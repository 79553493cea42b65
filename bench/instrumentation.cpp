// SPDX-License-Identifier: MIT
#include "instrumentation.h"

#if __has_include(<valgrind/callgrind.h>)
#  include <valgrind/callgrind.h>
#endif

#include <stdexcept>

namespace qv8numeric_bench {

void count_instructions([[maybe_unused]] Trial& trial, [[maybe_unused]] const std::string& title) {
#ifdef CALLGRIND_START_INSTRUMENTATION
    trial.independent_calls(kCountedCalls);  // what is bound or set up at the first call
    CALLGRIND_START_INSTRUMENTATION;
    trial.independent_calls(kCountedCalls);
    CALLGRIND_STOP_INSTRUMENTATION;
    CALLGRIND_DUMP_STATS_AT(title.c_str());
#else
    throw std::runtime_error("built without valgrind's headers");
#endif
}

}  // namespace qv8numeric_bench
