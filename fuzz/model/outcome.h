// SPDX-License-Identifier: MIT
// What a call is expected to do.
#ifndef QV8NUMERIC_FUZZ_OUTCOME_H
#define QV8NUMERIC_FUZZ_OUTCOME_H

#include "wide.h"

namespace qv8numeric_fuzz {

struct Outcome {
    NumericStatus status;
    bool written;  // the output holds value; else it is as it was before
    Numeric value;
};

inline constexpr Outcome kNanOperand{NUMERIC_NAN, true, kNan};
inline constexpr Outcome kInvalidArgument{NUMERIC_INVALID_ARGUMENT, false, kZero};

}  // namespace qv8numeric_fuzz

#endif
