// SPDX-License-Identifier: MIT
// What a coefficient is, and that one pattern is none.
#ifndef QV8NUMERIC_TESTS_REFERENCE_VALUE_H
#define QV8NUMERIC_TESTS_REFERENCE_VALUE_H

#include <cstdint>

#include "qv8numeric.h"

namespace reference {

inline constexpr Numeric kNan{0, INT64_MIN};
inline constexpr Numeric kZero{0, 0};

inline bool is_nan(const Numeric& x) { return x.high == INT64_MIN && x.low == 0; }
inline bool is_zero(const Numeric& x) { return x.high == 0 && x.low == 0; }
inline bool is_negative(const Numeric& x) { return x.high < 0; }

}  // namespace reference

#endif
