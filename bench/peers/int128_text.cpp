// SPDX-License-Identifier: MIT
#include <cstring>

#include "int128_parts.h"
#include "settle.h"

namespace qv8numeric_bench::QV8NUMERIC_BENCH_INT128 {
namespace {

// "00" to "99", and "000" to "999" for a group.
constexpr auto kPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();
constexpr auto kTriples = [] {
    std::array<char, 4000> triples{};
    for (std::size_t i = 0; i < 1000; ++i) {
        triples[4 * i] = ',';
        triples[4 * i + 1] = static_cast<char>('0' + i / 100);
        triples[4 * i + 2] = static_cast<char>('0' + i / 10 % 10);
        triples[4 * i + 3] = static_cast<char>('0' + i % 10);
    }
    return triples;
}();

// The number of digits, 1 for zero. 1233 / 4096 is just below log10(2).
int digit_count(U128 x) {
    const int estimate = bit_length(x | 1) * 1233 >> 12;
    return estimate + (x >= kPower[static_cast<std::size_t>(estimate)] || x == 0 ? 1 : 0);
}

// These write leftwards from `end` and return where they came to: exactly `count` digits, or as many as there are.
char* put_digits(char* end, U64 x, int count) {
    for (; count >= 2; count -= 2) {
        end -= 2;
        std::memcpy(end, &kPairs[x % 100 * 2], 2);
        x /= 100;
    }
    if (count != 0) *--end = static_cast<char>('0' + x % 10);
    return end;
}

char* put_number(char* end, U64 x) {
    while (x >= 100) {
        end -= 2;
        std::memcpy(end, &kPairs[x % 100 * 2], 2);
        x /= 100;
    }
    if (x < 10) {
        *--end = static_cast<char>('0' + x);
        return end;
    }
    return static_cast<char*>(std::memcpy(end - 2, &kPairs[x * 2], 2));
}

char* put_digits(char* end, U128 x, int count) {
    if (count > kWordDigits) {
        U64 chunk;
        x = divide_by_word<Dividend::kAny>(x, low(kPower[kWordDigits]), &chunk);
        end = put_digits(end, chunk, kWordDigits);
        count -= kWordDigits;
    }
    return put_digits(end, low(x), count);
}

char* put_number(char* end, U128 x) {
    while (!is_word(x)) {
        U64 chunk;
        x = divide_by_word<Dividend::kAny>(x, low(kPower[kWordDigits]), &chunk);
        end = put_digits(end, chunk, kWordDigits);
    }
    return put_number(end, low(x));
}

char* put_groups(char* end, U64 x, int count) {
    for (; count > 0; --count) {
        end -= 4;
        std::memcpy(end, &kTriples[x % 1000 * 4], 4);
        x /= 1000;
    }
    return end;
}

char* put_grouped_number(char* end, U128 x) {
    constexpr int groups = 6;
    while (!is_word(x)) {
        U64 chunk;
        x = divide_by_word<Dividend::kAny>(x, low(kPower[3 * groups]), &chunk);
        end = put_groups(end, chunk, groups);
    }
    U64 rest = low(x);
    for (; rest >= 1000; rest /= 1000) end = put_groups(end, rest % 1000, 1);
    return put_number(end, rest);
}

// At the scale of `info` and no exponent; what the general frame would do beyond is not asked for here.
template <bool kGrouped>
NumericStatus to_text(const Numeric* value, const NumericInfo* info, std::int32_t exponent_shift,
                      std::int32_t output_scale, char* buffer, std::size_t buffer_size) {
    const I128 number = load(value);
    if (number == kNan) {
        if (buffer_size < 4) return NUMERIC_BUFFER_TOO_SMALL;
        std::memcpy(buffer, "NaN", 4);
        return NUMERIC_NAN;
    }
    if (!is_mode(info->rounding_mode) || exponent_shift != 0) return NUMERIC_INVALID_ARGUMENT;
    if (output_scale < 0 || output_scale > kMostDigits) return NUMERIC_INVALID_ARGUMENT;
    U128 x = magnitude(number);
    bool inexact = false;
    const int dropped = info->scale - output_scale;
    if (dropped > 0) {
        const U128 unit = kPower[static_cast<std::size_t>(dropped)];
        x = divide_rounded<Dividend::kShort>(x, unit, info->rounding_mode, number < 0, &inexact);
    } else if (dropped < 0) {
        const U256 product = multiply(x, kPower[static_cast<std::size_t>(-dropped)]);
        if (high_half(product) != 0 || low_half(product) >= kLimit) {
            return number < 0 ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW;
        }
        x = low_half(product);
    }
    // Split at the point, so that neither side has to look for it.
    U128 whole = x, fraction = 0;
    if (output_scale > 0 && is_word(x) && output_scale <= kWordDigits) {
        const U64 unit = low(kPower[static_cast<std::size_t>(output_scale)]);
        whole = low(x) / unit;
        fraction = low(x) % unit;
    } else if (output_scale > 0 && output_scale <= kWordDigits) {
        U64 rest;
        whole = divide_by_word<Dividend::kAny>(x, low(kPower[static_cast<std::size_t>(output_scale)]), &rest);
        fraction = rest;
    } else if (output_scale > 0) {
        whole = divide(x, kPower[static_cast<std::size_t>(output_scale)], &fraction);
    }
    const int digits = digit_count(whole);
    const int length =
        (number < 0 ? 1 : 0) + digits + (kGrouped ? (digits - 1) / 3 : 0) + (output_scale > 0 ? output_scale + 1 : 0);
    if (static_cast<std::size_t>(length) >= buffer_size) return NUMERIC_BUFFER_TOO_SMALL;
    *buffer = '-';  // or the first digit, written later
    char* at = buffer + length;
    *at = '\0';
    if (output_scale > 0) {
        at = put_digits(at, fraction, output_scale);
        *--at = '.';
    }
    (void)(kGrouped ? put_grouped_number(at, whole) : put_number(at, whole));
    return inexact ? NUMERIC_INEXACT : NUMERIC_OK;
}

// What a literal's digits have come to: a word as long as they fit one, then 128 bits.
struct Digits {
    U128 upper = 0;         // the first 19 digits, once there are more
    U64 latest = 0;         // the others, at most 19
    int pending = 0;        // how many those are
    bool too_many = false;  // beyond 38

    U128 value() const {
        return upper == 0 ? U128{latest} : upper * kPower[static_cast<std::size_t>(pending)] + latest;
    }

    // A run of digits; returns its end.
    const char* read(const char* at) {
        for (unsigned digit; (digit = static_cast<unsigned char>(*at) - unsigned{'0'}) < 10; ++at) {
            if (pending == kWordDigits) {
                too_many = too_many || upper != 0;
                upper = latest;
                latest = 0;
                pending = 0;
            }
            latest = latest * 10 + digit;
            ++pending;
        }
        return at;
    }
};

const char* skip_zeros(const char* at) {
    while (*at == '0') ++at;
    return at;
}

bool is_digit(char c) { return '0' <= c && c <= '9'; }

// Groups of three behind one to three digits.
const char* read_groups(const char* at, Digits* digits) {
    while (*at == ',' && is_digit(at[1]) && is_digit(at[2]) && is_digit(at[3]) && !is_digit(at[4])) {
        at = digits->read(at + 1);
    }
    return at;
}

// An exponent, if there is one.
const char* read_exponent(const char* at, int* exponent) {
    if (*at != 'E' && *at != 'e') return at;
    const char* digit = at + 1;
    const bool negative = *digit == '-';
    if (*digit == '-' || *digit == '+') ++digit;
    if (!is_digit(*digit)) return at;
    int value = 0;
    for (; is_digit(*digit); ++digit) {
        if (value < 100000) value = value * 10 + (*digit - '0');
    }
    *exponent = negative ? -value : value;
    return digit;
}

template <bool kGrouped>
NumericStatus from_text(const char* text, const NumericInfo* info, Numeric* result, char** end) {
    const char* at = text;
    const bool negative = *at == '-';
    at += unsigned{negative} | unsigned{*at == '+'};
    Digits digits;
    const char* const first = at;
    at = digits.read(skip_zeros(at));
    if (kGrouped && at - first <= 3) at = read_groups(at, &digits);
    int places = 0;
    bool any = at != first;
    if (*at == '.') {
        const char* const point = at++;
        if (digits.pending == 0) at = skip_zeros(at);
        at = digits.read(at);
        places = static_cast<int>(at - point - 1);
        any = any || places != 0;
    }
    if (!any) return NUMERIC_SYNTAX_ERROR;
    int exponent = 0;
    at = read_exponent(at, &exponent);
    if (end) *end = const_cast<char*>(at);
    if (!is_mode(info->rounding_mode)) return NUMERIC_INVALID_ARGUMENT;
    const int dropped = places - exponent - info->scale;
    if (digits.too_many || dropped < -kMostDigits || dropped > kMostDigits) {
        return nan(result, negative ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW);
    }
    return settle<Dividend::kShort>(result, digits.value(), negative, dropped, info->rounding_mode);
}

}  // namespace

void add_text(Kernels<Numeric>& kernels) {
    kernels.to_text = to_text<false>;
    kernels.to_grouped_text = to_text<true>;
    kernels.from_text = from_text<false>;
    kernels.from_grouped_text = from_text<true>;
}

}  // namespace qv8numeric_bench::QV8NUMERIC_BENCH_INT128
