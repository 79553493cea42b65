// SPDX-License-Identifier: MIT
#include "numconv/literal.h"

#include "numconv/short_literal.h"
#include "wide/scaling.h"

namespace qv8numeric {

void flush_chunk(NumberParseState& state) {
    unsigned overflow = 0;
    uint64_t carry = 0;
    scale_up(state.accumulator, state.chunk_digits, overflow);
    state.accumulator = add(state.accumulator, extend({0, state.chunk}), carry);
    state.overflow |= overflow | static_cast<uint32_t>(carry);
    state.chunk = 0;
    state.chunk_digits = 0;
}

namespace {

// ---- Digits of the mantissa ----

// A run is taken in steps of three digits while three are left, then one by one, and each step is kept or dropped as a
// whole. So 41 to 45 digits are kept, depending on how the run falls into steps.
constexpr int32_t largest_held_before_three = 42;
constexpr int32_t largest_held_before_one = 40;

void put_digit(NumberParseState& state, char digit) {
    // Only for callers of the lexer alone: the grammar asks for nothing behind an exponent of four digits or more.
    if (state.chunk_digits >= 8) flush_chunk(state);
    state.chunk = state.chunk * 10 + digit_value(digit);
    ++state.chunk_digits;
    if (state.chunk_digits == 8) flush_chunk(state);
}

void take_digits(NumberParseState& state, const char* digits, int32_t count) {
    for (int32_t i = 0; i < count; ++i) put_digit(state, digits[i]);
    state.digits_held += count;
    if (has(state, point_seen)) state.fraction_digits += count;
}

// The literal's scale only sees fraction_digits - digits_dropped, so where the narrower count is full, the other one
// takes over.
void drop_digits(NumberParseState& state, int32_t count) {
    if (state.digits_dropped <= INT32_MAX - count) {
        state.digits_dropped += count;
    } else {
        state.fraction_digits -= count;
    }
    if (has(state, point_seen)) state.fraction_digits += count;
}

// One step of one or three digits. Zeros before the first digit that counts are skipped, but not behind the point.
void take_step(NumberParseState& state, const char* digits, int32_t count) {
    bool all_zero = true;
    for (int32_t i = 0; i < count; ++i) all_zero = all_zero && digits[i] == '0';
    if (all_zero && state.digits_held == 0 && !has(state, point_seen)) return;
    if (state.digits_held > (count == 3 ? largest_held_before_three : largest_held_before_one)) {
        drop_digits(state, count);
        return;
    }
    take_digits(state, digits, count);
}

// ---- One function per kind of token; the first character is at token_start, the cursor behind it ----

const char* end_of_run(const char* text) {
    while (is_decimal_digit(*text)) ++text;
    return text;
}

LiteralToken length_token(const char* begin, const char* end) {
    return end - begin < 4 ? TOK_SHORT_DIGITS : TOK_LONG_DIGITS;
}

LiteralToken lex_mantissa_digits(NumberParseState& state) {
    if (has(state, digit_run_seen)) return TOK_END;
    set(state, mantissa_begun);
    set(state, digit_run_seen);
    const char* const end = end_of_run(state.cursor);
    const char* at = state.token_start;
    for (; end - at >= 3; at += 3) take_step(state, at, 3);
    for (; at != end; ++at) take_step(state, at, 1);
    state.cursor = end;
    return length_token(state.token_start, end);
}

LiteralToken lex_exponent_digits(NumberParseState& state) {
    if (has(state, exponent_digits_seen)) return TOK_END;
    set(state, exponent_digits_seen);
    set(state, exponent_begun);
    const uint64_t limit = has(state, exponent_negative) ? uint64_t{INT32_MAX} + 1 : INT32_MAX;
    const char* const end = end_of_run(state.cursor);
    state.cursor = end;
    uint64_t value = 0;
    for (const char* at = state.token_start; at != end; ++at) {
        value = value * 10 + digit_value(*at);
        if (value > limit) return TOK_BAD;
    }
    state.chunk = static_cast<uint32_t>(value);
    state.chunk_digits = static_cast<uint32_t>(end - state.token_start);  // should a second marker flush them
    return length_token(state.token_start, end);
}

// Behind an exponent too, groups take the road of the mantissa, with the digits of the exponent as pending ones.
LiteralToken lex_groups(NumberParseState& state) {
    if (state.mode != format_grouped) return TOK_END;
    const char* at = state.token_start;
    if (!is_group(at)) return TOK_BAD;
    for (; is_group(at); at += 4) take_step(state, at + 1, 3);
    state.cursor = at;
    return TOK_GROUPS;
}

// The first sign of the mantissa or of the exponent counts; a second one is for the grammar to refuse.
LiteralToken lex_minus(NumberParseState& state) {
    if (has(state, exponent_marker_seen)) {
        if (!has(state, exponent_begun)) set(state, exponent_negative);
        set(state, exponent_begun);
    } else {
        if (!has(state, mantissa_begun)) state.negative = 1;
        set(state, mantissa_begun);
    }
    return TOK_SIGN;
}

LiteralToken lex_point(NumberParseState& state) {
    set(state, point_seen);
    state.flags = static_cast<std::uint8_t>(state.flags & ~digit_run_seen);
    return TOK_POINT;
}

LiteralToken lex_exponent_marker(NumberParseState& state) {
    flush_chunk(state);
    set(state, exponent_marker_seen);
    return TOK_EXP;
}

}  // namespace

LiteralToken next_token(NumberParseState& state) {
    state.token_start = state.cursor;
    const char character = *state.cursor++;
    if (is_decimal_digit(character)) {
        return has(state, exponent_marker_seen) ? lex_exponent_digits(state) : lex_mantissa_digits(state);
    }
    switch (character) {
        case ',': return lex_groups(state);
        case '-': return lex_minus(state);
        case '+': return TOK_SIGN;
        case '.': return lex_point(state);
        case 'E':
        case 'e': return lex_exponent_marker(state);
        default: state.cursor = state.token_start; return TOK_END;
    }
}

namespace {

// ---- The grammar ----
//
//     number   = [ TOK_SIGN ] mantissa [ TOK_EXP [ TOK_SIGN ] integer ]
//     mantissa = integer [ TOK_POINT [ digits ] ]  |  TOK_POINT digits
//     integer  = TOK_SHORT_DIGITS [ TOK_GROUPS ]  |  TOK_LONG_DIGITS
//     digits   = TOK_SHORT_DIGITS  |  TOK_LONG_DIGITS
//
// One token of lookahead, read only when a decision needs it, and a complete number asks for nothing more. So behind an
// exponent that ends in a long run or in groups no further token is read: token_start stays at that last token, and
// that is where the literal is said to end.
struct Grammar {
    NumberParseState& state;
    bool has_token;
    LiteralToken token;
};

// Uses the next token up if it is the wanted one.
bool take(Grammar& grammar, LiteralToken wanted) {
    if (!grammar.has_token) grammar.token = next_token(grammar.state);
    grammar.has_token = grammar.token != wanted;
    return !grammar.has_token;
}

bool parse_digits(Grammar& grammar) { return take(grammar, TOK_SHORT_DIGITS) || take(grammar, TOK_LONG_DIGITS); }

bool parse_integer(Grammar& grammar) {
    if (take(grammar, TOK_LONG_DIGITS)) return true;
    if (!take(grammar, TOK_SHORT_DIGITS)) return false;
    take(grammar, TOK_GROUPS);
    return true;
}

bool parse_mantissa(Grammar& grammar) {
    if (take(grammar, TOK_POINT)) return parse_digits(grammar);
    if (!parse_integer(grammar)) return false;
    if (take(grammar, TOK_POINT)) parse_digits(grammar);
    return true;
}

bool parse_number(Grammar& grammar) {
    take(grammar, TOK_SIGN);
    if (!parse_mantissa(grammar)) return false;
    if (!take(grammar, TOK_EXP)) return true;
    take(grammar, TOK_SIGN);
    return parse_integer(grammar);
}

}  // namespace

bool read_literal(NumberParseState& state) {
    Grammar grammar{state, false, TOK_END};
    return parse_number(grammar);
}

}  // namespace qv8numeric
