// SPDX-License-Identifier: MIT
// An input as the calls that it stands for.
#ifndef QV8NUMERIC_FUZZ_BATCH_H
#define QV8NUMERIC_FUZZ_BATCH_H

#include <cstdint>
#include <optional>
#include <ostream>
#include <span>
#include <string>

#include "tally.h"

namespace qv8numeric_fuzz {

struct Difference {
    std::string report;                    // the call as C and where it differs
    std::span<const std::uint8_t> record;  // the bytes of this call alone: an input for it
};

// Makes the calls and counts them, up to the first that differs.
std::optional<Difference> run_batch(std::span<const std::uint8_t> input, Tally& tally);

void print_batch(std::span<const std::uint8_t> input, std::ostream& out);

// Prints the call being made when the program is ended by a signal such as that of a forbidden address.
void report_crashes();

}  // namespace qv8numeric_fuzz

#endif
