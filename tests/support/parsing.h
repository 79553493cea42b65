// SPDX-License-Identifier: MIT
// Rows for text to number, and a call that notices every byte read behind the text.
#ifndef QV8NUMERIC_TESTS_PARSING_H
#define QV8NUMERIC_TESTS_PARSING_H

#include <cstddef>
#include <span>
#include <string_view>

#include "outcome.h"

namespace qv8numeric_tests {

using Parser = NumericStatus (*)(const char* text, const NumericInfo* info, Numeric* result, char** end);

inline constexpr Parser kPlain = QV8NumericStr2Num;
inline constexpr Parser kGrouped = QV8NumericDgstr2Num;
inline constexpr Parser kParsers[] = {kPlain, kGrouped};

// As an end position: the caller's pointer was left alone.
inline constexpr std::ptrdiff_t kEndUntouched = -1;

struct Parsed {
    Outcome outcome;
    std::ptrdiff_t end;  // characters from the start of the text, or kEndUntouched
};

// Parses the text with its NUL right before memory that cannot be read. Fails the running test if the same call
// without an end pointer answers differently, if the text or the descriptor changed, or if a write missed the result.
Parsed parse(Parser parser, std::string_view text, const NumericInfo& info);

// As an end position of a row: behind the last character.
inline constexpr std::ptrdiff_t kWholeText = -2;

struct ParseRow {
    const char* name;
    const char* text;
    std::int32_t scale;
    std::uint32_t mode;
    NumericStatus status;
    const char* value;  // an expression, or "untouched"
    std::ptrdiff_t end;
};

void expect_rows(Parser parser, std::span<const ParseRow> rows);
void expect_rows_of_both(std::span<const ParseRow> rows);

// The text is read to its end.
struct ParseModesRow {
    const char* name;
    const char* text;
    std::int32_t scale;
    NumericStatus status;
    const char* values;  // one per mode
};

void expect_rows(Parser parser, std::span<const ParseModesRow> rows);

}  // namespace qv8numeric_tests

#endif
