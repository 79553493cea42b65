// SPDX-License-Identifier: MIT
// What every test needs: coefficients written as people write them, and names in failure messages.
#ifndef QV8NUMERIC_TESTS_VALUES_H
#define QV8NUMERIC_TESTS_VALUES_H

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

#include "qv8numeric.h"

// Two coefficients are the same value exactly when both halves agree; gtest prints them in decimal.
inline bool operator==(const Numeric& a, const Numeric& b) { return a.low == b.low && a.high == b.high; }
std::ostream& operator<<(std::ostream& out, const Numeric& value);

namespace qv8numeric_tests {

// The coefficient named by an expression: "NaN", or a sum of terms such as "-12", "2^127", "10^30" joined by
// "+" and "-" ("2^127-1", "-2^64", "10^30+7"). Throws std::invalid_argument for anything else and
// std::out_of_range for a value that is not a coefficient; -2^127 is refused, since its pattern is NaN.
Numeric num(std::string_view expression);

// The coefficient in decimal, or "NaN".
std::string text(const Numeric& value);

// "NUMERIC_OK" and so on; a number that is no status comes back as the number.
std::string status_name(NumericStatus status);

// "HALF_EVEN" and so on; a number that is no mode comes back as the number.
std::string mode_name(std::uint32_t mode);

// Put into an output before a call, so that an output left unwritten is seen. No operation returns it by chance.
inline constexpr Numeric kPoison{0x5a5a5a5a5a5a5a5aU, 0x5a5a5a5a5a5a5a5a};

inline constexpr std::uint32_t kModes[] = {
    NUMERIC_ROUND_UP,      NUMERIC_ROUND_DOWN,      NUMERIC_ROUND_CEILING,   NUMERIC_ROUND_FLOOR,
    NUMERIC_ROUND_HALF_UP, NUMERIC_ROUND_HALF_DOWN, NUMERIC_ROUND_HALF_EVEN,
};

}  // namespace qv8numeric_tests

#endif
