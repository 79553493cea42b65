// SPDX-License-Identifier: MIT
// The conversions of doubles. Here the manual makes the steps part of the result: a vector of 256 bits, in which powers
// of five and shifts take turns, and what one step drops is lost for all that follow. No floating-point arithmetic.
#include "model.h"
#include "scaling.h"

namespace qv8numeric_fuzz::model {
namespace {

constexpr int kFractionBits = 52;
constexpr std::uint64_t kFraction = (std::uint64_t{1} << kFractionBits) - 1;
constexpr int kFives = 12;  // powers of five applied at once

std::int64_t fives_in_one_step(std::int64_t left) { return left < kFives ? left : kFives; }

// A vector with what has been dropped from it: the rest of the last step, and whether any step before dropped anything.
class Vector {
  public:
    explicit Vector(Wide value) : value_(std::move(value)) {}

    const Wide& value() const { return value_; }
    bool overflowed() const { return overflowed_; }
    Quotient quotient() const { return {value_, with_more_below(rest_, sticky_)}; }
    bool inexact() const { return rest_ != Rest::kNone || sticky_; }

    // A step of no bits or no powers does nothing, and the rest stays that of the step before.
    void shift_right(std::int64_t bits) {
        if (bits > 0) drop(qv8numeric_fuzz::shift_right(value_, bits));
    }
    void divide_by_fives(std::int64_t powers) {
        if (powers > 0) drop(quotient_of(value_, power_of_five(powers)));
    }
    void shift_left(std::int64_t bits) { grow(value_ * power_of_two(bits)); }
    void multiply_by_fives(std::int64_t powers) { grow(value_ * power_of_five(powers)); }

  private:
    void drop(const Quotient& quotient) {
        sticky_ = inexact();
        value_ = quotient.value;
        rest_ = quotient.rest;
    }
    void grow(const Wide& value) {
        overflowed_ = overflowed_ || value >= power_of_two(256);
        value_ = low_bits(value, 256);
    }

    Wide value_;
    Rest rest_ = Rest::kNone;
    bool sticky_ = false;
    bool overflowed_ = false;
};

// value * 2^exponent * 5^scale for exponent < 0 and scale <= 0.
void shift_then_divide(Vector& vector, std::int64_t shift, std::int64_t fives) {
    vector.shift_right(shift);
    for (; fives > 0; fives -= fives_in_one_step(fives)) {
        vector.divide_by_fives(fives_in_one_step(fives));
        // Nothing is left but the number of steps: the last one drops nothing from zero.
        if (vector.value() == 0 && fives > 2 * kFives) fives = 2 * kFives;
    }
}

// The same for exponent < 0 and scale > 0.
void shift_and_multiply(Vector& vector, std::int64_t shift, std::int64_t fives) {
    while ((shift > 0 || fives > 0) && !vector.overflowed()) {
        const std::int64_t bits = fives == 0 || shift <= 27 ? shift : 28;
        vector.shift_right(bits);
        shift -= bits;
        vector.multiply_by_fives(fives_in_one_step(fives));
        fives -= fives_in_one_step(fives);
    }
}

// The same for exponent >= 0 and scale < 0.
void divide_and_shift(Vector& vector, std::int64_t shift, std::int64_t fives) {
    while ((shift > 0 || fives > 0) && !vector.overflowed()) {
        vector.divide_by_fives(fives_in_one_step(fives));
        fives -= fives_in_one_step(fives);
        const std::int64_t bits = shift <= 26 ? shift : 27;
        vector.shift_left(bits);
        shift -= bits;
    }
}

struct Parts {
    std::uint64_t significand;
    std::int64_t exponent;  // of the significand's lowest bit
};
Parts parts_of(std::uint64_t bits) {
    constexpr std::int64_t kExponentOfLowestBit = -1074;
    const auto field = static_cast<std::int64_t>(bits >> kFractionBits & 0x7ff);
    if (field == 0) return {bits & kFraction, kExponentOfLowestBit};
    return {(bits & kFraction) + kFraction + 1, kExponentOfLowestBit + field - 1};
}

}  // namespace

Outcome from_double(const NumericInfo& info, std::uint64_t bits) {
    const bool negative = (bits & kSignBit) != 0;
    const std::uint64_t without_sign = bits & ~kSignBit;
    constexpr std::uint64_t kInfinity = std::uint64_t{0x7ff} << kFractionBits;
    if (without_sign == 0) return {NUMERIC_OK, true, kZero};
    if (without_sign > kInfinity) return kNanOperand;
    if (without_sign == kInfinity) return {negative ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW, true, kNan};
    if (!is_valid_mode(info.rounding_mode)) return kInvalidArgument;

    // The significand stands 192 bits up; 10^scale is 2^scale, which goes into the exponent, times 5^scale.
    const Parts parts = parts_of(bits);
    const std::int64_t scale = info.scale;
    const std::int64_t exponent = parts.exponent - 192 + scale;
    Vector vector(Wide(parts.significand) * power_of_two(192));
    if (exponent >= 0 && scale >= 0) return narrowed(power_of_two(192), negative, NUMERIC_OK);
    if (exponent >= 0) {
        divide_and_shift(vector, exponent, -scale);
    } else if (scale > 0) {
        shift_and_multiply(vector, -exponent, scale);
    } else {
        shift_then_divide(vector, -exponent, -scale);
    }
    if (vector.overflowed()) return narrowed(power_of_two(256), negative, NUMERIC_OK);
    return narrowed(rounded(vector.quotient(), info.rounding_mode, negative), negative,
                    vector.inexact() ? NUMERIC_INEXACT : NUMERIC_OK);
}

namespace {

// The vector and the power of two it is to be multiplied by.
struct Floating {
    Vector vector;
    std::int64_t exponent;
};

// Divides by 10^places. Once the exponent is below all doubles nothing more is done.
void divide_by_tens(Floating& number, std::int64_t places) {
    for (; places >= kFives && number.exponent >= -2048; places -= kFives) {
        number.vector.divide_by_fives(kFives);
        number.vector.shift_left(27);
        number.exponent -= kFives + 27;
    }
    if (places >= kFives) return;
    number.vector.divide_by_fives(places);
    number.vector.shift_left(places);
    number.exponent -= 2 * places;
}

// Multiplies by 10^places. Once the exponent is above all doubles nothing more is done.
void multiply_by_tens(Floating& number, std::int64_t places) {
    for (; places >= kFives && number.exponent < 2049; places -= kFives) {
        number.vector.shift_right(28);
        number.vector.multiply_by_fives(kFives);
        number.exponent += kFives + 28;
    }
    if (places >= kFives) return;
    number.vector.shift_right(places);
    number.vector.multiply_by_fives(places);
    number.exponent += 2 * places;
}

NumericStatus status_of(const Vector& vector) { return vector.inexact() ? NUMERIC_INEXACT : NUMERIC_OK; }

}  // namespace

DoubleOutcome to_double(const Numeric& in, const NumericInfo& info) {
    constexpr std::int64_t kLargestField = 2046;
    if (in.low == 0 && in.high == 0) return {NUMERIC_OK, true, 0};
    if (is_nan(in)) return {NUMERIC_NAN, true, ~std::uint64_t{0}};

    const bool negative = is_negative(in);
    const std::uint64_t sign = negative ? kSignBit : 0;
    Floating number{Vector(magnitude(in) * power_of_two(128)), -128};
    if (info.scale > 0) divide_by_tens(number, info.scale);
    if (info.scale < 0) multiply_by_tens(number, -std::int64_t{info.scale});

    const int length = bit_length(number.vector.value());
    const std::int64_t field = number.exponent + length + 1022;
    if (field > kLargestField) {
        return {negative ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW, true, sign | std::uint64_t{0x7ff} << kFractionBits};
    }
    const bool subnormal = field < 1;
    number.vector.shift_right(length - (kFractionBits + 1) + (subnormal ? 1 - field : 0));
    const bool valid = is_valid_mode(info.rounding_mode);
    if (!valid && !subnormal) return {NUMERIC_INVALID_ARGUMENT, false, 0};

    const Quotient quotient = number.vector.quotient();
    const std::uint64_t significand =
        low_word(valid ? rounded(quotient, info.rounding_mode, negative) : quotient.value);
    const NumericStatus status = valid ? status_of(number.vector) : NUMERIC_INVALID_ARGUMENT;
    // A subnormal that becomes normal loses its bit: it is zero.
    if (subnormal) return {status, true, sign | (significand & kFraction)};
    // A carry out of the significand leaves its fraction zero and goes into the exponent, up to infinity's.
    const bool carried = significand > 2 * kFraction + 1;
    const auto biased = static_cast<std::uint64_t>(carried ? field + 1 : field);
    return {status, true, sign | biased << kFractionBits | (significand & kFraction)};
}

}  // namespace qv8numeric_fuzz::model
