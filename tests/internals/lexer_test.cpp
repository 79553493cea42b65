// SPDX-License-Identifier: MIT
// Number literals token by token, with what each token leaves in the state.
#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>
#include <vector>

#include "parse_state.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

// ---- The shared state and the codes are fixed ----

constexpr std::size_t kOffsets[] = {
    offsetof(NumberParseState, token_start),    offsetof(NumberParseState, cursor),
    offsetof(NumberParseState, mode),           offsetof(NumberParseState, digits_held),
    offsetof(NumberParseState, digits_dropped), offsetof(NumberParseState, fraction_digits),
    offsetof(NumberParseState, chunk),          offsetof(NumberParseState, chunk_digits),
    offsetof(NumberParseState, negative),       offsetof(NumberParseState, overflow),
    offsetof(NumberParseState, accumulator),    offsetof(NumberParseState, flags),
};
static_assert(std::is_sorted(std::begin(kOffsets), std::end(kOffsets)));

static_assert(std::is_same_v<decltype(NumberParseState::token_start), const char*>);
static_assert(std::is_same_v<decltype(NumberParseState::cursor), const char*>);
static_assert(std::is_same_v<decltype(NumberParseState::mode), std::int32_t>);
static_assert(std::is_same_v<decltype(NumberParseState::digits_held), std::int32_t>);
static_assert(std::is_same_v<decltype(NumberParseState::digits_dropped), std::int32_t>);
static_assert(std::is_same_v<decltype(NumberParseState::fraction_digits), std::int64_t>);
static_assert(std::is_same_v<decltype(NumberParseState::chunk), std::uint32_t>);
static_assert(std::is_same_v<decltype(NumberParseState::chunk_digits), std::uint32_t>);
static_assert(std::is_same_v<decltype(NumberParseState::negative), std::uint32_t>);
static_assert(std::is_same_v<decltype(NumberParseState::overflow), std::uint32_t>);
static_assert(std::is_same_v<decltype(NumberParseState::accumulator), ExtendedNumeric>);
static_assert(std::is_same_v<decltype(NumberParseState::flags), std::uint8_t>);

static_assert(TOK_END == 0 && TOK_POINT == 258 && TOK_SIGN == 259 && TOK_LONG_DIGITS == 260);
static_assert(TOK_SHORT_DIGITS == 261 && TOK_GROUPS == 262 && TOK_EXP == 263 && TOK_BAD == 264);
static_assert(format_grouped == 1 && format_plain == 2);

static_assert([] {
    NumberParseState state{};
    set(state, point_seen);
    return has(state, point_seen) && !has(state, exponent_marker_seen) && state.flags == 2;
}());

// One token: its name, where it begins and where the cursor is then, and what it changed.
std::string lexed(NumberParseState& state, const Text& text) {
    const NumberParseState before = state;
    const int token = numparse_yylex(&state);
    std::ostringstream out;
    out << token_name(token) << ' ' << state.token_start - text.begin() << '-' << state.cursor - text.begin()
        << changes(before, state);
    return out.str();
}

struct LexRow {
    const char* name;
    std::string text;
    std::vector<std::string> tokens;
};

void expect_tokens(NumberFormatMode mode, const std::vector<LexRow>& rows) {
    for (const LexRow& row : rows) {
        SCOPED_TRACE(row.name);
        SCOPED_TRACE(row.text);
        const Text text(row.text);
        NumberParseState state = state_at(text, mode);
        for (const std::string& expected : row.tokens) EXPECT_EQ(lexed(state, text), expected);
    }
}

std::string digits(std::size_t count, char digit) { return std::string(count, digit); }

// Tokens that many texts begin with.
constexpr const char* kOne = "SHORT 0-1 held=1 chunk=1/1 +begun +run";  // 1
constexpr const char* kOneMarker = "EXP 1-2 chunk=0/0 accumulator=1 +marker";
constexpr const char* kZero = "SHORT 0-1 +begun +run";  // 0
constexpr const char* kZeroMarker = "EXP 1-2 +marker";

TEST(Lexer, CharactersThatAreNoToken) {
    const std::vector<LexRow> rows = {
        {"nothing", "", {"END 0-0", "END 0-0"}},
        {"a leading blank", " 1", {"END 0-0"}},
        {"an embedded blank", "1 2", {kOne, "END 1-1"}},
        {"a letter", "12abc", {"SHORT 0-2 held=2 chunk=12/2 +begun +run", "END 2-2"}},
        {"the neighbours of the digits", "/:", {"END 0-0"}},
        {"beyond ASCII", "\xff", {"END 0-0"}},
    };
    expect_tokens(format_plain, rows);
    expect_tokens(format_grouped, rows);
}

TEST(Lexer, MantissaDigits) {
    const std::vector<LexRow> rows = {
        {"one", "7", {"SHORT 0-1 held=1 chunk=7/1 +begun +run", "END 1-1"}},
        {"three are short", "123", {"SHORT 0-3 held=3 chunk=123/3 +begun +run", "END 3-3"}},
        {"four are long", "1234", {"LONG 0-4 held=4 chunk=1234/4 +begun +run", "END 4-4"}},
        {"seven are pending", "1234567", {"LONG 0-7 held=7 chunk=1234567/7 +begun +run"}},
        {"eight are flushed", "12345678", {"LONG 0-8 held=8 accumulator=12345678 +begun +run"}},
        {"nine", "123456789", {"LONG 0-9 held=9 chunk=9/1 accumulator=12345678 +begun +run"}},
        {"flushed twice",
         "1234567890123456789",
         {"LONG 0-19 held=19 chunk=789/3 accumulator=1234567890123456 +begun +run"}},
        {"no run directly behind another", "1-2", {kOne, "SIGN 1-2", "END 2-3"}},
    };
    expect_tokens(format_plain, rows);
    expect_tokens(format_grouped, rows);
}

TEST(Lexer, ZerosBeforeTheFirstDigitThatCounts) {
    const std::vector<LexRow> rows = {
        {"a single zero", "0", {kZero, "END 1-1"}},
        {"a step of zeros", "000", {"SHORT 0-3 +begun +run"}},
        {"a step of zeros and a single one", "0000", {"LONG 0-4 +begun +run"}},
        {"a single zero before a digit", "07", {"SHORT 0-2 held=1 chunk=7/1 +begun +run"}},
        {"in a step with another digit they count", "007", {"SHORT 0-3 held=3 chunk=7/3 +begun +run"}},
        {"a step of them, then a single digit", "0007", {"LONG 0-4 held=1 chunk=7/1 +begun +run"}},
        {"two steps of them", "000000123", {"LONG 0-9 held=3 chunk=123/3 +begun +run"}},
        {"behind a digit they count", "1000", {"LONG 0-4 held=4 chunk=1000/4 +begun +run"}},
        {"behind the point they count",
         "0.000123",
         {kZero, "POINT 1-2 +point -run", "LONG 2-8 held=6 fraction=6 chunk=123/6 +run"}},
        {"behind a leading point they count",
         ".000",
         {"POINT 0-1 +point", "SHORT 1-4 held=3 fraction=3 chunk=0/3 +begun +run"}},
        {"behind the point a single one counts",
         ".0",
         {"POINT 0-1 +point", "SHORT 1-2 held=1 fraction=1 chunk=0/1 +begun +run"}},
    };
    expect_tokens(format_plain, rows);
    expect_tokens(format_grouped, rows);
}

TEST(Lexer, PointAndFraction) {
    const std::vector<LexRow> rows = {
        {"a fraction", "1.25", {kOne, "POINT 1-2 +point -run", "SHORT 2-4 held=3 fraction=2 chunk=125/3 +run"}},
        {"a chunk across the point",
         "1234567.89",
         {"LONG 0-7 held=7 chunk=1234567/7 +begun +run", "POINT 7-8 +point -run",
          "SHORT 8-10 held=9 fraction=2 chunk=9/1 accumulator=12345678 +run"}},
        {"two points, two fractions",
         "1.2.3",
         {kOne, "POINT 1-2 +point -run", "SHORT 2-3 held=2 fraction=1 chunk=12/2 +run", "POINT 3-4 -run",
          "SHORT 4-5 held=3 fraction=2 chunk=123/3 +run"}},
    };
    expect_tokens(format_plain, rows);
    expect_tokens(format_grouped, rows);
}

TEST(Lexer, Signs) {
    const std::vector<LexRow> rows = {
        {"minus", "-12", {"SIGN 0-1 negative=1 +begun", "SHORT 1-3 held=2 chunk=12/2 +run"}},
        {"plus leaves no trace", "+12", {"SIGN 0-1", "SHORT 1-3 held=2 chunk=12/2 +begun +run"}},
        {"minus twice", "--1", {"SIGN 0-1 negative=1 +begun", "SIGN 1-2", "SHORT 2-3 held=1 chunk=1/1 +run"}},
        {"plus, then minus", "+-1", {"SIGN 0-1", "SIGN 1-2 negative=1 +begun"}},
        {"minus, then plus", "-+1", {"SIGN 0-1 negative=1 +begun", "SIGN 1-2"}},
        {"minus behind a digit is not the number's", "5-", {"SHORT 0-1 held=1 chunk=5/1 +begun +run", "SIGN 1-2"}},
        {"minus behind the point alone is", ".-", {"POINT 0-1 +point", "SIGN 1-2 negative=1 +begun"}},
    };
    expect_tokens(format_plain, rows);
    expect_tokens(format_grouped, rows);
}

TEST(Lexer, Exponent) {
    const std::vector<LexRow> rows = {
        {"a digit", "1e5", {kOne, kOneMarker, "SHORT 2-3 chunk=5/1 +exp-begun +exp-digits", "END 3-3"}},
        {"in upper case", "1E5", {kOne, kOneMarker, "SHORT 2-3 chunk=5/1 +exp-begun +exp-digits", "END 3-3"}},
        {"three are short", "1e123x", {kOne, kOneMarker, "SHORT 2-5 chunk=123/3 +exp-begun +exp-digits", "END 5-5"}},
        {"four are long", "1e1234x", {kOne, kOneMarker, "LONG 2-6 chunk=1234/4 +exp-begun +exp-digits", "END 6-6"}},
        {"leading zeros are counted", "1e0005", {kOne, kOneMarker, "LONG 2-6 chunk=5/4 +exp-begun +exp-digits"}},
        {"many leading zeros",
         "1e" + digits(19, '0') + "5",
         {kOne, kOneMarker, "LONG 2-22 chunk=5/20 +exp-begun +exp-digits"}},
        {"negative",
         "1e-5",
         {kOne, kOneMarker, "SIGN 2-3 +exp-negative +exp-begun", "SHORT 3-4 chunk=5/1 +exp-digits"}},
        {"with plus", "1e+5", {kOne, kOneMarker, "SIGN 2-3", "SHORT 3-4 chunk=5/1 +exp-begun +exp-digits"}},
        {"minus twice", "1e--", {kOne, kOneMarker, "SIGN 2-3 +exp-negative +exp-begun", "SIGN 3-4"}},
        {"plus, then minus", "1e+-", {kOne, kOneMarker, "SIGN 2-3", "SIGN 3-4 +exp-negative +exp-begun"}},
        {"minus behind its digits",
         "1e5-",
         {kOne, kOneMarker, "SHORT 2-3 chunk=5/1 +exp-begun +exp-digits", "SIGN 3-4"}},
        {"no second run",
         "1e5-6",
         {kOne, kOneMarker, "SHORT 2-3 chunk=5/1 +exp-begun +exp-digits", "SIGN 3-4", "END 4-5"}},
        {"a point", "1e5.", {kOne, kOneMarker, "SHORT 2-3 chunk=5/1 +exp-begun +exp-digits", "POINT 3-4 +point -run"}},
        {"the largest", "1e2147483647", {kOne, kOneMarker, "LONG 2-12 chunk=2147483647/10 +exp-begun +exp-digits"}},
        {"one more", "1e2147483648", {kOne, kOneMarker, "BAD 2-12 +exp-begun +exp-digits"}},
        {"the lowest",
         "1e-2147483648",
         {kOne, kOneMarker, "SIGN 2-3 +exp-negative +exp-begun", "LONG 3-13 chunk=2147483648/10 +exp-digits"}},
        {"one less", "1e-2147483649", {kOne, kOneMarker, "SIGN 2-3 +exp-negative +exp-begun", "BAD 3-13 +exp-digits"}},
        {"beyond 64 bits", "1e" + digits(40, '9'), {kOne, kOneMarker, "BAD 2-42 +exp-begun +exp-digits"}},
        {"2^64 + 1, which is not 1", "1e18446744073709551617", {kOne, kOneMarker, "BAD 2-22 +exp-begun +exp-digits"}},
        {"no digit before it", "e5", {"EXP 0-1 +marker", "SHORT 1-2 chunk=5/1 +exp-begun +exp-digits"}},
        {"pending digits of a fraction",
         "1.25e1",
         {kOne, "POINT 1-2 +point -run", "SHORT 2-4 held=3 fraction=2 chunk=125/3 +run",
          "EXP 4-5 chunk=0/0 accumulator=125 +marker", "SHORT 5-6 chunk=1/1 +exp-begun +exp-digits"}},
    };
    expect_tokens(format_plain, rows);
    expect_tokens(format_grouped, rows);
}

TEST(Lexer, SecondMarkerMakesTheExponentDigitsOfTheMantissa) {
    const std::vector<LexRow> rows = {
        {"one digit",
         "1E5E6",
         {kOne, kOneMarker, "SHORT 2-3 chunk=5/1 +exp-begun +exp-digits", "EXP 3-4 chunk=0/0 accumulator=15",
          "END 4-5"}},
        {"with its leading zero",
         "1E05E",
         {kOne, kOneMarker, "SHORT 2-4 chunk=5/2 +exp-begun +exp-digits", "EXP 4-5 chunk=0/0 accumulator=105"}},
        {"three digits",
         "12E345E",
         {"SHORT 0-2 held=2 chunk=12/2 +begun +run", "EXP 2-3 chunk=0/0 accumulator=12 +marker",
          "SHORT 3-6 chunk=345/3 +exp-begun +exp-digits", "EXP 6-7 chunk=0/0 accumulator=12345"}},
        {"the sign of the exponent is not theirs",
         "1E-5E",
         {kOne, kOneMarker, "SIGN 2-3 +exp-negative +exp-begun", "SHORT 3-4 chunk=5/1 +exp-digits",
          "EXP 4-5 chunk=0/0 accumulator=15"}},
        {"no digits", "1EE", {kOne, kOneMarker, "EXP 2-3"}},
    };
    expect_tokens(format_plain, rows);
    expect_tokens(format_grouped, rows);
}

TEST(Lexer, CommaEndsAPlainNumber) {
    const std::vector<LexRow> rows = {
        {"a group", "1,234", {kOne, "END 1-2"}},
        {"a comma alone", ",", {"END 0-1"}},
    };
    expect_tokens(format_plain, rows);
}

TEST(Lexer, Groups) {
    const std::vector<LexRow> rows = {
        {"one", "1,234", {kOne, "GROUPS 1-5 held=4 chunk=1234/4", "END 5-5"}},
        {"two", "1,234,567", {kOne, "GROUPS 1-9 held=7 chunk=1234567/7", "END 9-9"}},
        {"three, flushed on the way",
         "12,345,678,901",
         {"SHORT 0-2 held=2 chunk=12/2 +begun +run", "GROUPS 2-14 held=11 chunk=901/3 accumulator=12345678"}},
        {"behind a long run",
         "1234,567",
         {"LONG 0-4 held=4 chunk=1234/4 +begun +run", "GROUPS 4-8 held=7 chunk=1234567/7"}},
        {"behind nothing", ",123", {"GROUPS 0-4 held=3 chunk=123/3"}},
        {"a letter ends them", "1,234x", {kOne, "GROUPS 1-5 held=4 chunk=1234/4", "END 5-5"}},
        {"a comma ends them", "1,234,", {kOne, "GROUPS 1-5 held=4 chunk=1234/4", "BAD 5-6"}},
        {"two digits end them", "1,234,56", {kOne, "GROUPS 1-5 held=4 chunk=1234/4", "BAD 5-6"}},
        {"four digits end them", "1,234,5678", {kOne, "GROUPS 1-5 held=4 chunk=1234/4", "BAD 5-6"}},
        {"no digit", "1,", {kOne, "BAD 1-2"}},
        {"one digit", "1,2", {kOne, "BAD 1-2"}},
        {"two digits", "1,23", {kOne, "BAD 1-2"}},
        {"two digits and a letter", "1,23a", {kOne, "BAD 1-2"}},
        {"four digits", "1,2345", {kOne, "BAD 1-2"}},
        {"a comma alone", ",", {"BAD 0-1"}},
        {"zeros behind a zero", "0,000", {kZero, "GROUPS 1-5"}},
        {"zeros, then digits, behind a zero", "0,000,012", {kZero, "GROUPS 1-9 held=3 chunk=12/3"}},
        {"zeros behind a digit", "1,000", {kOne, "GROUPS 1-5 held=4 chunk=1000/4"}},
        {"behind a fraction",
         "1.5,123",
         {kOne, "POINT 1-2 +point -run", "SHORT 2-3 held=2 fraction=1 chunk=15/2 +run",
          "GROUPS 3-7 held=5 fraction=4 chunk=15123/5"}},
        {"behind the point", "1.,234", {kOne, "POINT 1-2 +point -run", "GROUPS 2-6 held=4 fraction=3 chunk=1234/4"}},
        {"zeros behind the point",
         "0.,000",
         {kZero, "POINT 1-2 +point -run", "GROUPS 2-6 held=3 fraction=3 chunk=0/3"}},
    };
    expect_tokens(format_grouped, rows);
}

struct LimitRow {
    const char* name;
    std::size_t digits;  // in one run
    const char* token;
    std::int32_t held;
    std::int32_t dropped;
};

constexpr LimitRow kLimitRows[] = {
    {"one by one behind a single step", 5, "LONG 0-5", 5, 0},
    {"the last one that is taken as a single digit is the 41st", 41, "LONG 0-41", 41, 0},
    {"all in steps of three", 42, "LONG 0-42", 42, 0},
    {"the 43rd is a single digit too many", 43, "LONG 0-43", 42, 1},
    {"and so is the 44th", 44, "LONG 0-44", 42, 2},
    {"the last step that is taken ends at the 45th", 45, "LONG 0-45", 45, 0},
    {"the 46th is a single digit too many", 46, "LONG 0-46", 45, 1},
    {"a step and two single digits too many", 50, "LONG 0-50", 45, 5},
    {"a thousand", 1000, "LONG 0-1000", 45, 955},
};

TEST(Lexer, DigitLimitOfARun) {
    for (const LimitRow& row : kLimitRows) {
        SCOPED_TRACE(row.name);
        const Text text(digits(row.digits, '1'));
        NumberParseState state = state_at(text, format_plain);
        const std::string token = lexed(state, text);
        EXPECT_EQ(token.substr(0, token.find(" held")), row.token);
        EXPECT_EQ(state.digits_held, row.held);
        EXPECT_EQ(state.digits_dropped, row.dropped);
        EXPECT_EQ(state.fraction_digits, 0);
        flush_chunk(state);
        EXPECT_EQ(integer(state.accumulator), Integer(digits(static_cast<std::size_t>(row.held), '1')));
    }
}

TEST(Lexer, DigitLimitAcrossTokens) {
    const std::string ones40 = digits(40, '1');  // what the five chunks before the pending one hold
    const std::string held41 = "LONG 0-41 held=41 chunk=1/1 accumulator=" + ones40 + " +begun +run";
    const std::string held45 = "LONG 0-45 held=45 chunk=11111/5 accumulator=" + ones40 + " +begun +run";
    const std::vector<LexRow> rows = {
        {"41, and a step more",
         digits(41, '1') + ".111",
         {held41, "POINT 41-42 +point -run", "SHORT 42-45 held=44 fraction=3 chunk=1111/4 +run"}},
        {"41, and no single digit more",
         digits(41, '1') + ".1",
         {held41, "POINT 41-42 +point -run", "SHORT 42-43 dropped=1 fraction=1 +run"}},
        {"one digit, and 42 in steps",
         "1." + digits(45, '1'),
         {kOne, "POINT 1-2 +point -run",
          "LONG 2-47 held=43 dropped=3 fraction=45 chunk=111/3 accumulator=" + ones40 + " +run"}},
        {"two digits, and 42 in steps",
         "11." + digits(45, '1'),
         {"SHORT 0-2 held=2 chunk=11/2 +begun +run", "POINT 2-3 +point -run",
          "LONG 3-48 held=44 dropped=3 fraction=45 chunk=1111/4 accumulator=" + ones40 + " +run"}},
        {"dropped digits of a fraction are places all the same",
         digits(45, '1') + ".7891",
         {held45, "POINT 45-46 +point -run", "LONG 46-50 dropped=4 fraction=4 +run"}},
        {"zeros behind the point use it up",
         "0." + digits(45, '0') + "1",
         {kZero, "POINT 1-2 +point -run", "LONG 2-48 held=45 dropped=1 fraction=46 chunk=0/5 +run"}},
        {"41 zeros behind the point leave room for one digit",
         "0." + digits(41, '0') + "1",
         {kZero, "POINT 1-2 +point -run", "LONG 2-44 held=42 fraction=42 chunk=1/2 +run"}},
        {"leading zeros do not use it up", digits(60, '0') + "7", {"LONG 0-61 held=1 chunk=7/1 +begun +run"}},
    };
    expect_tokens(format_plain, rows);
    expect_tokens(format_grouped, rows);
}

TEST(Lexer, DigitLimitOfGroups) {
    std::string text = "111";
    for (int i = 0; i < 15; ++i) text += ",111";
    const std::vector<LexRow> rows = {
        {"they are steps of three",
         text,
         {"SHORT 0-3 held=3 chunk=111/3 +begun +run",
          "GROUPS 3-63 held=45 dropped=3 chunk=11111/5 accumulator=" + digits(40, '1')}},
    };
    expect_tokens(format_grouped, rows);
}

TEST(Lexer, GroupsOfAnExponentAreDigitsOfTheMantissa) {
    constexpr const char* one_place = "SHORT 2-3 chunk=1/1 +exp-begun +exp-digits";
    const std::vector<LexRow> rows = {
        {"they lengthen the exponent",
         "1e1,000",
         {kOne, kOneMarker, one_place, "GROUPS 3-7 held=4 chunk=1000/4", "END 7-7"}},
        {"behind a point they are places too",
         "1.5e1,000",
         {kOne, "POINT 1-2 +point -run", "SHORT 2-3 held=2 fraction=1 chunk=15/2 +run",
          "EXP 3-4 chunk=0/0 accumulator=15 +marker", "SHORT 4-5 chunk=1/1 +exp-begun +exp-digits",
          "GROUPS 5-9 held=5 fraction=4 chunk=1000/4"}},
        {"zeros are skipped while no digit is held", "0e1,000", {kZero, kZeroMarker, one_place, "GROUPS 3-7"}},
        {"eight digits are flushed",
         "0e123,456,789",
         {kZero, kZeroMarker, "SHORT 2-5 chunk=123/3 +exp-begun +exp-digits",
          "GROUPS 5-13 held=6 chunk=9/1 accumulator=12345678"}},
        {"eight digits are flushed behind the mantissa",
         "1e1,000,000,000",
         {kOne, kOneMarker, one_place, "GROUPS 3-15 held=10 chunk=0/2 accumulator=110000000"}},
    };
    expect_tokens(format_grouped, rows);
}

// The grammar reads no groups behind four and more exponent digits, but the lexer has to be harmless by itself.
TEST(Lexer, GroupsBehindALongExponent) {
    const std::vector<LexRow> rows = {
        {"seven digits leave room for one",
         "1e1234567,890",
         {kOne, kOneMarker, "LONG 2-9 chunk=1234567/7 +exp-begun +exp-digits",
          "GROUPS 9-13 held=4 chunk=90/2 accumulator=112345678"}},
        {"eight digits leave none",
         "1e12345678,901",
         {kOne, kOneMarker, "LONG 2-10 chunk=12345678/8 +exp-begun +exp-digits",
          "GROUPS 10-14 held=4 chunk=901/3 accumulator=112345678"}},
        {"ten digits, as large as an exponent can be",
         "1e2147483647,123",
         {kOne, kOneMarker, "LONG 2-12 chunk=2147483647/10 +exp-begun +exp-digits",
          "GROUPS 12-16 held=4 chunk=123/3 accumulator=12147483647"}},
        {"300 zeros",
         "0e" + digits(300, '0') + ",123",
         {kZero, kZeroMarker, "LONG 2-302 chunk=0/300 +exp-begun +exp-digits", "GROUPS 302-306 held=3 chunk=123/3"}},
    };
    expect_tokens(format_grouped, rows);
}

struct FlushRow {
    const char* name;
    Integer accumulator;
    std::uint32_t chunk;
    std::uint32_t chunk_digits;
    std::uint32_t overflow_before;
    Integer flushed;  // modulo 2^256
    bool overflow;
};

TEST(Lexer, FlushTellsWhenTheAccumulatorLeaves256Bits) {
    const Integer last_tenth = (two_to(256) - 1) / 10;  // 2^256 - 1 ends in 5
    const FlushRow rows[] = {
        {"no digits", 7, 0, 0, 0, 7, false},
        {"one digit", 7, 8, 1, 0, 78, false},
        {"leading zeros of the pending digits", 7, 8, 3, 0, 7008, false},
        {"just full", last_tenth, 5, 1, 0, two_to(256) - 1, false},
        {"the sum carries out", last_tenth, 6, 1, 0, 0, true},
        {"the largest digit carries out", last_tenth, 9, 1, 0, 3, true},
        {"the product carries out", last_tenth + 1, 0, 1, 0, 4, true},
        {"the product of more digits than are ever pending", 1, 0, 300, 0, power(10, 84), true},
        {"what was noticed before stays noticed", 7, 8, 1, 4, 78, true},
    };
    for (const FlushRow& row : rows) {
        SCOPED_TRACE(row.name);
        // By itself, and as the first thing that an exponent marker does.
        const Text text("e");
        NumberParseState flushed = state_at(text, format_plain);
        flushed.accumulator = wide(row.accumulator);
        flushed.chunk = row.chunk;
        flushed.chunk_digits = row.chunk_digits;
        flushed.overflow = row.overflow_before;
        NumberParseState marked = flushed;
        flush_chunk(flushed);
        EXPECT_EQ(numparse_yylex(&marked), TOK_EXP);
        for (const NumberParseState& state : {flushed, marked}) {
            EXPECT_EQ(state.accumulator, wide(row.flushed));
            EXPECT_EQ(state.overflow != 0, row.overflow);
            EXPECT_EQ(state.chunk, 0U);
            EXPECT_EQ(state.chunk_digits, 0U);
        }
    }
}

struct DropRow {
    const char* name;
    const char* text;
    bool behind_the_point;
    std::int64_t scale_change;
};

constexpr DropRow kDropRows[] = {
    {"a step before the point", "123", false, -3},
    {"two single digits before the point", "12", false, -2},
    {"a step and a single digit before the point", "1234", false, -4},
    {"a step behind the point", "123", true, 0},
    {"two single digits behind the point", "12", true, 0},
};

// A text of 2^31 digits is possible. The literal's scale, fraction_digits - digits_dropped, has to come out right, not
// either of them.
TEST(Lexer, CountOfDroppedDigitsStopsBeforeItIsFull) {
    for (const DropRow& row : kDropRows) {
        SCOPED_TRACE(row.name);
        for (const std::int32_t room : {0, 1, 2, 3, 4, 5}) {
            SCOPED_TRACE(room);
            const Text text(row.text);
            NumberParseState state = state_at(text, format_plain);
            state.digits_held = 45;
            state.digits_dropped = INT32_MAX - room;
            state.fraction_digits = row.behind_the_point ? INT64_C(5000000000) : 0;
            if (row.behind_the_point) set(state, point_seen);
            const std::int64_t scale_before = state.fraction_digits - state.digits_dropped;
            (void)numparse_yylex(&state);
            EXPECT_EQ(state.fraction_digits - state.digits_dropped, scale_before + row.scale_change);
            EXPECT_GE(state.digits_dropped, INT32_MAX - room);
            EXPECT_EQ(state.digits_held, 45);
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
