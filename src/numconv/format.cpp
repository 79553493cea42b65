// SPDX-License-Identifier: MIT
// Text from a Numeric, written from its last character back to its first: digits come out of a division in that order,
// and only the end of the buffer is known beforehand.
#include "numconv/format.h"

#include <cstring>

#include "numconv/conv_table.h"
#include "wide/narrowing.h"
#include "wide/powers.h"
#include "wide/primitives.h"

namespace qv8numeric {
namespace {

// The text so far is position[0] up to the NUL in the buffer's last byte. A put that finds no room returns false; what
// stands already is then the end of the text that would have been written.
struct BackwardText {
    char* begin;
    char* position;
};

bool put(BackwardText& text, char character) {
    if (text.position == text.begin) return false;
    *--text.position = character;
    return true;
}

// The decimal digits of a magnitude, units first. Endless: after the highest digit come zeros.
struct Digits {
    ExtendedNumeric rest;
    uint64_t packed = 0;  // one digit a byte, the next one lowest
    unsigned held = 0;    // digits in packed, leading zeros of their group included
};

bool exhausted(const Digits& digits) { return digits.packed == 0 && is_zero(digits.rest); }

// Eight digits with one division and two looks at the table.
void refill(Digits& digits) {
    constexpr divisor_t eight_digits = negative_power_of_ten[8];
    unsigned code = 0;
    unsigned sticky = 0;
    div_unsigned(digits.rest, eight_digits, digits.rest, code, sticky);
    const uint32_t group = remainder_of(code, eight_digits.divisor);
    digits.packed = uint64_t{conv_table[group / 10000]} << 32 | conv_table[group % 10000];
    digits.held = 8;
}

char next(Digits& digits) {
    if (digits.held == 0) refill(digits);
    const auto character = static_cast<char>('0' + (digits.packed & 0xff));
    digits.packed >>= 8;
    --digits.held;
    return character;
}

bool put_exponent(BackwardText& text, int32_t exponent_shift) {
    if (exponent_shift == 0) return true;
    const int64_t exponent = -int64_t{exponent_shift};
    Digits digits{extend({0, static_cast<uint64_t>(exponent < 0 ? -exponent : exponent)})};
    do {
        if (!put(text, next(digits))) return false;
    } while (!exhausted(digits));
    return put(text, exponent < 0 ? '-' : '+') && put(text, 'E');
}

// places digits and the point before them; nothing for no places.
bool put_fraction(BackwardText& text, Digits& digits, int64_t places) {
    if (places <= 0) return true;
    for (; places > 0; --places) {
        if (!put(text, exhausted(digits) ? '0' : next(digits))) return false;
    }
    return put(text, '.');
}

// The digits that are left, behind them appended zeros; one 0 when there is no digit, whatever zeros should follow it.
bool put_integer(BackwardText& text, Digits& digits, int64_t appended_zeros, bool grouped) {
    unsigned in_group = 0;
    do {
        if (grouped && in_group == 3) {
            if (!put(text, ',')) return false;
            in_group = 0;
        }
        const bool appended = appended_zeros > 0;
        if (!put(text, appended ? '0' : next(digits))) return false;
        if (appended) --appended_zeros;
        ++in_group;
    } while (!exhausted(digits));
    return true;
}

// The magnitude at output_scale. One that leaves the range goes on as 2^127, the NaN pattern seen as a
// magnitude: the text then shows that number, and the status tells.
NumericStatus scale_magnitude(const Numeric& value, const NumericInfo& info, int32_t output_scale,
                              ExtendedNumeric& magnitude) {
    const bool negative = is_negative(value);
    magnitude = extend(magnitude_of(value));
    unsigned overflow = 0;
    const NumericStatus status =
        scale_and_round(magnitude, negative, int64_t{output_scale} - info.scale, info.rounding_mode, overflow);
    if (status == NUMERIC_INVALID_ARGUMENT || (overflow == 0 && fits(magnitude))) return status;
    magnitude = extend(magnitude_of(nan_pattern));
    return negative ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW;
}

NumericStatus put_nan(char* buffer, std::size_t buffer_size) {
    static constexpr char nan_text[] = "NaN";
    if (buffer_size < sizeof nan_text) return NUMERIC_BUFFER_TOO_SMALL;
    std::memcpy(buffer, nan_text, sizeof nan_text);
    return NUMERIC_NAN;
}

// No byte to write to, or no end that a pointer can reach.
bool is_no_buffer(const char* buffer, std::size_t buffer_size) {
    return buffer_size == 0 || buffer_size > UINTPTR_MAX - reinterpret_cast<std::uintptr_t>(buffer);
}

}  // namespace

NumericStatus numeric_num2str_internal(const Numeric* value, const NumericInfo* info, std::int32_t exponent_shift,
                                       std::int32_t output_scale, char* buffer, std::size_t buffer_size,
                                       std::int32_t mode) {
    if (is_nan(*value)) return put_nan(buffer, buffer_size);
    if (is_no_buffer(buffer, buffer_size)) return NUMERIC_BUFFER_TOO_SMALL;
    const Numeric number = *value;  // the buffer may be where it lies
    const NumericInfo number_info = *info;

    char* const terminator = buffer + buffer_size - 1;
    *terminator = '\0';
    BackwardText text{buffer, terminator};
    if (!put_exponent(text, exponent_shift)) return NUMERIC_BUFFER_TOO_SMALL;

    Digits digits{};
    const NumericStatus status = scale_magnitude(number, number_info, output_scale, digits.rest);
    if (status == NUMERIC_INVALID_ARGUMENT) return status;

    // A negative output scale has rounded digits away, and they stay away.
    const int64_t places = int64_t{output_scale > 0 ? output_scale : 0} - exponent_shift;
    const bool complete = put_fraction(text, digits, places) &&
                          put_integer(text, digits, -places, mode == format_grouped) &&
                          // The sign is the value's, also when the digits have been rounded to zero.
                          (!is_negative(number) || put(text, '-'));
    if (!complete) return NUMERIC_BUFFER_TOO_SMALL;
    std::memmove(buffer, text.position, static_cast<std::size_t>(terminator - text.position) + 1);
    return status;
}

}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericNum2Str(const Numeric* value, const NumericInfo* info, int32_t exponent_shift,
                                           int32_t output_scale, char* buffer, size_t buffer_size) noexcept {
    return numeric_num2str_internal(value, info, exponent_shift, output_scale, buffer, buffer_size, format_plain);
}

extern "C" NumericStatus QV8NumericNum2Dgstr(const Numeric* value, const NumericInfo* info, int32_t exponent_shift,
                                             int32_t output_scale, char* buffer, size_t buffer_size) noexcept {
    return numeric_num2str_internal(value, info, exponent_shift, output_scale, buffer, buffer_size, format_grouped);
}
