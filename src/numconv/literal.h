// SPDX-License-Identifier: MIT
// Number literals: the state that lexer, grammar and caller share, and the tokens.
//
// The lexer does the work: it collects the digits, the signs and the exponent in the state while the grammar only
// decides where the literal ends. So the token that ends a literal has already acted when the grammar stops before it.
#ifndef QV8NUMERIC_NUMCONV_LITERAL_H
#define QV8NUMERIC_NUMCONV_LITERAL_H

#include "numconv/number_format_mode.h"
#include "wide/extended_numeric.h"

// Zeroed by the caller, but for cursor and mode.
struct NumberParseState {
    const char* token_start;       // where the latest token began; after a success, where the literal ends
    const char* cursor;            // next character to read
    std::int32_t mode;             // a NumberFormatMode
    std::int32_t digits_held;      // mantissa digits taken into the value
    std::int32_t digits_dropped;   // mantissa digits beyond the limit
    std::int64_t fraction_digits;  // mantissa digits after the point, dropped ones included
    std::uint32_t chunk;           // pending digits as a number; after the exponent marker, the exponent
    std::uint32_t chunk_digits;    // how many
    std::uint32_t negative;        // 1 after a mantissa sign "-"
    std::uint32_t overflow;        // nonzero when the accumulator left 256 bits
    ExtendedNumeric accumulator;   // the digits taken, but for the pending ones
    std::uint8_t flags;            // of LiteralFlag
};

namespace qv8numeric {

enum LiteralFlag : std::uint8_t {
    exponent_marker_seen = 1,
    point_seen = 2,
    exponent_negative = 4,
    mantissa_begun = 8,  // sign or digit
    digit_run_seen = 16,
    exponent_begun = 32,  // sign or digit
    exponent_digits_seen = 64,
};

enum LiteralToken : int {
    TOK_END = 0,  // any other character, the NUL included
    TOK_POINT = 258,
    TOK_SIGN = 259,
    TOK_LONG_DIGITS = 260,   // four digits and more
    TOK_SHORT_DIGITS = 261,  // one to three, which groups may follow
    TOK_GROUPS = 262,        // a comma and exactly three digits, once or more
    TOK_EXP = 263,
    TOK_BAD = 264,  // a comma without a group, or an exponent beyond int32
};

constexpr bool has(const NumberParseState& state, LiteralFlag flag) { return (state.flags & flag) != 0; }
constexpr void set(NumberParseState& state, LiteralFlag flag) {
    state.flags = static_cast<std::uint8_t>(state.flags | flag);
}

// Moves the pending digits into the accumulator.
void flush_chunk(NumberParseState& state);

// Reads one token from cursor on.
LiteralToken next_token(NumberParseState& state);

// Reads a literal from cursor on. False when there is none; the state then tells nothing.
bool read_literal(NumberParseState& state);

}  // namespace qv8numeric

#endif
