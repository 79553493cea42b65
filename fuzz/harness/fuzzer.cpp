// SPDX-License-Identifier: MIT
// The entry of libFuzzer, which AFL++ knows too.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "batch.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static qv8numeric_fuzz::Tally tally;
    const auto difference = qv8numeric_fuzz::run_batch({data, size}, tally);
    if (difference) {
        std::cerr << difference->report;
        std::abort();
    }
    return 0;
}
