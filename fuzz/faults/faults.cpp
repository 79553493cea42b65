// SPDX-License-Identifier: MIT
// Faults to be found by the comparison: one at a time stands between the calls of a target and the library. Its name is
// in the environment; without one, every call goes through as it is. Each is small, and wrong in few cases only.
#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "qv8numeric.h"

namespace {

bool planted(std::string_view fault) {
    static const char* const name = std::getenv("QV8NUMERIC_FUZZ_FAULT");
    return name != nullptr && fault == name;
}

bool is_nan(const Numeric& value) { return value.high == INT64_MIN && value.low == 0; }
constexpr Numeric kNan{0, INT64_MIN};

std::int64_t distance(const NumericInfo& from, const NumericInfo& to) { return std::int64_t{to.scale} - from.scale; }

NumericInfo with_mode(const NumericInfo& info, std::uint32_t from, std::uint32_t to) {
    return {info.scale, info.rounding_mode == from ? to : info.rounding_mode};
}

NumericInfo half_up_for_half_even(const NumericInfo& info) {
    return with_mode(info, NUMERIC_ROUND_HALF_EVEN, NUMERIC_ROUND_HALF_UP);
}

}  // namespace

// The linker sends the calls of FUNCTION to __wrap_FUNCTION, and those of __real_FUNCTION to the library.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

// ---- Values of one scale

NumericStatus __real_QV8NumericAdd(const Numeric*, const Numeric*, Numeric*);
NumericStatus __wrap_QV8NumericAdd(const Numeric* a, const Numeric* b, Numeric* out);
NumericStatus __wrap_QV8NumericAdd(const Numeric* a, const Numeric* b, Numeric* out) {
    const bool carries = a->low > UINT64_MAX - b->low;
    const NumericStatus status = __real_QV8NumericAdd(a, b, out);
    if (planted("add: one off after a carry") && status == NUMERIC_OK && carries) out->low ^= 1;
    if (planted("add: overflow for underflow") && status == NUMERIC_UNDERFLOW) return NUMERIC_OVERFLOW;
    return status;
}

NumericStatus __real_QV8NumericSub(const Numeric*, const Numeric*, Numeric*);
NumericStatus __wrap_QV8NumericSub(const Numeric* a, const Numeric* b, Numeric* out);
NumericStatus __wrap_QV8NumericSub(const Numeric* a, const Numeric* b, Numeric* out) {
    const Numeric before = *out;
    const NumericStatus status = __real_QV8NumericSub(a, b, out);
    if (planted("sub: NaN not written") && status == NUMERIC_NAN) *out = before;
    if (planted("sub: a byte behind the result") && status == NUMERIC_OK) reinterpret_cast<char*>(out)[16] = 0;
    return status;
}

std::int32_t __real_QV8NumericCmp(const Numeric*, const Numeric*);
std::int32_t __wrap_QV8NumericCmp(const Numeric* a, const Numeric* b);
std::int32_t __wrap_QV8NumericCmp(const Numeric* a, const Numeric* b) {
    if (planted("cmp: lower halves as signed numbers") && a->high == b->high && (a->low ^ b->low) >> 63 != 0) {
        return -__real_QV8NumericCmp(a, b);
    }
    return __real_QV8NumericCmp(a, b);
}

NumericStatus __real_QV8NumericMul(Numeric*, std::int32_t);
NumericStatus __wrap_QV8NumericMul(Numeric* x, std::int32_t m);
NumericStatus __wrap_QV8NumericMul(Numeric* x, std::int32_t m) {
    const NumericStatus status = __real_QV8NumericMul(x, m);
    if (planted("mul: -2^127 refused") && status == NUMERIC_OK && is_nan(*x)) return NUMERIC_UNDERFLOW;
    return status;
}

NumericStatus __real_QV8NumericDiv(Numeric*, const NumericInfo*, std::int32_t);
NumericStatus __wrap_QV8NumericDiv(Numeric* x, const NumericInfo* info, std::int32_t d);
NumericStatus __wrap_QV8NumericDiv(Numeric* x, const NumericInfo* info, std::int32_t d) {
    const NumericInfo changed = half_up_for_half_even(*info);
    if (planted("div: half up for half even")) return __real_QV8NumericDiv(x, &changed, d);
    const Numeric before = *x;
    const NumericStatus status = __real_QV8NumericDiv(x, info, d);
    if (planted("div: operand kept when the mode is invalid") && status == NUMERIC_INVALID_ARGUMENT) *x = before;
    return status;
}

int __real_QV8NumericIsNan(const Numeric*);
int __wrap_QV8NumericIsNan(const Numeric* v);
int __wrap_QV8NumericIsNan(const Numeric* v) {
    return planted("is nan: lower half not seen") ? v->high == INT64_MIN : __real_QV8NumericIsNan(v);
}

void __real_QV8NumericSetZero(Numeric*);
void __wrap_QV8NumericSetZero(Numeric* out);
void __wrap_QV8NumericSetZero(Numeric* out) {
    const std::int64_t high = out->high;
    __real_QV8NumericSetZero(out);
    if (planted("set zero: upper half left")) out->high = high;
}

// ---- Rounding

NumericStatus __real_QV8NumericRound(const NumericInfo*, std::int32_t, Numeric*);
NumericStatus __wrap_QV8NumericRound(const NumericInfo* info, std::int32_t places, Numeric* num);
NumericStatus __wrap_QV8NumericRound(const NumericInfo* info, std::int32_t places, Numeric* num) {
    const NumericStatus status = __real_QV8NumericRound(info, places, num);
    const bool validated_in_vain = status == NUMERIC_INVALID_ARGUMENT && places >= info->scale;
    return planted("round: mode not seen when nothing is dropped") && validated_in_vain ? NUMERIC_OK : status;
}

NumericStatus __real_QV8NumericCeil(const NumericInfo*, std::int32_t, Numeric*);
NumericStatus __wrap_QV8NumericCeil(const NumericInfo* info, std::int32_t places, Numeric* num);
NumericStatus __wrap_QV8NumericCeil(const NumericInfo* info, std::int32_t places, Numeric* num) {
    const bool negative = num->high < 0;
    const NumericStatus status = __real_QV8NumericCeil(info, places, num);
    return planted("ceil: exact when towards zero") && negative && status == NUMERIC_INEXACT ? NUMERIC_OK : status;
}

NumericStatus __real_QV8NumericRescale(const NumericInfo*, const NumericInfo*, const Numeric*, Numeric*);
NumericStatus __wrap_QV8NumericRescale(const NumericInfo* from, const NumericInfo* to, const Numeric* src,
                                       Numeric* dst);
NumericStatus __wrap_QV8NumericRescale(const NumericInfo* from, const NumericInfo* to, const Numeric* src,
                                       Numeric* dst) {
    const Numeric source = *src;
    const std::int64_t places = distance(*from, *to);
    const NumericStatus status = __real_QV8NumericRescale(from, to, src, dst);
    if (planted("rescale: zero for a negative value that rounds to it") && status == NUMERIC_OVERFLOW && places == -1) {
        if (source.high == -1 && source.low == UINT64_MAX) {
            *dst = {0, 0};
            return NUMERIC_OK;
        }
    }
    // 10^30 times 2^28 is above 2^127.
    if (planted("rescale: departing product refused") && status == NUMERIC_OK && places >= 30 &&
        (source.high > 0 || source.high < -1)) {
        *dst = kNan;
        return NUMERIC_OVERFLOW;
    }
    if (planted("rescale: a mode not seen") && status == NUMERIC_INVALID_ARGUMENT && from->rounding_mode > 6) {
        const NumericInfo valid{from->scale, 0};
        return __real_QV8NumericRescale(&valid, to, &source, dst);
    }
    return status;
}

// ---- Values of different scales

NumericStatus __real_QV8NumericRescalingAdd(const NumericInfo*, const NumericInfo*, const NumericInfo*, const Numeric*,
                                            const Numeric*, Numeric*);
NumericStatus __wrap_QV8NumericRescalingAdd(const NumericInfo* a_info, const NumericInfo* b_info,
                                            const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                            Numeric* result);
NumericStatus __wrap_QV8NumericRescalingAdd(const NumericInfo* a_info, const NumericInfo* b_info,
                                            const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                            Numeric* result) {
    const NumericStatus status = __real_QV8NumericRescalingAdd(a_info, b_info, result_info, a, b, result);
    const bool far = std::abs(distance(*a_info, *b_info)) > 48;
    return planted("rescaling add: exact beyond the guard") && far && status == NUMERIC_INEXACT ? NUMERIC_OK : status;
}

NumericStatus __real_QV8NumericRescalingSub(const NumericInfo*, const NumericInfo*, const NumericInfo*, const Numeric*,
                                            const Numeric*, Numeric*);
NumericStatus __wrap_QV8NumericRescalingSub(const NumericInfo* a_info, const NumericInfo* b_info,
                                            const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                            Numeric* result);
NumericStatus __wrap_QV8NumericRescalingSub(const NumericInfo* a_info, const NumericInfo* b_info,
                                            const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                            Numeric* result) {
    const NumericStatus status = __real_QV8NumericRescalingSub(a_info, b_info, result_info, a, b, result);
    if (planted("rescaling sub: operand changed") && b != result) const_cast<Numeric*>(b)->low ^= 1;
    return status;
}

std::int32_t __real_QV8NumericRescalingCmp(const NumericInfo*, const NumericInfo*, const Numeric*, const Numeric*);
std::int32_t __wrap_QV8NumericRescalingCmp(const NumericInfo* a_info, const NumericInfo* b_info, const Numeric* a,
                                           const Numeric* b);
std::int32_t __wrap_QV8NumericRescalingCmp(const NumericInfo* a_info, const NumericInfo* b_info, const Numeric* a,
                                           const Numeric* b) {
    const std::int32_t order = __real_QV8NumericRescalingCmp(a_info, b_info, a, b);
    return planted("rescaling cmp: two NaN equal") && order == 1 && is_nan(*a) && is_nan(*b) ? 0 : order;
}

NumericStatus __real_QV8NumericRescalingMul(const NumericInfo*, const NumericInfo*, const NumericInfo*, const Numeric*,
                                            const Numeric*, Numeric*);
NumericStatus __wrap_QV8NumericRescalingMul(const NumericInfo* a_info, const NumericInfo* b_info,
                                            const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                            Numeric* result);
NumericStatus __wrap_QV8NumericRescalingMul(const NumericInfo* a_info, const NumericInfo* b_info,
                                            const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                            Numeric* result) {
    const NumericInfo changed = half_up_for_half_even(*result_info);
    const bool wrong = planted("rescaling mul: half up for half even");
    return __real_QV8NumericRescalingMul(a_info, b_info, wrong ? &changed : result_info, a, b, result);
}

NumericStatus __real_QV8NumericRescalingDiv(const NumericInfo*, const NumericInfo*, const NumericInfo*, const Numeric*,
                                            const Numeric*, Numeric*);
NumericStatus __wrap_QV8NumericRescalingDiv(const NumericInfo* a_info, const NumericInfo* b_info,
                                            const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                            Numeric* result);
NumericStatus __wrap_QV8NumericRescalingDiv(const NumericInfo* a_info, const NumericInfo* b_info,
                                            const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                            Numeric* result) {
    const std::int64_t places = std::int64_t{result_info->scale} - a_info->scale + b_info->scale;
    const bool long_dividend = a->high != 0 && a->high != -1 && places >= 50;
    const bool negative = (a->high < 0) != (b->high < 0);
    const bool short_divisor = b->high == 0 || b->high == -1;
    const bool zero = b->low == 0 && b->high == 0;
    const NumericStatus status = __real_QV8NumericRescalingDiv(a_info, b_info, result_info, a, b, result);
    // 2^64 * 10^50 is above 2^229, so the quotient is above 2^127.
    if (planted("rescaling div: lost part seen") && long_dividend && short_divisor &&
        (status == NUMERIC_OK || status == NUMERIC_INEXACT)) {
        *result = kNan;
        return negative ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW;
    }
    if (planted("rescaling div: zero before the modes") && zero && status == NUMERIC_INVALID_ARGUMENT) {
        *result = kNan;
        return NUMERIC_NAN;
    }
    return status;
}

// ---- Text out

NumericStatus __real_QV8NumericNum2Str(const Numeric*, const NumericInfo*, std::int32_t, std::int32_t, char*,
                                       std::size_t);
NumericStatus __wrap_QV8NumericNum2Str(const Numeric* value, const NumericInfo* info, std::int32_t exponent_shift,
                                       std::int32_t output_scale, char* buffer, std::size_t buffer_size);
NumericStatus __wrap_QV8NumericNum2Str(const Numeric* value, const NumericInfo* info, std::int32_t exponent_shift,
                                       std::int32_t output_scale, char* buffer, std::size_t buffer_size) {
    const NumericStatus status =
        __real_QV8NumericNum2Str(value, info, exponent_shift, output_scale, buffer, buffer_size);
    if (status < 0 || buffer_size > 1000) return status;
    if (planted("num2str: a byte behind the buffer")) buffer[buffer_size] = '\0';
    if (planted("num2str: a byte before the buffer")) buffer[-1] = '-';
    if (planted("num2str: no sign of a zero") && std::strspn(buffer, "-0.") == std::strlen(buffer) && *buffer == '-') {
        std::memmove(buffer, buffer + 1, std::strlen(buffer));
    }
    if (planted("num2str: no exact fit") && std::strlen(buffer) + 1 == buffer_size) return NUMERIC_BUFFER_TOO_SMALL;
    return status;
}

NumericStatus __real_QV8NumericNum2Dgstr(const Numeric*, const NumericInfo*, std::int32_t, std::int32_t, char*,
                                         std::size_t);
NumericStatus __wrap_QV8NumericNum2Dgstr(const Numeric* value, const NumericInfo* info, std::int32_t exponent_shift,
                                         std::int32_t output_scale, char* buffer, std::size_t buffer_size);
NumericStatus __wrap_QV8NumericNum2Dgstr(const Numeric* value, const NumericInfo* info, std::int32_t exponent_shift,
                                         std::int32_t output_scale, char* buffer, std::size_t buffer_size) {
    const NumericStatus status =
        __real_QV8NumericNum2Dgstr(value, info, exponent_shift, output_scale, buffer, buffer_size);
    if (planted("num2dgstr: tail one off") && status == NUMERIC_BUFFER_TOO_SMALL && buffer_size > 1 &&
        buffer_size < 1000) {
        *buffer = '\0';
    }
    if (planted("num2dgstr: comma for the point") && status >= 0) {
        char* const point = std::strchr(buffer, '.');
        if (point != nullptr) *point = ',';
    }
    return status;
}

// ---- Text in

NumericStatus __real_QV8NumericStr2Num(const char*, const NumericInfo*, Numeric*, char**);
NumericStatus __wrap_QV8NumericStr2Num(const char* text, const NumericInfo* info, Numeric* result, char** end);
NumericStatus __wrap_QV8NumericStr2Num(const char* text, const NumericInfo* info, Numeric* result, char** end) {
    char* const before = end == nullptr ? nullptr : *end;
    const NumericStatus status = __real_QV8NumericStr2Num(text, info, result, end);
    if (planted("str2num: a byte behind the NUL is read")) {
        const volatile char* const behind = text + std::strlen(text) + 1;
        static_cast<void>(*behind);
    }
    if (end == nullptr) return status;
    if (planted("str2num: end unset") && status == NUMERIC_SYNTAX_ERROR) *end = before;
    if (planted("str2num: end behind a long exponent") && status >= 0 && *text != '\0')
        *end += std::strspn(*end, "0123456789");
    if (planted("str2num: end of the empty text") && *text == '\0') *end = const_cast<char*>(text);
    return status;
}

NumericStatus __real_QV8NumericDgstr2Num(const char*, const NumericInfo*, Numeric*, char**);
NumericStatus __wrap_QV8NumericDgstr2Num(const char* text, const NumericInfo* info, Numeric* result, char** end);
NumericStatus __wrap_QV8NumericDgstr2Num(const char* text, const NumericInfo* info, Numeric* result, char** end) {
    const NumericStatus status = __real_QV8NumericDgstr2Num(text, info, result, end);
    if (planted("dgstr2num: result of a syntax error") && status == NUMERIC_SYNTAX_ERROR) *result = {0, 0};
    if (planted("dgstr2num: one off") && status == NUMERIC_INEXACT && std::strchr(text, ',') != nullptr)
        result->low ^= 1;
    return status;
}

// ---- Machine numbers

NumericStatus __real_QV8NumericLong2Num(std::int64_t, const NumericInfo*, Numeric*);
NumericStatus __wrap_QV8NumericLong2Num(std::int64_t value, const NumericInfo* info, Numeric* out);
NumericStatus __wrap_QV8NumericLong2Num(std::int64_t value, const NumericInfo* info, Numeric* out) {
    if (planted("long2num: mode seen at scale 0") && info->rounding_mode > 6) return NUMERIC_INVALID_ARGUMENT;
    return __real_QV8NumericLong2Num(value, info, out);
}

NumericStatus __real_QV8NumericNum2Long(const Numeric*, const NumericInfo*, std::int64_t*);
NumericStatus __wrap_QV8NumericNum2Long(const Numeric* in, const NumericInfo* info, std::int64_t* out);
NumericStatus __wrap_QV8NumericNum2Long(const Numeric* in, const NumericInfo* info, std::int64_t* out) {
    const std::int64_t before = *out;
    const NumericStatus status = __real_QV8NumericNum2Long(in, info, out);
    if (planted("num2long: output untouched on failure") && status == NUMERIC_OVERFLOW) *out = before;
    return status;
}

NumericStatus __real_QV8NumericNum2Int(const Numeric*, const NumericInfo*, std::int32_t*);
NumericStatus __wrap_QV8NumericNum2Int(const Numeric* in, const NumericInfo* info, std::int32_t* out);
NumericStatus __wrap_QV8NumericNum2Int(const Numeric* in, const NumericInfo* info, std::int32_t* out) {
    const NumericStatus status = __real_QV8NumericNum2Int(in, info, out);
    if (planted("num2int: eight bytes written")) std::memset(out, *out < 0 ? 0xff : 0, 8);
    if (planted("num2int: rounded up") && status == NUMERIC_INEXACT && info->rounding_mode == NUMERIC_ROUND_UP) ++*out;
    return status;
}

NumericStatus __real_QV8NumericDbl2Num(const NumericInfo*, Numeric*, double);
NumericStatus __wrap_QV8NumericDbl2Num(const NumericInfo* info, Numeric* out, double value);
NumericStatus __wrap_QV8NumericDbl2Num(const NumericInfo* info, Numeric* out, double value) {
    const NumericInfo changed = half_up_for_half_even(*info);
    const bool wrong = planted("dbl2num: half up for half even");
    const NumericStatus status = __real_QV8NumericDbl2Num(wrong ? &changed : info, out, value);
    if (planted("dbl2num: minus zero is NaN") && std::bit_cast<std::uint64_t>(value) == std::uint64_t{1} << 63) {
        *out = kNan;
    }
    return status;
}

NumericStatus __real_QV8NumericNum2Dbl(const Numeric*, const NumericInfo*, double*);
NumericStatus __wrap_QV8NumericNum2Dbl(const Numeric* in, const NumericInfo* info, double* out);
NumericStatus __wrap_QV8NumericNum2Dbl(const Numeric* in, const NumericInfo* info, double* out) {
    const NumericStatus status = __real_QV8NumericNum2Dbl(in, info, out);
    constexpr std::uint64_t kInfinity = std::uint64_t{0x7ff} << 52;
    const auto bits = std::bit_cast<std::uint64_t>(*out);
    if (planted("num2dbl: infinity by rounding is an overflow") && status == NUMERIC_INEXACT &&
        bits << 1 == kInfinity << 1) {
        return bits == kInfinity ? NUMERIC_OVERFLOW : NUMERIC_UNDERFLOW;
    }
    if (planted("num2dbl: written with an invalid mode") && status == NUMERIC_INVALID_ARGUMENT) *out = 0;
    if (planted("num2dbl: one off in the last place") && status == NUMERIC_INEXACT && info->scale < -22) {
        *out = std::bit_cast<double>(bits ^ 1);
    }
    return status;
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier)
