// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdint>

#include "literal.h"
#include "scaling.h"

namespace reference {
namespace {

bool is_digit(char c) { return '0' <= c && c <= '9'; }

std::uint32_t digit_value(char c) { return static_cast<std::uint32_t>(c - '0'); }

Token run_token(std::int64_t length) { return length < 4 ? Token::kShortDigits : Token::kLongDigits; }

// Zeros before the first other digit are no digits of the number, but those behind the point are.
bool leads(const Literal& literal) { return literal.digits_held == 0 && !literal.point_seen; }

void take_digit(Literal& literal, char c) {
    literal.chunk = literal.chunk * 10 + digit_value(c);
    ++literal.digits_held;
    if (literal.point_seen) ++literal.fraction_digits;
    if (++literal.chunk_digits == 8) flush(literal);
}

void drop_digits(Literal& literal, std::int64_t count) {
    literal.digits_dropped += count;
    if (literal.point_seen) literal.fraction_digits += count;
}

// Three digits are one step: held, dropped or skipped together.
void take_three(Literal& literal, const char* c) {
    if (leads(literal) && c[0] == '0' && c[1] == '0' && c[2] == '0') return;
    if (literal.digits_held > 42) return drop_digits(literal, 3);
    for (int i = 0; i < 3; ++i) take_digit(literal, c[i]);
}

void take_one(Literal& literal, char c) {
    if (leads(literal) && c == '0') return;
    if (literal.digits_held > 40) return drop_digits(literal, 1);
    take_digit(literal, c);
}

Token mantissa_run(Literal& literal) {
    literal.begun = true;
    const char* c = literal.token_start;
    while (is_digit(*literal.cursor)) ++literal.cursor;
    const std::int64_t length = literal.cursor - c;
    for (; literal.cursor - c >= 3; c += 3) take_three(literal, c);
    for (; c != literal.cursor; ++c) take_one(literal, *c);
    return run_token(length);
}

// The digits count as digits of the chunk: a second marker takes them for some of the mantissa's.
Token exponent_run(Literal& literal) {
    literal.exponent_begun = true;
    const std::uint64_t limit = literal.exponent_negative ? 2147483648 : 2147483647;
    std::uint64_t value = 0;
    literal.cursor = literal.token_start;
    for (; is_digit(*literal.cursor); ++literal.cursor) {
        value = value * 10 + digit_value(*literal.cursor);
        if (value > limit) return Token::kBad;
    }
    const std::int64_t length = literal.cursor - literal.token_start;
    literal.chunk = static_cast<std::uint32_t>(value);
    literal.chunk_digits = static_cast<std::uint32_t>(std::min<std::int64_t>(length, UINT32_MAX));
    return run_token(length);
}

// A comma with exactly three digits behind it.
bool group_at(const char* c) {
    return c[0] == ',' && is_digit(c[1]) && is_digit(c[2]) && is_digit(c[3]) && !is_digit(c[4]);
}

Token groups(Literal& literal) {
    literal.cursor = literal.token_start;
    if (!group_at(literal.cursor)) return Token::kBad;
    for (; group_at(literal.cursor); literal.cursor += 4) take_three(literal, literal.cursor + 1);
    return Token::kGroups;
}

Token marker(Literal& literal) {
    flush(literal);
    literal.marker_seen = true;
    return Token::kMarker;
}

// Only the first sign counts, and none behind a digit. Whether a sign may stand here is the grammar's question.
Token minus(Literal& literal) {
    if (literal.marker_seen) {
        if (!literal.exponent_begun) literal.exponent_negative = true;
        literal.exponent_begun = true;
    } else {
        if (!literal.begun) literal.negative = true;
        literal.begun = true;
    }
    return Token::kSign;
}

Token point(Literal& literal) {
    literal.point_seen = true;
    return Token::kPoint;
}

Token end(Literal& literal) {
    literal.cursor = literal.token_start;
    return Token::kEnd;
}

}  // namespace

void flush(Literal& literal) {
    const std::uint32_t carry = multiply(literal.accumulator, kPowersOfTen[literal.chunk_digits]);
    if ((carry | add(literal.accumulator, literal.chunk)) != 0) literal.overflow = true;
    literal.chunk = 0;
    literal.chunk_digits = 0;
}

Token next_token(Literal& literal) {
    literal.token_start = literal.cursor++;
    const char c = *literal.token_start;
    if (is_digit(c)) return literal.marker_seen ? exponent_run(literal) : mantissa_run(literal);
    if (c == ',' && literal.grouped) return groups(literal);
    if (c == 'E' || c == 'e') return marker(literal);
    if (c == '+') return Token::kSign;
    if (c == '-') return minus(literal);
    if (c == '.') return point(literal);
    return end(literal);
}

}  // namespace reference
