// SPDX-License-Identifier: MIT
// Number literals: a lexer that does all of the arithmetic, and a grammar that only says where to stop.
#ifndef QV8NUMERIC_TESTS_REFERENCE_LITERAL_H
#define QV8NUMERIC_TESTS_REFERENCE_LITERAL_H

#include <cstdint>

#include "limbs.h"

namespace reference {

enum class Token { kEnd, kPoint, kSign, kLongDigits, kShortDigits, kGroups, kMarker, kBad };

struct Literal {
    const char* token_start;  // after a successful parse, where the literal ends for the caller
    const char* cursor;
    bool grouped;  // groups are read
    std::int64_t digits_held = 0;
    std::int64_t digits_dropped = 0;
    std::int64_t fraction_digits = 0;  // dropped ones as well
    Limbs accumulator{};               // the digits held, but for those in the chunk
    std::uint32_t chunk = 0;           // up to eight digits; behind the marker the exponent
    std::uint32_t chunk_digits = 0;
    bool negative = false;
    bool overflow = false;
    bool begun = false;  // a sign or a digit of the mantissa was seen
    bool point_seen = false;
    bool marker_seen = false;
    bool exponent_begun = false;  // a sign or a digit of the exponent was seen
    bool exponent_negative = false;
};

// literal_lexer.cpp
Token next_token(Literal& literal);

// The chunk's digits go to the accumulator.
void flush(Literal& literal);

// literal_grammar.cpp: whether a number stands at the cursor.
bool parse(Literal& literal);

}  // namespace reference

#endif
