// SPDX-License-Identifier: MIT
// Rounding to a number of places without a change of scale.
#ifndef QV8NUMERIC_TESTS_REFERENCE_TRUNCATION_H
#define QV8NUMERIC_TESTS_REFERENCE_TRUNCATION_H

#include <cstdint>

#include "qv8numeric.h"

namespace reference {

// Rounds a coefficient of this scale to so many places; the digits behind them become zeros.
NumericStatus round_to_places(std::int32_t scale, std::int32_t places, std::uint32_t mode, Numeric* num);

}  // namespace reference

#endif
