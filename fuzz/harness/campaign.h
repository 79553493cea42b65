// SPDX-License-Identifier: MIT
// Random inputs, numbered: the seed and the number of an input decide its bytes, so a campaign can be divided among
// processes, broken off and continued.
#ifndef QV8NUMERIC_FUZZ_CAMPAIGN_H
#define QV8NUMERIC_FUZZ_CAMPAIGN_H

#include <cstdint>
#include <optional>
#include <string>

#include "batch.h"
#include "tally.h"

namespace qv8numeric_fuzz {

struct Campaign {
    std::uint64_t calls = 0;  // at least so many, the last input being finished
    std::uint64_t seed = 1;
    std::uint64_t part = 0;  // this process takes the inputs whose number is part modulo parts
    std::uint64_t parts = 1;
    std::string state_file;  // where it stands, if not empty: read at the start, written now and then
};

// Ends with the first difference, of which it returns the report; the record is written to a file beside.
std::optional<std::string> run_campaign(const Campaign& campaign, Tally& tally);

}  // namespace qv8numeric_fuzz

#endif
