// SPDX-License-Identifier: MIT
// What a call left behind, as one value that can be compared and printed.
#ifndef QV8NUMERIC_TESTS_OUTCOME_H
#define QV8NUMERIC_TESTS_OUTCOME_H

#include <ostream>
#include <string_view>

#include "values.h"

namespace qv8numeric_tests {

// The status returned, and the coefficient the output held afterwards.
struct Outcome {
    NumericStatus status;
    Numeric value;
};

// As an expected value: the output still holds whatever it held before the call.
inline constexpr Numeric kUntouched = kPoison;

inline bool operator==(const Outcome& a, const Outcome& b) { return a.status == b.status && a.value == b.value; }
std::ostream& operator<<(std::ostream& out, const Outcome& outcome);

// `value` is an expression for num(), or "untouched".
Outcome outcome(NumericStatus status, std::string_view value);

}  // namespace qv8numeric_tests

#endif
