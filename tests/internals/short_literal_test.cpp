// SPDX-License-Identifier: MIT
// The short roads of text to number against lexer and grammar, over a grid of all that a literal is put together from.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "modes.h"
#include "numconv/short_literal.h"
#include "parse_state.h"
#include "parsing.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

// What lexer and grammar make of a text.
struct Literal {
    bool accepted;
    std::ptrdiff_t end;
    bool negative;
    Integer digits;
    std::int64_t scale;
};

Literal read(const std::string& text, NumberFormatMode mode) {
    const Text copy(text);
    NumberParseState state = state_at(copy, mode);
    if (!read_literal(state)) return {false, 0, false, 0, 0};
    std::int64_t exponent = 0;
    if (has(state, exponent_marker_seen)) {
        exponent = has(state, exponent_negative) ? -std::int64_t{state.chunk} : std::int64_t{state.chunk};
    } else {
        flush_chunk(state);
    }
    return {true, state.token_start - copy.begin(), state.negative != 0, integer(state.accumulator),
            state.fraction_digits - state.digits_dropped - exponent};
}

// At the literal's own scale nothing is rounded.
void expect_as_the_lexer_reads(const std::string& text) {
    if (text.empty()) return;  // NaN, which is no literal
    for (const Parser parser : kParsers) {
        const Literal literal = read(text, parser == kPlain ? format_plain : format_grouped);
        const NumericInfo info = {static_cast<std::int32_t>(literal.scale), kHalfEven};
        const Parsed parsed = parse(parser, text, info);
        ASSERT_EQ(parsed.end, literal.end) << text;
        if (!literal.accepted) {
            ASSERT_EQ(parsed.outcome, (Outcome{NUMERIC_SYNTAX_ERROR, kUntouched})) << text;
        } else if (literal.digits < two_to(127)) {
            const Integer value = literal.negative ? Integer{-literal.digits} : literal.digits;
            ASSERT_EQ(parsed.outcome.status, NUMERIC_OK) << text;
            ASSERT_EQ(integer(parsed.outcome.value), value) << text;
        } else {
            ASSERT_EQ(parsed.outcome.status, literal.negative ? NUMERIC_UNDERFLOW : NUMERIC_OVERFLOW) << text;
        }
    }
}

const std::string kDigits = "9182736450918273645091827364509182736450918";

// Runs of every length that a word, eight characters and the limit can end in, and zeros in front.
std::vector<std::string> runs(const std::vector<unsigned>& lengths) {
    std::vector<std::string> all;
    for (const unsigned length : lengths) {
        all.push_back(kDigits.substr(0, length));
        all.push_back(std::string(length, '0'));
        all.push_back(std::string(length / 2, '0') + kDigits.substr(0, length - length / 2));
    }
    return all;
}

const char* const kTails[] = {"",      "x",      " 1",  ".",    ".5",  "-",    "+1",       ",",    ",1",    ",123",
                              ",1234", "e",      "e+",  "E-x",  "e5",  "E-12", "e+999",    "e007", "e1000", "e5e",
                              "e5E3",  "e5,123", "e5.", "e5-1", "e-0", "\xae", "\xb1\xb2", "/",    ":",     "\x10"};

TEST(ShortLiteral, IntegersAndFractions) {
    const std::vector<unsigned> lengths = {0,  1,  2,  3,  4,  5,  6,  7,  8,  9,  15,
                                           16, 17, 18, 19, 20, 31, 36, 37, 38, 39, 40};
    for (const char* sign : {"", "-", "+", "--", "+-", " "}) {
        for (const std::string& integer : runs(lengths)) {
            for (const char* tail : kTails) expect_as_the_lexer_reads(sign + integer + tail);
        }
    }
    for (const std::string& integer : runs({0, 1, 2, 3, 5, 6, 7, 8, 9, 16, 30, 36, 37, 38})) {
        for (const std::string& fraction : runs({0, 1, 2, 3, 5, 6, 7, 8, 9, 16, 30, 37, 38, 39})) {
            for (const char* tail : kTails) expect_as_the_lexer_reads("-" + integer + "." + fraction + tail);
        }
    }
}

TEST(ShortLiteral, Groups) {
    for (const char* first : {"", "0", "1", "12", "123", "000", "012", "1234", "-1", "+12", "1.5", "1."}) {
        for (unsigned groups = 0; groups <= 14; ++groups) {
            std::string text = first;
            for (unsigned i = 0; i < groups; ++i) text += ',' + kDigits.substr(i, 3);
            for (const char* fraction : {"", ".", ".0", ".25", ".123456", ".1234567", ".123456789"}) {
                for (const char* tail : kTails) expect_as_the_lexer_reads(text + fraction + tail);
            }
        }
    }
    for (const char* text : {"1,23", "1,2", "1,", "1,,234", "1,234,", "1,234,5", "1,234,56", "1,234,5678", "1,2345",
                             "1,234,567,8901", "1,2a4", "1,234,56x", "1,234567", "0,000,000", "000,000,001", "00,0"}) {
        expect_as_the_lexer_reads(text);
    }
}

// Every character in every place of literals that each road takes.
TEST(ShortLiteral, AnyCharacterAnywhere) {
    for (const char* literal :
         {"12345.67", "-1.5", "123456789012.3456", "1,234,567.89", "12e5", "98765432109876543210987"}) {
        const std::string text = literal;
        for (std::size_t place = 0; place <= text.size(); ++place) {
            for (unsigned character = 1; character < 256; ++character) {
                const std::string before = text.substr(0, place) + static_cast<char>(character);
                expect_as_the_lexer_reads(before + text.substr(place));
                if (place < text.size()) expect_as_the_lexer_reads(before + text.substr(place + 1));
            }
        }
    }
}

// Zeros in front are no digits that count, however many.
TEST(ShortLiteral, ZerosInFront) {
    for (std::size_t zeros = 0; zeros < 60; ++zeros) {
        for (const char* rest : {"", "1", "123456789", ".5", ".", "12345678901234567890123456789012345678", "1.5e3"}) {
            expect_as_the_lexer_reads(std::string(zeros, '0') + rest);
        }
    }
}

// Counted in 32 bits, 2^32 digits and a few would be taken for a few.
TEST(ShortLiteral, CountsMoreDigitsThanAnUnsignedHolds) {
    for (const char* digits : {"1", "12345678"}) {
        Mantissa mantissa{digits, {0, 0}, UINT32_MAX};
        take_digits(mantissa);
        EXPECT_EQ(mantissa.count, std::uint64_t{UINT32_MAX} + std::string(digits).size()) << digits;
    }
}

}  // namespace
}  // namespace qv8numeric_tests
