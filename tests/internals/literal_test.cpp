// SPDX-License-Identifier: MIT
// Number literals token by token, with what each token leaves in the state, and where the grammar stops.
#include "numconv/literal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

// ---- The shared state and the codes are fixed ----

static_assert(offsetof(NumberParseState, token_start) == 0);
static_assert(offsetof(NumberParseState, token_start) < offsetof(NumberParseState, cursor));
static_assert(offsetof(NumberParseState, cursor) < offsetof(NumberParseState, mode));
static_assert(offsetof(NumberParseState, mode) < offsetof(NumberParseState, digits_held));
static_assert(offsetof(NumberParseState, digits_held) < offsetof(NumberParseState, digits_dropped));
static_assert(offsetof(NumberParseState, digits_dropped) < offsetof(NumberParseState, fraction_digits));
static_assert(offsetof(NumberParseState, fraction_digits) < offsetof(NumberParseState, chunk));
static_assert(offsetof(NumberParseState, chunk) < offsetof(NumberParseState, chunk_digits));
static_assert(offsetof(NumberParseState, chunk_digits) < offsetof(NumberParseState, negative));
static_assert(offsetof(NumberParseState, negative) < offsetof(NumberParseState, overflow));
static_assert(offsetof(NumberParseState, overflow) < offsetof(NumberParseState, accumulator));
static_assert(offsetof(NumberParseState, accumulator) < offsetof(NumberParseState, flags));

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

// ---- Driving the lexer ----

// A text in a block of its own that ends with the NUL, so that a sanitizer finds a read beyond it.
class Text {
  public:
    explicit Text(std::string_view text) : characters_(new char[text.size() + 1]) {
        std::copy(text.begin(), text.end(), characters_.get());
        characters_[text.size()] = '\0';
    }
    const char* begin() const { return characters_.get(); }

  private:
    std::unique_ptr<char[]> characters_;
};

std::string token_name(int token) {
    switch (token) {
        case TOK_END: return "END";
        case TOK_POINT: return "POINT";
        case TOK_SIGN: return "SIGN";
        case TOK_LONG_DIGITS: return "LONG";
        case TOK_SHORT_DIGITS: return "SHORT";
        case TOK_GROUPS: return "GROUPS";
        case TOK_EXP: return "EXP";
        case TOK_BAD: return "BAD";
        default: return std::to_string(token);
    }
}

struct NamedFlag {
    unsigned bit;
    const char* name;
};

constexpr NamedFlag kFlags[] = {
    {1, "marker"}, {2, "point"},      {4, "exp-negative"}, {8, "begun"},
    {16, "run"},   {32, "exp-begun"}, {64, "exp-digits"},  {128, "unknown"},
};

// What differs between two states: "held=2 chunk=12/2 +begun", the chunk with its number of digits.
std::string changes(const NumberParseState& before, const NumberParseState& after) {
    std::ostringstream out;
    if (after.digits_held != before.digits_held) out << " held=" << after.digits_held;
    if (after.digits_dropped != before.digits_dropped) out << " dropped=" << after.digits_dropped;
    if (after.fraction_digits != before.fraction_digits) out << " fraction=" << after.fraction_digits;
    if (after.chunk != before.chunk || after.chunk_digits != before.chunk_digits) {
        out << " chunk=" << after.chunk << '/' << after.chunk_digits;
    }
    if (!(after.accumulator == before.accumulator)) out << " accumulator=" << after.accumulator;
    if (after.negative != before.negative) out << " negative=" << after.negative;
    if (after.overflow != before.overflow) out << " overflow=" << after.overflow;
    if (after.mode != before.mode) out << " mode=" << after.mode;
    for (const NamedFlag& flag : kFlags) {
        const bool was = (before.flags & flag.bit) != 0;
        const bool is = (after.flags & flag.bit) != 0;
        if (is != was) out << (is ? " +" : " -") << flag.name;
    }
    return out.str();
}

NumberParseState state_at(const Text& text, NumberFormatMode mode) {
    NumberParseState state{};
    state.cursor = text.begin();
    state.mode = mode;
    return state;
}

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
    std::vector<const char*> tokens;
};

void expect_tokens(NumberFormatMode mode, const std::vector<LexRow>& rows) {
    for (const LexRow& row : rows) {
        SCOPED_TRACE(row.name);
        SCOPED_TRACE(row.text);
        const Text text(row.text);
        NumberParseState state = state_at(text, mode);
        for (const char* expected : row.tokens) EXPECT_EQ(lexed(state, text), expected);
    }
}

std::string digits(std::size_t count, char digit) { return std::string(count, digit); }

// ---- The lexer ----

TEST(Lexer, CharactersThatAreNoToken) {
    const std::vector<LexRow> rows = {
        {"nothing", "", {"END 0-0", "END 0-0"}},
        {"a leading blank", " 1", {"END 0-0"}},
        {"an embedded blank", "1 2", {"SHORT 0-1 held=1 chunk=1/1 +begun +run", "END 1-1"}},
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
        {"no run directly behind another", "1-2", {"SHORT 0-1 held=1 chunk=1/1 +begun +run", "SIGN 1-2", "END 2-3"}},
    };
    expect_tokens(format_plain, rows);
    expect_tokens(format_grouped, rows);
}

TEST(Lexer, ZerosBeforeTheFirstDigitThatCounts) {
    const std::vector<LexRow> rows = {
        {"a single zero", "0", {"SHORT 0-1 +begun +run", "END 1-1"}},
        {"a step of zeros", "000", {"SHORT 0-3 +begun +run"}},
        {"a step of zeros and a single one", "0000", {"LONG 0-4 +begun +run"}},
        {"a single zero before a digit", "07", {"SHORT 0-2 held=1 chunk=7/1 +begun +run"}},
        {"in a step with another digit they count", "007", {"SHORT 0-3 held=3 chunk=7/3 +begun +run"}},
        {"a step of them, then a single digit", "0007", {"LONG 0-4 held=1 chunk=7/1 +begun +run"}},
        {"two steps of them", "000000123", {"LONG 0-9 held=3 chunk=123/3 +begun +run"}},
        {"behind a digit they count", "1000", {"LONG 0-4 held=4 chunk=1000/4 +begun +run"}},
        {"behind the point they count",
         "0.000123",
         {"SHORT 0-1 +begun +run", "POINT 1-2 +point -run", "LONG 2-8 held=6 fraction=6 chunk=123/6 +run"}},
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
        {"a fraction",
         "1.25",
         {"SHORT 0-1 held=1 chunk=1/1 +begun +run", "POINT 1-2 +point -run",
          "SHORT 2-4 held=3 fraction=2 chunk=125/3 +run"}},
        {"a chunk across the point",
         "1234567.89",
         {"LONG 0-7 held=7 chunk=1234567/7 +begun +run", "POINT 7-8 +point -run",
          "SHORT 8-10 held=9 fraction=2 chunk=9/1 accumulator=12345678 +run"}},
        {"two points, two fractions",
         "1.2.3",
         {"SHORT 0-1 held=1 chunk=1/1 +begun +run", "POINT 1-2 +point -run",
          "SHORT 2-3 held=2 fraction=1 chunk=12/2 +run", "POINT 3-4 -run",
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
    constexpr const char* one = "SHORT 0-1 held=1 chunk=1/1 +begun +run";
    constexpr const char* marker = "EXP 1-2 chunk=0/0 accumulator=1 +marker";
    const std::vector<LexRow> rows = {
        {"a digit", "1e5", {one, marker, "SHORT 2-3 chunk=5/1 +exp-begun +exp-digits", "END 3-3"}},
        {"in upper case", "1E5", {one, marker, "SHORT 2-3 chunk=5/1 +exp-begun +exp-digits", "END 3-3"}},
        {"three are short", "1e123x", {one, marker, "SHORT 2-5 chunk=123/3 +exp-begun +exp-digits", "END 5-5"}},
        {"four are long", "1e1234x", {one, marker, "LONG 2-6 chunk=1234/4 +exp-begun +exp-digits", "END 6-6"}},
        {"leading zeros are counted", "1e0005", {one, marker, "LONG 2-6 chunk=5/4 +exp-begun +exp-digits"}},
        {"many leading zeros",
         "1e" + digits(19, '0') + "5",
         {one, marker, "LONG 2-22 chunk=5/20 +exp-begun +exp-digits"}},
        {"negative", "1e-5", {one, marker, "SIGN 2-3 +exp-negative +exp-begun", "SHORT 3-4 chunk=5/1 +exp-digits"}},
        {"with plus", "1e+5", {one, marker, "SIGN 2-3", "SHORT 3-4 chunk=5/1 +exp-begun +exp-digits"}},
        {"minus twice", "1e--", {one, marker, "SIGN 2-3 +exp-negative +exp-begun", "SIGN 3-4"}},
        {"plus, then minus", "1e+-", {one, marker, "SIGN 2-3", "SIGN 3-4 +exp-negative +exp-begun"}},
        {"minus behind its digits", "1e5-", {one, marker, "SHORT 2-3 chunk=5/1 +exp-begun +exp-digits", "SIGN 3-4"}},
        {"no second run", "1e5-6", {one, marker, "SHORT 2-3 chunk=5/1 +exp-begun +exp-digits", "SIGN 3-4", "END 4-5"}},
        {"a point", "1e5.", {one, marker, "SHORT 2-3 chunk=5/1 +exp-begun +exp-digits", "POINT 3-4 +point -run"}},
        {"the largest", "1e2147483647", {one, marker, "LONG 2-12 chunk=2147483647/10 +exp-begun +exp-digits"}},
        {"one more", "1e2147483648", {one, marker, "BAD 2-12 +exp-begun +exp-digits"}},
        {"the lowest",
         "1e-2147483648",
         {one, marker, "SIGN 2-3 +exp-negative +exp-begun", "LONG 3-13 chunk=2147483648/10 +exp-digits"}},
        {"one less", "1e-2147483649", {one, marker, "SIGN 2-3 +exp-negative +exp-begun", "BAD 3-13 +exp-digits"}},
        {"beyond 64 bits", "1e" + digits(40, '9'), {one, marker, "BAD 2-42 +exp-begun +exp-digits"}},
        {"2^64 + 1, which is not 1", "1e18446744073709551617", {one, marker, "BAD 2-22 +exp-begun +exp-digits"}},
        {"no digit before it", "e5", {"EXP 0-1 +marker", "SHORT 1-2 chunk=5/1 +exp-begun +exp-digits"}},
        {"pending digits of a fraction",
         "1.25e1",
         {"SHORT 0-1 held=1 chunk=1/1 +begun +run", "POINT 1-2 +point -run",
          "SHORT 2-4 held=3 fraction=2 chunk=125/3 +run", "EXP 4-5 chunk=0/0 accumulator=125 +marker",
          "SHORT 5-6 chunk=1/1 +exp-begun +exp-digits"}},
    };
    expect_tokens(format_plain, rows);
    expect_tokens(format_grouped, rows);
}

TEST(Lexer, SecondMarkerMakesTheExponentDigitsOfTheMantissa) {
    const std::vector<LexRow> rows = {
        {"one digit",
         "1E5E6",
         {"SHORT 0-1 held=1 chunk=1/1 +begun +run", "EXP 1-2 chunk=0/0 accumulator=1 +marker",
          "SHORT 2-3 chunk=5/1 +exp-begun +exp-digits", "EXP 3-4 chunk=0/0 accumulator=15", "END 4-5"}},
        {"with its leading zero",
         "1E05E",
         {"SHORT 0-1 held=1 chunk=1/1 +begun +run", "EXP 1-2 chunk=0/0 accumulator=1 +marker",
          "SHORT 2-4 chunk=5/2 +exp-begun +exp-digits", "EXP 4-5 chunk=0/0 accumulator=105"}},
        {"three digits",
         "12E345E",
         {"SHORT 0-2 held=2 chunk=12/2 +begun +run", "EXP 2-3 chunk=0/0 accumulator=12 +marker",
          "SHORT 3-6 chunk=345/3 +exp-begun +exp-digits", "EXP 6-7 chunk=0/0 accumulator=12345"}},
        {"the sign of the exponent is not theirs",
         "1E-5E",
         {"SHORT 0-1 held=1 chunk=1/1 +begun +run", "EXP 1-2 chunk=0/0 accumulator=1 +marker",
          "SIGN 2-3 +exp-negative +exp-begun", "SHORT 3-4 chunk=5/1 +exp-digits", "EXP 4-5 chunk=0/0 accumulator=15"}},
        {"no digits",
         "1EE",
         {"SHORT 0-1 held=1 chunk=1/1 +begun +run", "EXP 1-2 chunk=0/0 accumulator=1 +marker", "EXP 2-3"}},
    };
    expect_tokens(format_plain, rows);
    expect_tokens(format_grouped, rows);
}

TEST(Lexer, CommaEndsAPlainNumber) {
    expect_tokens(format_plain, {
                                    {"a group", "1,234", {"SHORT 0-1 held=1 chunk=1/1 +begun +run", "END 1-2"}},
                                    {"a comma alone", ",", {"END 0-1"}},
                                });
}

TEST(Lexer, Groups) {
    constexpr const char* one = "SHORT 0-1 held=1 chunk=1/1 +begun +run";
    constexpr const char* zero = "SHORT 0-1 +begun +run";
    expect_tokens(
        format_grouped,
        {
            {"one", "1,234", {one, "GROUPS 1-5 held=4 chunk=1234/4", "END 5-5"}},
            {"two", "1,234,567", {one, "GROUPS 1-9 held=7 chunk=1234567/7", "END 9-9"}},
            {"three, flushed on the way",
             "12,345,678,901",
             {"SHORT 0-2 held=2 chunk=12/2 +begun +run", "GROUPS 2-14 held=11 chunk=901/3 accumulator=12345678"}},
            {"behind a long run",
             "1234,567",
             {"LONG 0-4 held=4 chunk=1234/4 +begun +run", "GROUPS 4-8 held=7 chunk=1234567/7"}},
            {"behind nothing", ",123", {"GROUPS 0-4 held=3 chunk=123/3"}},
            {"a letter ends them", "1,234x", {one, "GROUPS 1-5 held=4 chunk=1234/4", "END 5-5"}},
            {"a comma ends them", "1,234,", {one, "GROUPS 1-5 held=4 chunk=1234/4", "BAD 5-6"}},
            {"two digits end them", "1,234,56", {one, "GROUPS 1-5 held=4 chunk=1234/4", "BAD 5-6"}},
            {"four digits end them", "1,234,5678", {one, "GROUPS 1-5 held=4 chunk=1234/4", "BAD 5-6"}},
            {"no digit", "1,", {one, "BAD 1-2"}},
            {"one digit", "1,2", {one, "BAD 1-2"}},
            {"two digits", "1,23", {one, "BAD 1-2"}},
            {"two digits and a letter", "1,23a", {one, "BAD 1-2"}},
            {"four digits", "1,2345", {one, "BAD 1-2"}},
            {"a comma alone", ",", {"BAD 0-1"}},
            {"zeros behind a zero", "0,000", {zero, "GROUPS 1-5"}},
            {"zeros, then digits, behind a zero", "0,000,012", {zero, "GROUPS 1-9 held=3 chunk=12/3"}},
            {"zeros behind a digit", "1,000", {one, "GROUPS 1-5 held=4 chunk=1000/4"}},
            {"behind a fraction",
             "1.5,123",
             {one, "POINT 1-2 +point -run", "SHORT 2-3 held=2 fraction=1 chunk=15/2 +run",
              "GROUPS 3-7 held=5 fraction=4 chunk=15123/5"}},
            {"behind the point", "1.,234", {one, "POINT 1-2 +point -run", "GROUPS 2-6 held=4 fraction=3 chunk=1234/4"}},
            {"zeros behind the point",
             "0.,000",
             {zero, "POINT 1-2 +point -run", "GROUPS 2-6 held=3 fraction=3 chunk=0/3"}},
        });
}

TEST(Lexer, DigitLimit) {
    const std::string ones40 = digits(40, '1');
    const std::string held41 = "LONG 0-41 held=41 chunk=1/1 accumulator=" + ones40 + " +begun +run";
    const std::string held42 = "LONG 0-42 held=42 chunk=11/2 accumulator=" + ones40 + " +begun +run";
    const std::string held42_of43 = "LONG 0-43 held=42 dropped=1 chunk=11/2 accumulator=" + ones40 + " +begun +run";
    const std::string held42_of44 = "LONG 0-44 held=42 dropped=2 chunk=11/2 accumulator=" + ones40 + " +begun +run";
    const std::string held45 = "LONG 0-45 held=45 chunk=11111/5 accumulator=" + ones40 + " +begun +run";
    const std::string held45_of46 = "LONG 0-46 held=45 dropped=1 chunk=11111/5 accumulator=" + ones40 + " +begun +run";
    const std::string held45_of50 = "LONG 0-50 held=45 dropped=5 chunk=11111/5 accumulator=" + ones40 + " +begun +run";
    const std::string fraction43 =
        "LONG 2-47 held=43 dropped=3 fraction=45 chunk=111/3 accumulator=" + ones40 + " +run";
    const std::string fraction44 =
        "LONG 3-48 held=44 dropped=3 fraction=45 chunk=1111/4 accumulator=" + ones40 + " +run";
    const std::vector<LexRow> rows = {
        {"41, the last two one by one", digits(41, '1'), {held41.c_str()}},
        {"41, and a step of three more",
         digits(41, '1') + ".111",
         {held41.c_str(), "POINT 41-42 +point -run", "SHORT 42-45 held=44 fraction=3 chunk=1111/4 +run"}},
        {"41, and no single one more",
         digits(41, '1') + ".1",
         {held41.c_str(), "POINT 41-42 +point -run", "SHORT 42-43 dropped=1 fraction=1 +run"}},
        {"42, all in steps of three", digits(42, '1'), {held42.c_str()}},
        {"42, and the 43rd is a single one too many", digits(43, '1'), {held42_of43.c_str()}},
        {"42, and the 44th too", digits(44, '1'), {held42_of44.c_str()}},
        {"45, in fifteen steps", digits(45, '1'), {held45.c_str()}},
        {"45, and a single one too many", digits(46, '1'), {held45_of46.c_str()}},
        {"45, and a step and two single ones too many", digits(50, '1'), {held45_of50.c_str()}},
        {"43 of a fraction behind one digit",
         "1." + digits(45, '1'),
         {"SHORT 0-1 held=1 chunk=1/1 +begun +run", "POINT 1-2 +point -run", fraction43.c_str()}},
        {"44 of a fraction behind two digits",
         "11." + digits(45, '1'),
         {"SHORT 0-2 held=2 chunk=11/2 +begun +run", "POINT 2-3 +point -run", fraction44.c_str()}},
        {"dropped digits of a fraction are places all the same",
         digits(45, '1') + ".7891",
         {held45.c_str(), "POINT 45-46 +point -run", "LONG 46-50 dropped=4 fraction=4 +run"}},
        {"zeros behind the point use it up",
         "0." + digits(45, '0') + "1",
         {"SHORT 0-1 +begun +run", "POINT 1-2 +point -run", "LONG 2-48 held=45 dropped=1 fraction=46 chunk=0/5 +run"}},
        {"41 zeros behind the point leave room for one digit",
         "0." + digits(41, '0') + "1",
         {"SHORT 0-1 +begun +run", "POINT 1-2 +point -run", "LONG 2-44 held=42 fraction=42 chunk=1/2 +run"}},
        {"leading zeros do not use it up", digits(60, '0') + "7", {"LONG 0-61 held=1 chunk=7/1 +begun +run"}},
    };
    expect_tokens(format_plain, rows);
    expect_tokens(format_grouped, rows);

    std::string groups = "111";
    for (int i = 0; i < 15; ++i) groups += ",111";
    const std::string taken = "GROUPS 3-63 held=45 dropped=3 chunk=11111/5 accumulator=" + ones40;
    expect_tokens(format_grouped,
                  {{"groups are steps of three", groups, {"SHORT 0-3 held=3 chunk=111/3 +begun +run", taken.c_str()}}});
}

TEST(Lexer, GroupsOfAnExponentAreDigitsOfTheMantissa) {
    constexpr const char* one = "SHORT 0-1 held=1 chunk=1/1 +begun +run";
    constexpr const char* marker = "EXP 1-2 chunk=0/0 accumulator=1 +marker";
    constexpr const char* zero = "SHORT 0-1 +begun +run";
    constexpr const char* zero_marker = "EXP 1-2 +marker";
    constexpr const char* one_place = "SHORT 2-3 chunk=1/1 +exp-begun +exp-digits";
    expect_tokens(
        format_grouped,
        {
            {"they lengthen the exponent",
             "1e1,000",
             {one, marker, one_place, "GROUPS 3-7 held=4 chunk=1000/4", "END 7-7"}},
            {"behind a point they are places too",
             "1.5e1,000",
             {one, "POINT 1-2 +point -run", "SHORT 2-3 held=2 fraction=1 chunk=15/2 +run",
              "EXP 3-4 chunk=0/0 accumulator=15 +marker", "SHORT 4-5 chunk=1/1 +exp-begun +exp-digits",
              "GROUPS 5-9 held=5 fraction=4 chunk=1000/4"}},
            {"zeros are skipped while no digit is held", "0e1,000", {zero, zero_marker, one_place, "GROUPS 3-7"}},
            {"eight digits are flushed",
             "0e123,456,789",
             {zero, zero_marker, "SHORT 2-5 chunk=123/3 +exp-begun +exp-digits",
              "GROUPS 5-13 held=6 chunk=9/1 accumulator=12345678"}},
            {"eight digits are flushed behind the mantissa",
             "1e1,000,000,000",
             {one, marker, one_place, "GROUPS 3-15 held=10 chunk=0/2 accumulator=110000000"}},
        });
}

// The grammar reads no groups behind four and more exponent digits, but the lexer has to be harmless by itself.
TEST(Lexer, GroupsBehindALongExponent) {
    constexpr const char* one = "SHORT 0-1 held=1 chunk=1/1 +begun +run";
    constexpr const char* marker = "EXP 1-2 chunk=0/0 accumulator=1 +marker";
    expect_tokens(format_grouped,
                  {
                      {"seven digits leave room for one",
                       "1e1234567,890",
                       {one, marker, "LONG 2-9 chunk=1234567/7 +exp-begun +exp-digits",
                        "GROUPS 9-13 held=4 chunk=90/2 accumulator=112345678"}},
                      {"eight digits leave none",
                       "1e12345678,901",
                       {one, marker, "LONG 2-10 chunk=12345678/8 +exp-begun +exp-digits",
                        "GROUPS 10-14 held=4 chunk=901/3 accumulator=112345678"}},
                      {"ten digits, as large as an exponent can be",
                       "1e2147483647,123",
                       {one, marker, "LONG 2-12 chunk=2147483647/10 +exp-begun +exp-digits",
                        "GROUPS 12-16 held=4 chunk=123/3 accumulator=12147483647"}},
                      {"300 zeros",
                       "0e" + digits(300, '0') + ",123",
                       {"SHORT 0-1 +begun +run", "EXP 1-2 +marker", "LONG 2-302 chunk=0/300 +exp-begun +exp-digits",
                        "GROUPS 302-306 held=3 chunk=123/3"}},
                  });
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

// ---- The grammar ----

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
        EXPECT_EQ(numparse_yyparse(&state), row.result);
        if (row.result == 0) {
            EXPECT_EQ(state.token_start - text.begin(), row.end);
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
