// SPDX-License-Identifier: MIT
// Rows for number to text, and a call that watches the buffer from both sides.
#ifndef QV8NUMERIC_TESTS_FORMATTING_H
#define QV8NUMERIC_TESTS_FORMATTING_H

#include <span>
#include <string>

#include "values.h"

namespace qv8numeric_tests {

using Formatter = NumericStatus (*)(const Numeric* value, const NumericInfo* info, std::int32_t exponent_shift,
                                    std::int32_t output_scale, char* buffer, std::size_t buffer_size);

// Everything that decides the text; the buffer comes with the call.
struct Format {
    Numeric value;
    NumericInfo info;
    std::int32_t exponent_shift;
    std::int32_t output_scale;
};

// What the buffer holds before every call; no text contains it.
inline constexpr char kFiller = '#';

struct Filled {
    NumericStatus status;
    std::string buffer;  // all of its bytes, NULs included

    std::string text() const { return buffer.substr(0, buffer.find('\0')); }
};

// Formats into a buffer of exactly this size. Fails the running test if a byte before or behind the buffer was touched
// or an operand changed.
Filled fill(Formatter formatter, const Format& format, std::size_t buffer_size);

struct FormatRow {
    const char* name;
    const char* value;
    std::int32_t scale;
    std::uint32_t mode;
    std::int32_t exponent_shift;
    std::int32_t output_scale;
    NumericStatus status;
    const char* text;

    Format format() const { return {num(value), {scale, mode}, exponent_shift, output_scale}; }
};

// Each row in a roomy buffer, in one that just holds the text and its NUL, and in one a byte smaller, which is refused.
void expect_rows(Formatter formatter, std::span<const FormatRow> rows);

}  // namespace qv8numeric_tests

#endif
