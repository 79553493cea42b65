// SPDX-License-Identifier: MIT
// Numbers to text, written from the end of the buffer towards its start, digit by digit.
#include <cstdint>
#include <cstring>

#include "limbs.h"
#include "reference.h"
#include "rounding.h"
#include "scaling.h"

namespace reference {
namespace {

// Puts each character before the last one, until the buffer is full. What did fit stays.
class Backwards {
  public:
    Backwards(char* buffer, std::size_t size) : first_(buffer), last_(buffer + size) { put('\0'); }

    bool put(char c) {
        if (last_ == first_) return false;
        *--last_ = c;
        return true;
    }

    // The text is complete: to the start of the buffer.
    void finish(std::size_t size) { std::memmove(first_, last_, static_cast<std::size_t>(first_ + size - last_)); }

  private:
    char* first_;
    char* last_;
};

char last_digit(Limbs& digits) { return static_cast<char>('0' + divide(digits, 10)); }

bool put_suffix(Backwards& text, std::int64_t exponent_shift) {
    const bool minus = exponent_shift > 0;
    for (std::int64_t rest = minus ? exponent_shift : -exponent_shift; rest != 0; rest /= 10) {
        if (!text.put(static_cast<char>('0' + rest % 10))) return false;
    }
    return text.put(minus ? '-' : '+') && text.put('E');
}

// Digits that are used up give zeros.
bool put_fraction(Backwards& text, Limbs& digits, std::int64_t places) {
    for (std::int64_t place = 0; place < places; ++place) {
        if (!text.put(last_digit(digits))) return false;
    }
    return places <= 0 || text.put('.');
}

// Negative places are zeros to be appended, but not to a zero.
bool put_integer(Backwards& text, Limbs& digits, std::int64_t places, bool grouped) {
    if (is_zero(digits)) return text.put('0');
    for (std::int64_t place = 0; place < -places || !is_zero(digits); ++place) {
        if (grouped && place != 0 && place % 3 == 0 && !text.put(',')) return false;
        if (!text.put(place < -places ? '0' : last_digit(digits))) return false;
    }
    return true;
}

NumericStatus nan_text(char* buffer, std::size_t buffer_size) {
    if (buffer_size < 4) return NUMERIC_BUFFER_TOO_SMALL;
    std::memcpy(buffer, "NaN", 4);
    return NUMERIC_NAN;
}

// The digits to be written. Those of a value out of range are the digits of 2^127.
NumericStatus digits_at(std::int32_t output_scale, const NumericInfo& info, bool negative, Limbs& digits) {
    Dropped dropped;
    const bool lost = scale(digits, distance(info.scale, output_scale), dropped) != 0;
    const NumericStatus status = round(digits, negative, info.rounding_mode, dropped);
    if (status == NUMERIC_INVALID_ARGUMENT || (in_range(digits) && !lost)) return status;
    digits = pattern(kNan);
    return range_status(negative);
}

NumericStatus format(Numeric value, NumericInfo info, std::int32_t exponent_shift, std::int32_t output_scale,
                     char* buffer, std::size_t buffer_size, bool grouped) {
    if (is_nan(value)) return nan_text(buffer, buffer_size);
    const auto address = reinterpret_cast<std::uintptr_t>(buffer);
    if (buffer_size == 0 || buffer_size > UINTPTR_MAX - address) return NUMERIC_BUFFER_TOO_SMALL;
    Backwards text(buffer, buffer_size);
    if (exponent_shift != 0 && !put_suffix(text, exponent_shift)) return NUMERIC_BUFFER_TOO_SMALL;
    Limbs digits = magnitude(value);
    const NumericStatus status = digits_at(output_scale, info, is_negative(value), digits);
    if (status == NUMERIC_INVALID_ARGUMENT) return status;
    const std::int64_t places = (output_scale > 0 ? std::int64_t{output_scale} : 0) - exponent_shift;
    if (!put_fraction(text, digits, places)) return NUMERIC_BUFFER_TOO_SMALL;
    if (!put_integer(text, digits, places, grouped)) return NUMERIC_BUFFER_TOO_SMALL;
    // The sign of the value, also when all of its digits were rounded away.
    if (is_negative(value) && !text.put('-')) return NUMERIC_BUFFER_TOO_SMALL;
    text.finish(buffer_size);
    return status;
}

}  // namespace

NumericStatus to_text(const Numeric* value, const NumericInfo* info, std::int32_t exponent_shift,
                      std::int32_t output_scale, char* buffer, std::size_t buffer_size) {
    return format(*value, *info, exponent_shift, output_scale, buffer, buffer_size, false);
}

NumericStatus to_grouped_text(const Numeric* value, const NumericInfo* info, std::int32_t exponent_shift,
                              std::int32_t output_scale, char* buffer, std::size_t buffer_size) {
    return format(*value, *info, exponent_shift, output_scale, buffer, buffer_size, true);
}

}  // namespace reference
