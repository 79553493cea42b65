// SPDX-License-Identifier: MIT
// The operations as they are written on any signed integer type: for the packages whose type that is. The type's own
// part is
//     Big::Value                            the integer
//     Big::from(high, low)                  high * 2^64 + low
//     Big::divide(n, d, quotient, rest)     towards zero
//     Big::is_odd(x), Big::sign(x)
//     Big::to_int64(x)                      of one that fits
#ifndef QV8NUMERIC_BENCH_PEERS_INTEGER_KERNELS_H
#define QV8NUMERIC_BENCH_PEERS_INTEGER_KERNELS_H

#include <vector>

#include "../kernels.h"
#include "int128.h"

namespace qv8numeric_bench {

template <typename Big>
struct IntegerKernels {
    using Value = typename Big::Value;
    using Info = NumericInfo;

    static const Value& power(int exponent) {
        static const std::vector<Value> powers = [] {
            std::vector<Value> list;
            for (const int128::U128 p : int128::kPower) {
                list.push_back(Big::from(static_cast<std::int64_t>(int128::high(p)), int128::low(p)));
            }
            return list;
        }();
        return powers[static_cast<std::size_t>(exponent)];
    }

    static NumericStatus finish(Value* out, const Value& value, bool inexact) {
        static const Value limit = Big::from(INT64_MAX, UINT64_MAX);
        static const Value negative_limit = -limit;
        if (value > limit) return NUMERIC_OVERFLOW;
        if (value < negative_limit) return NUMERIC_UNDERFLOW;
        *out = value;
        return inexact ? NUMERIC_INEXACT : NUMERIC_OK;
    }

    // n / d for d != 0, rounded.
    static NumericStatus divide_rounded(Value* out, const Value& n, const Value& d, std::uint32_t mode) {
        if (!int128::is_mode(mode)) return NUMERIC_INVALID_ARGUMENT;
        Value quotient, rest;
        Big::divide(n, d, quotient, rest);
        const bool inexact = Big::sign(rest) != 0;
        if (inexact) {
            const bool negative = (Big::sign(n) < 0) != (Big::sign(d) < 0);
            rest += rest;
            const Value twice = Big::sign(rest) < 0 ? Value(-rest) : rest;
            const Value unit = Big::sign(d) < 0 ? Value(-d) : d;
            const unsigned dropped = twice < unit ? 1 : twice == unit ? 2 : 3;
            if (int128::is_increased(mode, negative, Big::is_odd(quotient), dropped)) quotient += negative ? -1 : 1;
        }
        return finish(out, quotient, inexact);
    }

    // An exact value with `places` digits too many, or too few where that is negative.
    static NumericStatus settle(Value* out, const Value& value, int places, std::uint32_t mode) {
        if (places > 0) return divide_rounded(out, value, power(places), mode);
        if (places < 0) return finish(out, Value(value * power(-places)), false);
        return finish(out, value, false);
    }

    static NumericStatus add(const Value* a, const Value* b, Value* out) { return finish(out, Value(*a + *b), false); }

    static std::int32_t compare(const Value* a, const Value* b) { return (*a > *b) - (*a < *b); }

    static NumericStatus rescale(const Info* from, const Info* to, const Value* src, Value* dst) {
        return settle(dst, *src, from->scale - to->scale, to->rounding_mode);
    }

    static NumericStatus round(const Info* info, std::int32_t places, Value* num) {
        if (places >= info->scale) return NUMERIC_OK;
        const NumericStatus status = settle(num, *num, info->scale - places, info->rounding_mode);
        *num *= power(info->scale - places);
        return status == NUMERIC_INEXACT ? finish(num, *num, true) : status;
    }

    static NumericStatus rescaling_add(const Info* a_info, const Info* b_info, const Info* result_info, const Value* a,
                                       const Value* b, Value* result) {
        const int ahead = a_info->scale - b_info->scale;
        if (ahead < 0) {
            return settle(result, Value(*a * power(-ahead) + *b), b_info->scale - result_info->scale,
                          result_info->rounding_mode);
        }
        return settle(result, Value(*b * power(ahead) + *a), a_info->scale - result_info->scale,
                      result_info->rounding_mode);
    }

    static NumericStatus rescaling_multiply(const Info* a_info, const Info* b_info, const Info* result_info,
                                            const Value* a, const Value* b, Value* result) {
        return settle(result, Value(*a * *b), a_info->scale + b_info->scale - result_info->scale,
                      result_info->rounding_mode);
    }

    static NumericStatus rescaling_divide(const Info* a_info, const Info* b_info, const Info* result_info,
                                          const Value* a, const Value* b, Value* result) {
        if (Big::sign(*b) == 0) return NUMERIC_NAN;
        const int up = result_info->scale - a_info->scale + b_info->scale;
        return divide_rounded(result, Value(*a * power(up)), *b, result_info->rounding_mode);
    }

    static std::int32_t rescaling_compare(const Info* a_info, const Info* b_info, const Value* a, const Value* b) {
        const int ahead = a_info->scale - b_info->scale;
        const Value left = ahead < 0 ? Value(*a * power(-ahead)) : *a;
        const Value right = ahead > 0 ? Value(*b * power(ahead)) : *b;
        return compare(&left, &right);
    }

    static NumericStatus divide_by_integer(Value* x, const Info* info, std::int32_t d) {
        if (d == 0) return NUMERIC_NAN;
        return divide_rounded(x, *x, Value(d), info->rounding_mode);
    }

    static NumericStatus multiply_by_integer(Value* x, std::int32_t m) { return finish(x, Value(*x * m), false); }

    static NumericStatus from_integer(std::int64_t value, const Info* info, Value* out) {
        return finish(out, Value(Big::from(value < 0 ? -1 : 0, static_cast<std::uint64_t>(value)) * power(info->scale)),
                      false);
    }

    static NumericStatus to_integer(const Value* in, const Info* info, std::int64_t* out) {
        static const Value limit = Big::from(0, INT64_MAX);
        Value quotient, rest;
        Big::divide(*in, power(info->scale), quotient, rest);
        if (quotient > limit || quotient < -limit) return NUMERIC_OVERFLOW;
        *out = Big::to_int64(quotient);
        return Big::sign(rest) != 0 ? NUMERIC_INEXACT : NUMERIC_OK;
    }

    static const Kernels<Value>& kernels() {
        static const Kernels<Value> kernels = [] {
            Kernels<Value> k{};
            k.add = add;
            k.compare = compare;
            k.rescale = rescale;
            k.round = round;
            k.rescaling_add = rescaling_add;
            k.rescaling_multiply = rescaling_multiply;
            k.rescaling_divide = rescaling_divide;
            k.rescaling_compare = rescaling_compare;
            k.divide_by_integer = divide_by_integer;
            k.multiply_by_integer = multiply_by_integer;
            k.from_integer = from_integer;
            k.to_integer = to_integer;
            return k;
        }();
        return kernels;
    }
};

}  // namespace qv8numeric_bench

#endif
