// SPDX-License-Identifier: MIT
// Which token sequences are number literals, where each of them ends, and how far the text is read.
#include <gtest/gtest.h>

#include "parse_state.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

struct GrammarRow {
    const char* name;
    const char* text;
    int result;
    int end;  // where an accepted literal is said to end
};

constexpr int kRefused = -1;

template <std::size_t count>
void expect_literals(NumberFormatMode mode, const GrammarRow (&rows)[count]) {
    for (const GrammarRow& row : rows) {
        SCOPED_TRACE(row.name);
        SCOPED_TRACE(row.text);
        const Text text(row.text);
        NumberParseState state = state_at(text, mode);
        NumberParseState inside = state;
        EXPECT_EQ(numparse_yyparse(&state), row.result);
        EXPECT_EQ(read_literal(inside), row.result == 0);
        EXPECT_EQ(changes(state, inside), "") << "the exported name does the same";
        if (row.result == 0) {
            EXPECT_EQ(state.token_start - text.begin(), row.end);
            EXPECT_EQ(inside.token_start, state.token_start);
        }
    }
}

// Either mode reads these alike.
constexpr GrammarRow kLiterals[] = {
    {"digits", "12", 0, 2},
    {"many digits", "123456", 0, 6},
    {"zero", "0", 0, 1},
    {"a sign and a fraction", "-12.50", 0, 6},
    {"a plus sign", "+7", 0, 2},
    {"a long fraction", "1.23456", 0, 7},
    {"no digit before the point", ".5", 0, 2},
    {"no digit before the point, signed", "-.5", 0, 3},
    {"no digit before the point, many behind", ".12345", 0, 6},
    {"no digit behind the point", "5.", 0, 2},
    {"no digit behind the point, many before", "-12345.", 0, 7},
    {"an exponent", "1e5", 0, 3},
    {"a negative exponent", "+1e-3", 0, 5},
    {"a positive exponent", "1.5E+10", 0, 7},
    {"an exponent behind the point", "1.e5", 0, 4},
    {"an exponent behind a fraction alone", ".5e5", 0, 4},
    {"an exponent behind many digits", "12345e5", 0, 7},
    // what follows ends it
    {"a letter", "12abc", 0, 2},
    {"a blank", "1 ", 0, 1},
    {"a sign", "5-", 0, 1},
    {"a sign and digits", "1-2", 0, 1},
    {"a second point", "1.2.3", 0, 3},
    {"a second point without digits between", "1..2", 0, 2},
    {"a point behind the exponent", "1e5.", 0, 3},
    {"a second marker", "1e5e", 0, 3},
    {"a sign behind the exponent", "1e5+", 0, 3},
    // behind three exponent digits a token more is read, behind four not
    {"two exponent digits", "1e12", 0, 4},
    {"three exponent digits", "1e123x", 0, 5},
    {"four exponent digits", "1e1234", 0, 2},
    {"four exponent digits and more text", "1e1234x", 0, 2},
    {"four exponent digits, negative", "1e-1234", 0, 3},
    {"four exponent digits, with plus", "1E+1234", 0, 3},
    {"zeros are digits", "1e0000", 0, 2},
    {"the largest exponent", "1e2147483647", 0, 2},
    {"the lowest exponent", "1e-2147483648", 0, 3},
    // no literals
    {"nothing", "", 1, kRefused},
    {"a leading blank", " 1", 1, kRefused},
    {"a word", "NaN", 1, kRefused},
    {"a sign alone", "-", 1, kRefused},
    {"a plus sign alone", "+", 1, kRefused},
    {"a sign twice", "--1", 1, kRefused},
    {"two signs", "+-1", 1, kRefused},
    {"two signs the other way", "-+1", 1, kRefused},
    {"a sign and a word", "-x", 1, kRefused},
    {"a point alone", ".", 1, kRefused},
    {"a signed point alone", "-.", 1, kRefused},
    {"a point and a sign", ".-5", 1, kRefused},
    {"two points", "..5", 1, kRefused},
    {"a point and an exponent", ".e5", 1, kRefused},
    {"an exponent alone", "E5", 1, kRefused},
    {"a marker alone", "e", 1, kRefused},
    {"a marker behind digits", "1e", 1, kRefused},
    {"a marker and a sign", "1e+", 1, kRefused},
    {"a marker and two signs", "1e--5", 1, kRefused},
    {"a marker and two different signs", "1e+-5", 1, kRefused},
    {"two markers", "1ee5", 1, kRefused},
    {"a marker and a point", "1e.5", 1, kRefused},
    {"a marker and a blank", "1e 5", 1, kRefused},
    {"an exponent beyond int32", "1e2147483648", 1, kRefused},
    {"a negative exponent beyond int32", "1e-2147483649", 1, kRefused},
    {"an exponent beyond 64 bits", "1e99999999999999999999", 1, kRefused},
};

constexpr GrammarRow kPlainLiterals[] = {
    {"a comma ends it", "1,234", 0, 1},
    {"a comma ends a fraction", "1.5,123", 0, 3},
    {"a comma ends an exponent", "1e1,000", 0, 3},
    {"a comma begins none", ",123", 1, kRefused},
    {"a comma is no exponent", "1e,000", 1, kRefused},
};

constexpr GrammarRow kGroupedLiterals[] = {
    {"groups", "1,234", 0, 5},
    {"groups, a fraction", "1,234,567.25", 0, 12},
    {"groups and the point", "1,234.", 0, 6},
    {"groups, an exponent", "12,345E10", 0, 9},
    {"groups, a sign", "-1,234", 0, 6},
    {"two digits are no group", "1,23", 0, 1},
    {"two digits behind two are no group", "12,34", 0, 2},
    {"four digits are no group", "1,2345", 0, 1},
    {"six digits are not two groups", "1,234567", 0, 1},
    {"four digits behind a group are none", "1,234,5678", 0, 5},
    {"no group follows a long run", "1234,567", 0, 4},
    {"nor four digits", "1234,5678", 0, 4},
    {"no group follows a fraction", "1.5,123", 0, 3},
    {"no group follows a long fraction", "1.2345,678", 0, 6},
    {"no group follows a fraction alone", ".5,123", 0, 2},
    {"no group follows the point", "1.,234", 0, 2},
    {"nor behind groups", "1,234.,567", 0, 6},
    {"no group follows a fraction behind groups", "1,234.5,678", 0, 7},
    {"a comma begins none", ",123", 1, kRefused},
    {"a bad comma begins none", ",12", 1, kRefused},
    {"nor behind the point", ".,123", 1, kRefused},
    {"nor behind a sign", "-,123", 1, kRefused},
    {"nor an exponent", "1e,000", 1, kRefused},
    {"groups of an exponent", "1e1,000", 0, 3},
    {"groups of a negative exponent", "1e-123,456,789", 0, 6},
    {"two digits are no group of an exponent", "1e12,34", 0, 4},
    {"no group follows four exponent digits", "1e1234,567", 0, 2},
};

TEST(Grammar, PlainLiterals) {
    expect_literals(format_plain, kLiterals);
    expect_literals(format_plain, kPlainLiterals);
}

TEST(Grammar, GroupedLiterals) {
    expect_literals(format_grouped, kLiterals);
    expect_literals(format_grouped, kGroupedLiterals);
}

struct LookaheadRow {
    const char* name;
    const char* text;
    const char* state;  // all that differs from the state before the parse
};

// The token that ends a number has acted by then; where none is read, nothing has.
TEST(Grammar, ReadsATokenMoreOnlyWhereItHasTo) {
    const LookaheadRow rows[] = {
        {"a group behind a long run", "1234,567", " held=7 chunk=1234567/7 +begun +run"},
        {"a group behind a fraction", "1.5,123", " held=5 fraction=4 chunk=15123/5 +point +begun +run"},
        {"a marker behind a short exponent", "1E5E",
         " held=1 accumulator=15 +marker +begun +run +exp-begun +exp-digits"},
        {"a bad group takes nothing", "1,23", " held=1 chunk=1/1 +begun +run"},
        {"a second point changes no digit", "1.5.", " held=2 fraction=1 chunk=15/2 +point +begun"},
        {"a minus behind a number is not its sign", "5-", " held=1 chunk=5/1 +begun +run"},
        {"no marker behind a long exponent", "1E1234E",
         " held=1 chunk=1234/4 accumulator=1 +marker +begun +run +exp-begun +exp-digits"},
        {"no group behind a long exponent", "1E1234,567",
         " held=1 chunk=1234/4 accumulator=1 +marker +begun +run +exp-begun +exp-digits"},
        {"no marker behind groups of an exponent", "1E1,000E",
         " held=4 chunk=1000/4 accumulator=1 +marker +begun +run +exp-begun +exp-digits"},
        {"no point behind groups of an exponent", "1E1,000.",
         " held=4 chunk=1000/4 accumulator=1 +marker +begun +run +exp-begun +exp-digits"},
    };
    for (const LookaheadRow& row : rows) {
        SCOPED_TRACE(row.name);
        const Text text(row.text);
        const NumberParseState before = state_at(text, format_grouped);
        NumberParseState state = before;
        EXPECT_EQ(numparse_yyparse(&state), 0);
        EXPECT_EQ(changes(before, state), row.state);
    }
}

TEST(Grammar, ErrorsAreNotReportedAnywhere) {
    const Text text("1");
    const NumberParseState before = state_at(text, format_grouped);
    NumberParseState state = before;
    numparse_yyerror(&state, "syntax error");
    numparse_yyerror(&state, "memory exhausted");
    EXPECT_EQ(changes(before, state), "");
    EXPECT_EQ(state.token_start, before.token_start);
    EXPECT_EQ(state.cursor, before.cursor);
}

}  // namespace
}  // namespace qv8numeric_tests
