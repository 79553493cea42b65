// SPDX-License-Identifier: MIT
// The frame of the operations on values of different scales: both operands to one common scale in 256 bits, and the
// combined value from there to the result's scale.
#ifndef QV8NUMERIC_NUMERIC_ALIGNMENT_H
#define QV8NUMERIC_NUMERIC_ALIGNMENT_H

#include "wide/extended_numeric.h"

namespace qv8numeric {

// The common scale of two operands, and the places that take each of them there.
struct Alignment {
    int64_t common_scale;
    int64_t a_shift;
    int64_t b_shift;
};

// At most one shift is negative: only the operand with more places can lose digits, and only when the scales differ by
// more than the guard digits that the other one is given.
Alignment align(const Numeric& a, int32_t a_scale, const Numeric& b, int32_t b_scale);

// Widens both operands to two's complement and moves each by its shift, towards zero where digits are dropped.
// discarded becomes 0 when nothing was dropped and nonzero otherwise; bits that leave the top are lost without notice.
void preprocess(const Numeric& a, const long long& a_shift, const Numeric& b, const long long& b_shift,
                ExtendedNumeric& a_wide, ExtendedNumeric& b_wide, unsigned& discarded);

// Both operands at one scale in 256 bits, with the sign of what each has lost on the way: -1, 0 or 1.
struct AlignedOperands {
    ExtendedNumeric a;
    ExtendedNumeric b;
    int32_t a_truncated;
    int32_t b_truncated;
    int64_t scale;
};

AlignedOperands aligned(const Numeric& a, int32_t a_scale, const Numeric& b, int32_t b_scale);

// Moves x, in two's complement, by shift places, rounds it once and stores it. adjust is the sign of what was dropped
// before x was formed: one unit of x in that direction stands for it, which makes the result inexact. A magnitude of
// 2^127 or more makes overflow nonzero; then result holds its low 128 bits, for the caller to replace. x is scratch.
// NUMERIC_OK, NUMERIC_INEXACT, or NUMERIC_INVALID_ARGUMENT for an invalid mode, with the result untouched.
NumericStatus postprocess(ExtendedNumeric& x, int adjust, const long long& shift, const unsigned& rounding_mode,
                          Numeric& result, unsigned& overflow);

}  // namespace qv8numeric

#endif
