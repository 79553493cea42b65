// SPDX-License-Identifier: MIT
// Text from a Numeric.
#include "numconv/format.h"

#include <algorithm>
#include <cstring>

#include "numconv/backward_text.h"
#include "numconv/placed_text.h"
#include "wide/narrowing.h"

namespace qv8numeric {
namespace {

NumericStatus put_nan(char* buffer, std::size_t buffer_size) {
    static constexpr char nan_text[] = "NaN";
    if (buffer_size < sizeof nan_text) return NUMERIC_BUFFER_TOO_SMALL;
    std::memcpy(buffer, nan_text, sizeof nan_text);
    return NUMERIC_NAN;
}

// No end that a pointer can reach.
bool is_endless(const char* buffer, std::size_t buffer_size) {
    return buffer_size > UINTPTR_MAX - reinterpret_cast<std::uintptr_t>(buffer);
}

// A value at output_scale. One that leaves the range goes on as the NaN pattern, whose magnitude is 2^127: the text
// then shows that number, and the status tells.
struct Scaled {
    WordPair magnitude;
    bool negative;  // the value's sign, also when the digits have been rounded to zero
    NumericStatus status;
};

QV8NUMERIC_INLINE Scaled scale(const Numeric& value, const NumericInfo& info, int32_t output_scale) {
    const bool negative = is_negative(value);
    const int64_t places = int64_t{output_scale} - info.scale;
    if (places == 0 && is_rounding_mode(info.rounding_mode)) return {magnitude_of(value), negative, NUMERIC_OK};
    Numeric moved = value;
    const NumericStatus status = finish(magnitude_of(value), negative, places, info.rounding_mode, moved);
    return {magnitude_of(moved), negative, status};
}

// Any text in any buffer.
NumericStatus write_backward(const Scaled& scaled, int32_t exponent_shift, int32_t output_scale, char* buffer,
                             std::size_t buffer_size, bool grouped) {
    BackwardText text = at_end_of(buffer, buffer_size);
    if (!put_exponent(text, exponent_shift)) return NUMERIC_BUFFER_TOO_SMALL;
    if (scaled.status == NUMERIC_INVALID_ARGUMENT) return scaled.status;
    Digits digits{extend(scaled.magnitude)};
    // A negative output scale has rounded digits away, and they stay away.
    const int64_t places = int64_t{std::max(output_scale, 0)} - exponent_shift;
    if (!put_number(text, digits, places, grouped, scaled.negative)) return NUMERIC_BUFFER_TOO_SMALL;
    move_to_front(text, buffer_size);
    return scaled.status;
}

template <class Form>
QV8NUMERIC_ASIDE NumericStatus write_any(const Numeric* value, const NumericInfo* info, int32_t exponent_shift,
                                         int32_t output_scale, char* buffer, std::size_t buffer_size) {
    if (is_nan(*value)) return put_nan(buffer, buffer_size);
    if (buffer_size == 0 || is_endless(buffer, buffer_size)) return NUMERIC_BUFFER_TOO_SMALL;
    // From here on the operands are not read any more: the buffer may be where they lie.
    const Scaled scaled = scale(*value, *info, output_scale);
    if (exponent_shift == 0 && output_scale <= largest_placed_fraction && scaled.status != NUMERIC_INVALID_ARGUMENT &&
        place_text<Form>(scaled.magnitude, scaled.negative, std::max(output_scale, 0), buffer, buffer_size)) {
        return scaled.status;
    }
    return write_backward(scaled, exponent_shift, output_scale, buffer, buffer_size, is_grouped<Form>());
}

}  // namespace

NumericStatus numeric_num2str_internal(const Numeric* value, const NumericInfo* info, std::int32_t exponent_shift,
                                       std::int32_t output_scale, char* buffer, std::size_t buffer_size,
                                       std::int32_t mode) {
    return mode == format_grouped
               ? write_any<GroupedDigits>(value, info, exponent_shift, output_scale, buffer, buffer_size)
               : write_any<PlainDigits>(value, info, exponent_shift, output_scale, buffer, buffer_size);
}

namespace {

// A value of one word with all the digits it has, as most are.
bool is_usual(const Numeric& value, const NumericInfo& info, int32_t exponent_shift, int32_t output_scale) {
    return fits_int64(value) && exponent_shift == 0 && output_scale == info.scale &&
           is_rounding_mode(info.rounding_mode) && 0 <= output_scale && output_scale <= largest_placed_word_fraction;
}

template <class Form>
QV8NUMERIC_ASIDE NumericStatus write_word(const Numeric* value, const NumericInfo* info, int32_t exponent_shift,
                                          int32_t output_scale, char* buffer, std::size_t buffer_size) {
    if (is_endless(buffer, buffer_size) || !place_text<Form>(magnitude_as<uint64_t>(*value), is_negative(*value),
                                                             output_scale, buffer, buffer_size)) [[unlikely]] {
        return write_any<Form>(value, info, exponent_shift, output_scale, buffer, buffer_size);
    }
    return NUMERIC_OK;
}

template <class Form>
inline NumericStatus write(const Numeric* value, const NumericInfo* info, int32_t exponent_shift, int32_t output_scale,
                           char* buffer, std::size_t buffer_size) {
    if (!is_usual(*value, *info, exponent_shift, output_scale)) [[unlikely]] {
        return write_any<Form>(value, info, exponent_shift, output_scale, buffer, buffer_size);
    }
    return write_word<Form>(value, info, exponent_shift, output_scale, buffer, buffer_size);
}

}  // namespace
}  // namespace qv8numeric

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericNum2Str(const Numeric* value, const NumericInfo* info, int32_t exponent_shift,
                                           int32_t output_scale, char* buffer, size_t buffer_size) noexcept {
    return write<PlainDigits>(value, info, exponent_shift, output_scale, buffer, buffer_size);
}

extern "C" NumericStatus QV8NumericNum2Dgstr(const Numeric* value, const NumericInfo* info, int32_t exponent_shift,
                                             int32_t output_scale, char* buffer, size_t buffer_size) noexcept {
    return write<GroupedDigits>(value, info, exponent_shift, output_scale, buffer, buffer_size);
}
