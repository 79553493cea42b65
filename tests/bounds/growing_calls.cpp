// SPDX-License-Identifier: MIT
#include "growing_calls.h"

#include <cstdint>
#include <memory>
#include <string>

#include "qv8numeric.h"

namespace bounds {
namespace {

using FromText = NumericStatus (*)(const char*, const NumericInfo*, Numeric*, char**);
using ToText = NumericStatus (*)(const Numeric*, const NumericInfo*, std::int32_t, std::int32_t, char*, std::size_t);

// ---- Text in ----

std::string repeated(const std::string& unit, std::size_t size) {
    std::string text;
    text.reserve(size + unit.size());
    while (text.size() < size) text += unit;
    return text;
}

std::string digits(std::size_t size) { return repeated("7", size); }
std::string leading_zeros(std::size_t size) { return repeated("0", size) + "1"; }
std::string fraction_zeros(std::size_t size) { return "0." + repeated("0", size) + "1"; }
std::string fraction_digits(std::size_t size) { return "7." + repeated("7", size); }
std::string exponent_zeros(std::size_t size) { return "1e" + repeated("0", size) + "1"; }
std::string exponent_digits(std::size_t size) { return "1e" + repeated("9", size); }
std::string groups(std::size_t size) { return "7" + repeated(",777", size); }
std::string groups_of_zeros(std::size_t size) { return "0" + repeated(",000", size); }
std::string groups_behind_point(std::size_t size) { return "1." + repeated(",777", size); }
std::string groups_of_exponent(std::size_t size) { return "1e1" + repeated(",777", size); }

// What the literal's end keeps the parser from reading.
std::string literal_and_letters(std::size_t size) { return "1" + repeated("x", size); }
std::string blanks(std::size_t size) { return repeated(" ", size); }
std::string signs(std::size_t size) { return repeated("-", size); }
std::string points(std::size_t size) { return repeated("1.", size); }
std::string commas(std::size_t size) { return repeated(",", size); }
std::string markers(std::size_t size) { return repeated("1e5", size); }

template <FromText from_text, std::string (*spelled)(std::size_t)>
Prepared reading(std::size_t size) {
    const auto text = std::make_shared<std::string>(spelled(size));
    return {text->size(), [text] {
                const NumericInfo info{2, NUMERIC_ROUND_HALF_EVEN};
                Numeric result{};
                char* end = nullptr;
                from_text(text->c_str(), &info, &result, &end);
            }};
}

// ---- Text out ----

struct Format {
    Numeric value;
    std::int32_t exponent_shift;
    std::int32_t output_scale;
    std::size_t buffer_size;
};

constexpr Numeric kWide{0x123456789abcdef0, 0x12345678};

// The text of a line is about as long as `size`, or stops at a buffer of that size; the last ones are short.
Format places(std::size_t size) { return {kWide, 0, static_cast<std::int32_t>(size), size + 64}; }
Format shifted_places(std::size_t size) { return {kWide, -static_cast<std::int32_t>(size), 0, size + 64}; }
Format appended_zeros(std::size_t size) { return {kWide, static_cast<std::int32_t>(size), 0, 2 * size + 64}; }
Format short_buffer(std::size_t size) { return {kWide, 0, INT32_MAX, size}; }
Format short_buffer_for_zeros(std::size_t size) { return {kWide, INT32_MAX, 0, size}; }
Format large_buffer(std::size_t size) { return {kWide, 0, 0, size}; }
Format large_buffer_and_exponent(std::size_t size) { return {kWide, 1, 60, size}; }

template <ToText to_text, Format (*laid_out)(std::size_t)>
Prepared writing(std::size_t size) {
    const Format format = laid_out(size);
    const auto buffer = std::make_shared<std::string>(format.buffer_size, '\0');
    return {size, [format, buffer] {
                const NumericInfo info{0, NUMERIC_ROUND_HALF_EVEN};
                to_text(&format.value, &info, format.exponent_shift, format.output_scale, buffer->data(),
                        format.buffer_size);
            }};
}

// ---- The families of each function ----

template <FromText from_text>
void add_readings(std::vector<GrowingCall>& calls, const char* function) {
    calls.insert(calls.end(), {
                                  {function, "digits", reading<from_text, digits>},
                                  {function, "leading zeros", reading<from_text, leading_zeros>},
                                  {function, "zeros behind the point", reading<from_text, fraction_zeros>},
                                  {function, "digits behind the point", reading<from_text, fraction_digits>},
                                  {function, "zeros of an exponent", reading<from_text, exponent_zeros>},
                                  {function, "digits of an exponent", reading<from_text, exponent_digits>},
                                  {function, "groups", reading<from_text, groups>},
                                  {function, "groups of zeros", reading<from_text, groups_of_zeros>},
                                  {function, "groups behind the point", reading<from_text, groups_behind_point>},
                                  {function, "groups of an exponent", reading<from_text, groups_of_exponent>},
                                  {function, "a literal and letters", reading<from_text, literal_and_letters>},
                                  {function, "blanks", reading<from_text, blanks>},
                                  {function, "signs", reading<from_text, signs>},
                                  {function, "points", reading<from_text, points>},
                                  {function, "commas", reading<from_text, commas>},
                                  {function, "exponents", reading<from_text, markers>},
                              });
}

template <ToText to_text>
void add_writings(std::vector<GrowingCall>& calls, const char* function) {
    calls.insert(calls.end(), {
                                  {function, "places", writing<to_text, places>},
                                  {function, "places by a shift", writing<to_text, shifted_places>},
                                  {function, "appended zeros, each", writing<to_text, appended_zeros>},
                                  {function, "places cut by the buffer", writing<to_text, short_buffer>},
                                  {function, "zeros cut by the buffer", writing<to_text, short_buffer_for_zeros>},
                                  {function, "29 digits in a large buffer", writing<to_text, large_buffer>},
                                  {function, "29 digits, 60 places and an exponent in a large buffer",
                                   writing<to_text, large_buffer_and_exponent>},
                              });
}

std::vector<GrowingCall> all_calls() {
    std::vector<GrowingCall> calls;
    add_readings<QV8NumericStr2Num>(calls, "Str2Num");
    add_readings<QV8NumericDgstr2Num>(calls, "Dgstr2Num");
    add_writings<QV8NumericNum2Str>(calls, "Num2Str");
    add_writings<QV8NumericNum2Dgstr>(calls, "Num2Dgstr");
    return calls;
}

}  // namespace

const std::vector<GrowingCall>& growing_calls() {
    static const std::vector<GrowingCall> calls = all_calls();
    return calls;
}

}  // namespace bounds
