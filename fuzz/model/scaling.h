// SPDX-License-Identifier: MIT
// From one scale to another, and into the range of a coefficient.
#ifndef QV8NUMERIC_FUZZ_SCALING_H
#define QV8NUMERIC_FUZZ_SCALING_H

#include <cstdint>

#include "outcome.h"
#include "rounding.h"
#include "wide.h"

namespace qv8numeric_fuzz {

// magnitude < 2^256, without its last places >= 0.
Quotient without_places(const Wide& magnitude, std::int64_t places);

// magnitude < 2^256 with places >= 0 more. Where that leaves 2^256 by far, a value that leaves it too.
Wide with_places(const Wide& magnitude, std::int64_t places);

// The value with that sign if it is a coefficient, with this status; else NaN with the status for its sign.
Outcome narrowed(const Wide& magnitude, bool negative, NumericStatus status);

// magnitude < 2^256 with places more (fewer, when negative), rounded by the mode, which is validated first.
Outcome moved(const Wide& magnitude, bool negative, std::int64_t places, std::uint32_t mode);

}  // namespace qv8numeric_fuzz

#endif
