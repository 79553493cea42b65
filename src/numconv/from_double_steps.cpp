// SPDX-License-Identifier: MIT
// A Numeric from any double at any scale: the significand in the top word of a vector, brought to an integer by turns.
#include <algorithm>

#include "numconv/binary64.h"
#include "numconv/double_steps.h"
#include "wide/narrowing.h"
#include "wide/shifting.h"

namespace qv8numeric {
namespace {

// significand * 2^exponent, with the significand as the top word of the vector that the exponent belongs to.
struct Binary {
    uint64_t significand;
    int64_t exponent;
};

constexpr int64_t significand_position = 192;

Binary take_apart(uint64_t magnitude_bits) {
    const uint64_t fraction = magnitude_bits & fraction_mask;
    const auto exponent = static_cast<int64_t>(magnitude_bits >> fraction_bits);
    const int64_t smallest = 1 - exponent_bias - int64_t{fraction_bits} - significand_position;  // exponent fields 0, 1
    if (exponent == 0) return {fraction, smallest};
    return {fraction | implicit_bit, smallest + exponent - 1};
}

// The vector while it is brought from x * 2^exponent * 5^scale to an integer.
struct Conversion {
    ExtendedNumeric x;
    Dropped dropped;
    unsigned overflow;
};

void shift_down(Conversion& conversion, int64_t bits) {
    conversion.x = shift_right(conversion.x, static_cast<uint64_t>(bits), conversion.dropped);
}

// The whole binary shift down, then the divisions.
void shift_then_divide(Conversion& conversion, int64_t shift, int64_t fives) {
    shift_down(conversion, shift);
    while (fives > 0 && !is_zero(conversion.x)) divide_by_five(conversion.x, take_power(fives), conversion.dropped);
    // What would divide a zero further only makes the last code sticky.
    if (fives > 0) drop(conversion.dropped, 0);
}

// Shifts down and multiplications by turns until the fives are used up; then the rest of the shift at once.
// shift + fives is at most 1266, so the turns are few.
void shift_and_multiply(Conversion& conversion, int64_t shift, int64_t fives) {
    constexpr int64_t turn = 28;
    while (fives > 0 && conversion.overflow == 0) {
        const int64_t step = std::min(shift, turn);
        shift_down(conversion, step);
        shift -= step;
        multiply_by_five(conversion.x, take_power(fives), conversion.overflow);
    }
    shift_down(conversion, shift);
}

// Divisions and shifts up by turns, until both are used up. shift + fives is at most 779, so the turns are few.
void divide_and_shift(Conversion& conversion, int64_t shift, int64_t fives) {
    constexpr int64_t turn = 27;
    uint64_t lost = 0;
    while ((fives > 0 || shift > 0) && lost == 0) {
        if (fives > 0) divide_by_five(conversion.x, take_power(fives), conversion.dropped);
        const int64_t step = std::min(shift, turn);
        conversion.x = shift_left(conversion.x, static_cast<unsigned>(step), lost);
        shift -= step;
    }
    conversion.overflow = lost != 0 ? 1 : 0;
}

Conversion convert(const Binary& value, int64_t scale) {
    Conversion conversion{{{0, 0, 0, value.significand}}, {}, 0};
    const int64_t exponent = value.exponent + scale;
    if (exponent < 0 && scale <= 0) {
        shift_then_divide(conversion, -exponent, -scale);
    } else if (exponent < 0) {
        shift_and_multiply(conversion, -exponent, scale);
    } else if (scale < 0) {
        divide_and_shift(conversion, exponent, -scale);
    }  // else it is at least 2^192 as it stands, and nothing makes it smaller
    return conversion;
}

}  // namespace

NumericStatus from_double_in_steps(uint64_t bits, const NumericInfo& info, Numeric& out) {
    const uint64_t magnitude = bits & ~sign_bit;
    const bool negative = bits != magnitude;
    if (magnitude == 0) {
        out = Numeric{0, 0};
        return NUMERIC_OK;
    }
    if (magnitude >= exponent_field(exponent_of_infinity)) {
        const NumericStatus status = refuse(negative, out);
        return magnitude == exponent_field(exponent_of_infinity) ? status : NUMERIC_NAN;
    }
    Conversion conversion = convert(take_apart(magnitude), info.scale);
    const Fraction dropped = fraction_of(conversion.dropped);
    const NumericStatus status = round_magnitude(conversion.x, dropped, negative, info.rounding_mode);
    if (status == NUMERIC_INVALID_ARGUMENT) return status;
    return narrow(conversion.x, negative, conversion.overflow, status, out);
}

}  // namespace qv8numeric
