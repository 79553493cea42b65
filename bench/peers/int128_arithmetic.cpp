// SPDX-License-Identifier: MIT
#include "int128_parts.h"
#include "settle.h"

namespace qv8numeric_bench::QV8NUMERIC_BENCH_INT128 {
namespace {

// Small operands: their products with powers of ten up to this one fit the compiler's integer, and so do sums of two.
constexpr int kShortRoad = 18;

// Which no NaN is.
bool is_int64(I128 x) { return x == static_cast<std::int64_t>(x); }
bool are_int64(I128 x, I128 y) { return is_int64(x) && is_int64(y); }

I128 multiply_int64(I128 x, I128 y) {
    return static_cast<I128>(static_cast<std::int64_t>(x)) * static_cast<std::int64_t>(y);
}

bool either_nan(I128 a, I128 b) { return a == kNan || b == kNan; }
bool are_modes(const NumericInfo* a, const NumericInfo* b, const NumericInfo* c) {
    return is_mode(a->rounding_mode) && is_mode(b->rounding_mode) && is_mode(c->rounding_mode);
}
I128 power(int exponent) { return static_cast<I128>(kPower[static_cast<std::size_t>(exponent)]); }

NumericStatus add(const Numeric* a, const Numeric* b, Numeric* out) {
    const I128 x = load(a), y = load(b);
    if (either_nan(x, y)) return nan(out);
    I128 sum;
    if (__builtin_add_overflow(x, y, &sum) || sum == kNan)
        return nan(out, x < 0 ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW);
    store(out, sum);
    return NUMERIC_OK;
}

// NaN, as the least of all patterns, comes out below every number.
std::int32_t compare(const Numeric* a, const Numeric* b) {
    const I128 x = load(a), y = load(b);
    return (x > y) - (x < y);
}

NumericStatus rescale(const NumericInfo* from, const NumericInfo* to, const Numeric* src, Numeric* dst) {
    const I128 value = load(src);
    if (value == kNan) return nan(dst);
    const int places = from->scale - to->scale;
    if (places < 0) {
        if (is_int64(value) && -places <= kShortRoad) {
            store(dst, multiply_int64(value, power(-places)));
            return NUMERIC_OK;
        }
        const U256 product = multiply(magnitude(value), kPower[static_cast<std::size_t>(-places)]);
        return finish(dst, high_half(product) != 0 ? kLimit : low_half(product), value < 0, false);
    }
    if (!is_mode(from->rounding_mode) || !is_mode(to->rounding_mode)) return NUMERIC_INVALID_ARGUMENT;
    return settle<Dividend::kShort>(dst, magnitude(value), value < 0, places, to->rounding_mode);
}

NumericStatus round(const NumericInfo* info, std::int32_t places, Numeric* num) {
    const I128 value = load(num);
    if (value == kNan) return NUMERIC_NAN;
    if (!is_mode(info->rounding_mode)) return NUMERIC_INVALID_ARGUMENT;
    const int dropped = info->scale - places;
    if (dropped <= 0) return NUMERIC_OK;
    const U128 unit = kPower[static_cast<std::size_t>(dropped)];
    bool inexact;
    const U128 kept =
        divide_rounded<Dividend::kShort>(magnitude(value), unit, info->rounding_mode, value < 0, &inexact);
    return finish(num, kept * unit, value < 0, inexact);  // below 2^127 + 10^38, so nothing is lost
}

NumericStatus add_wide(int a_up, int b_up, int places, std::uint32_t mode, I128 x, I128 y, Numeric* result) {
    const U256 a = multiply(magnitude(x), kPower[static_cast<std::size_t>(a_up)]);
    const U256 b = multiply(magnitude(y), kPower[static_cast<std::size_t>(b_up)]);
    if ((x < 0) == (y < 0)) return settle(result, add(a, b), x < 0, places, mode);
    if (less(a, b) != 0) return settle(result, subtract(b, a), y < 0, places, mode);
    return settle(result, subtract(a, b), x < 0, places, mode);
}

NumericStatus rescaling_add(const NumericInfo* a_info, const NumericInfo* b_info, const NumericInfo* result_info,
                            const Numeric* a, const Numeric* b, Numeric* result) {
    const I128 x = load(a), y = load(b);
    const bool small = are_int64(x, y);
    if (!small && either_nan(x, y)) return nan(result);
    if (!are_modes(a_info, b_info, result_info)) return NUMERIC_INVALID_ARGUMENT;
    if (a_info->scale == b_info->scale && a_info->scale == result_info->scale) return add(a, b, result);
    const int common = a_info->scale > b_info->scale ? a_info->scale : b_info->scale;
    const int a_up = common - a_info->scale, b_up = common - b_info->scale, places = common - result_info->scale;
    if (small && a_up <= kShortRoad && b_up <= kShortRoad) {
        const I128 sum = multiply_int64(x, power(a_up)) + multiply_int64(y, power(b_up));
        return settle<Dividend::kShort>(result, magnitude(sum), sum < 0, places, result_info->rounding_mode);
    }
    return add_wide(a_up, b_up, places, result_info->rounding_mode, x, y, result);
}

NumericStatus rescaling_multiply(const NumericInfo* a_info, const NumericInfo* b_info, const NumericInfo* result_info,
                                 const Numeric* a, const Numeric* b, Numeric* result) {
    const I128 x = load(a), y = load(b);
    const bool small = are_int64(x, y);
    if (!small && either_nan(x, y)) return nan(result);
    if (!are_modes(a_info, b_info, result_info)) return NUMERIC_INVALID_ARGUMENT;
    const int places = a_info->scale + b_info->scale - result_info->scale;
    const std::uint32_t mode = result_info->rounding_mode;
    if (small) {
        const I128 product = multiply_int64(x, y);
        return settle<Dividend::kAny>(result, magnitude(product), product < 0, places, mode);
    }
    return settle(result, multiply(magnitude(x), magnitude(y)), (x < 0) != (y < 0), places, mode);
}

NumericStatus divide_wide(U256 dividend, U128 divisor, bool negative, std::uint32_t mode, Numeric* result) {
    U128 quotient, remainder;
    bool fits;
    if (is_word(divisor)) {
        remainder = divide(&dividend, low(divisor));
        quotient = low_half(dividend);
        fits = high_half(dividend) == 0;
    } else {
        quotient = divide(dividend, divisor, &remainder, &fits);
    }
    if (!fits) return finish(result, kLimit, negative, false);
    quotient += increase(mode, negative, quotient, remainder, divisor);
    return finish(result, quotient, negative, remainder != 0);
}

NumericStatus rescaling_divide(const NumericInfo* a_info, const NumericInfo* b_info, const NumericInfo* result_info,
                               const Numeric* a, const Numeric* b, Numeric* result) {
    const I128 x = load(a), y = load(b);
    if (either_nan(x, y)) return nan(result);
    if (!are_modes(a_info, b_info, result_info)) return NUMERIC_INVALID_ARGUMENT;
    if (y == 0) return nan(result);
    const int up = result_info->scale - a_info->scale + b_info->scale;  // 0 to 38
    const U128 p = magnitude(x), divisor = magnitude(y), unit = kPower[static_cast<std::size_t>(up)];
    const bool negative = (x < 0) != (y < 0) && x != 0;
    const std::uint32_t mode = result_info->rounding_mode;
    if (is_word(p) && up <= kWordDigits) {
        bool inexact;
        const U128 quotient =
            divide_rounded<Dividend::kAny>(U128{low(p)} * low(unit), divisor, mode, negative, &inexact);
        return finish(result, quotient, negative, inexact);
    }
    return divide_wide(multiply(p, unit), divisor, negative, mode, result);
}

std::int32_t rescaling_compare(const NumericInfo* a_info, const NumericInfo* b_info, const Numeric* a,
                               const Numeric* b) {
    if (!is_mode(a_info->rounding_mode) || !is_mode(b_info->rounding_mode)) return NUMERIC_INVALID_ARGUMENT;
    const I128 x = load(a), y = load(b);
    const int up = b_info->scale - a_info->scale;  // of *a; the other way round if negative
    const bool small = are_int64(x, y);
    if (up == 0 || (!small && either_nan(x, y))) return (x > y) - (x < y);
    const I128 factor = power(up > 0 ? up : -up);
    if (small && up <= kShortRoad && -up <= kShortRoad) {
        const I128 p = up > 0 ? multiply_int64(x, factor) : x, q = up < 0 ? multiply_int64(y, factor) : y;
        return (p > q) - (p < q);
    }
    if (up <= kWordDigits && -up <= kWordDigits) {
        const Signed192 p = multiply_signed(x, up > 0 ? low(static_cast<U128>(factor)) : 1);
        const Signed192 q = multiply_signed(y, up < 0 ? low(static_cast<U128>(factor)) : 1);
        return static_cast<int>(less(q, p)) - static_cast<int>(less(p, q));
    }
    if ((x < 0) != (y < 0)) return x < 0 ? -1 : 1;
    const U256 p = multiply(magnitude(x), up > 0 ? static_cast<U128>(factor) : 1);
    const U256 q = multiply(magnitude(y), up < 0 ? static_cast<U128>(factor) : 1);
    const int order = static_cast<int>(less(q, p)) - static_cast<int>(less(p, q));
    return x < 0 ? -order : order;
}

NumericStatus divide_by_integer(Numeric* x, const NumericInfo* info, std::int32_t d) {
    const I128 value = load(x);
    if (value == kNan) return NUMERIC_NAN;
    if (d == 0) return nan(x);
    if (!is_mode(info->rounding_mode)) return NUMERIC_INVALID_ARGUMENT;
    const bool negative = (value < 0) != (d < 0);
    bool inexact;
    const U128 quotient = divide_rounded<Dividend::kShort>(magnitude_of_mostly_positive(value),
                                                           U128{low(magnitude_of_mostly_positive(d))},
                                                           info->rounding_mode, negative, &inexact);
    return finish(x, quotient, negative, inexact);
}

NumericStatus multiply_by_integer(Numeric* x, std::int32_t m) {
    const I128 value = load(x);
    if (value == kNan) return NUMERIC_NAN;
    if (is_int64(value)) {
        store(x, value * m);
        return NUMERIC_OK;
    }
    const U128 p = magnitude_of_mostly_positive(value), factor = magnitude_of_mostly_positive(m);
    const U128 bottom = U128{low(p)} * low(factor), top = U128{high(p)} * low(factor) + high(bottom);
    return finish(x, top >> 63 != 0 ? kLimit : top << 64 | low(bottom), (value < 0) != (m < 0), false);
}

}  // namespace

void add_arithmetic(Kernels<Numeric>& kernels) {
    kernels.add = add;
    kernels.compare = compare;
    kernels.rescale = rescale;
    kernels.round = round;
    kernels.rescaling_add = rescaling_add;
    kernels.rescaling_multiply = rescaling_multiply;
    kernels.rescaling_divide = rescaling_divide;
    kernels.rescaling_compare = rescaling_compare;
    kernels.divide_by_integer = divide_by_integer;
    kernels.multiply_by_integer = multiply_by_integer;
}

}  // namespace qv8numeric_bench::QV8NUMERIC_BENCH_INT128
