// SPDX-License-Identifier: MIT
// Every short text and every single byte, against the grammar.
#include <gtest/gtest.h>

#include "literal.h"
#include "modes.h"
#include "parsing.h"

namespace qv8numeric_tests {
namespace {

struct Form {
    const char* name;
    Parser parser;
    bool grouped;
};
constexpr Form kForms[] = {{"plain", QV8NumericStr2Num, false}, {"grouped", QV8NumericDgstr2Num, true}};

testing::AssertionResult follows_the_grammar(const Form& form, const std::string& text, const NumericInfo& info) {
    const Literal literal = read_literal(text, form.grouped);
    const Outcome expected =
        literal.accepted ? coefficient_at(literal, info) : outcome(NUMERIC_SYNTAX_ERROR, "untouched");
    const Parsed parsed = parse(form.parser, text, info);
    if (parsed.outcome == expected && parsed.end == literal.end) return testing::AssertionSuccess();
    return testing::AssertionFailure() << form.name << " '" << text << "': " << parsed.outcome << ", end " << parsed.end
                                       << "; expected " << expected << ", end " << literal.end;
}

// All texts of 1 to `longest` characters of the alphabet.
void expect_all_texts(std::string_view alphabet, std::size_t longest, const NumericInfo& info) {
    for (std::size_t length = 1; length <= longest; ++length) {
        std::string text(length, alphabet.front());
        std::size_t changed;
        do {
            for (const Form& form : kForms) ASSERT_TRUE(follows_the_grammar(form, text, info));
            // The next text in the order of the alphabet: count up from the last character.
            changed = length;
            while (changed > 0) {
                const std::size_t next = alphabet.find(text[changed - 1]) + 1;
                text[changed - 1] = alphabet[next % alphabet.size()];
                if (next < alphabet.size()) break;
                --changed;
            }
        } while (changed > 0);
    }
}

TEST(ParseGrammar, EveryTextOfUpToSixCharacters) { expect_all_texts("01+-.eE,a", 6, {1, kHalfEven}); }

// Long enough for groups behind an exponent and for two groups.
TEST(ParseGrammar, EveryTextOfUpToEightDigitsCommasAndMarkers) { expect_all_texts("01,e", 8, {2, kUp}); }

TEST(ParseGrammar, EveryTextOfUpToSevenDigitsCommasAndPoints) { expect_all_texts("12,.e", 7, {0, kHalfDown}); }

// Rows that fix the reading itself, so that it is not the tested code and its yardstick that agree on a mistake.
struct ReadingRow {
    const char* name;
    const char* text;
    bool accepted;
    std::ptrdiff_t end;
    bool negative;
    std::int64_t digits;
    std::int64_t exponent;
};

constexpr ReadingRow kReadingRows[] = {
    {"places", "-12.50", true, 6, true, 1250, -2},
    {"a short exponent", "1e12", true, 4, false, 1, 12},
    {"a long exponent", "1e1234", true, 2, false, 1, 1234},
    {"groups of an exponent", "1e1,000", true, 3, false, 1, 1000},
    {"groups of an exponent behind a point", "1.5e1,000", true, 5, false, 15, 996},
    {"groups behind a long run", "1234,567", true, 4, false, 1234567, 0},
    {"groups behind a fraction", "1.5,123", true, 3, false, 15123, -4},
    {"groups right behind the point", "1.,234", true, 2, false, 1234, -3},
    {"a bad group", "1,2345", true, 1, false, 1, 0},
    {"a bad group behind a good one", "1,234,5678", true, 5, false, 1234, 0},
    {"a second marker", "1E05E", true, 4, false, 105, 0},
    {"a second marker behind a negative exponent", "1E-5E", true, 4, false, 15, 0},
    {"the smallest exponent", "1e-2147483648", true, 3, false, 1, INT32_MIN},
    {"an exponent too large", "1e2147483648", false, 0, false, 0, 0},
    {"a marker alone", "1e", false, 0, false, 0, 0},
    {"a point alone", ".", false, 0, false, 0, 0},
};

TEST(ParseGrammar, TheYardstickReadsAsWritten) {
    for (const ReadingRow& row : kReadingRows) {
        SCOPED_TRACE(row.name);
        const Literal literal = read_literal(row.text, true);
        EXPECT_EQ(literal.accepted, row.accepted);
        EXPECT_EQ(literal.end, row.end);
        EXPECT_EQ(literal.negative, row.negative);
        EXPECT_EQ(literal.digits, row.digits);
        EXPECT_EQ(literal.exponent, row.exponent);
    }
}

bool continues_a_number(char byte) { return std::string_view("0123456789.eE").find(byte) != std::string_view::npos; }

bool begins_a_number(char byte) { return std::string_view("0123456789.+-").find(byte) != std::string_view::npos; }

constexpr int kLastByte = 255;

TEST(ParseGrammar, EveryOtherByteEndsTheNumber) {
    struct Row {
        const char* name;
        const char* literal;
        const char* value;  // at scale 1
    };
    constexpr Row kRows[] = {
        {"behind a short run", "12", "120"},     {"behind a long run", "12345", "123450"},
        {"behind the point", "12.", "120"},      {"behind a fraction", "12.5", "125"},
        {"behind an exponent", "12e2", "12000"}, {"behind a negative exponent", "-12e-1", "-12"},
    };
    for (const Row& row : kRows) {
        const std::string_view literal = row.literal;
        for (int code = 1; code <= kLastByte; ++code) {
            const char byte = static_cast<char>(code);
            if (continues_a_number(byte)) continue;
            for (const Form& form : kForms) {
                const Parsed parsed = parse(form.parser, std::string(literal) + byte + "7", {1, kHalfEven});
                EXPECT_EQ(parsed.outcome, outcome(NUMERIC_OK, row.value)) << row.name << ", byte " << code;
                EXPECT_EQ(parsed.end, static_cast<std::ptrdiff_t>(literal.size())) << row.name << ", byte " << code;
            }
        }
    }
}

TEST(ParseGrammar, NoOtherByteBeginsANumber) {
    for (int code = 1; code <= kLastByte; ++code) {
        const char byte = static_cast<char>(code);
        for (const Form& form : kForms) {
            const Parsed parsed = parse(form.parser, std::string(1, byte) + "12", {2, kHalfEven});
            if (begins_a_number(byte)) {
                EXPECT_EQ(status_name(parsed.outcome.status), "NUMERIC_OK") << "byte " << code;
                EXPECT_EQ(parsed.end, 3) << "byte " << code;
            } else {
                EXPECT_EQ(parsed.outcome, outcome(NUMERIC_SYNTAX_ERROR, "untouched")) << "byte " << code;
                EXPECT_EQ(parsed.end, 0) << "byte " << code;
            }
        }
    }
}

// A comma makes the reader look four bytes ahead; none of them may lie behind the NUL.
TEST(ParseGrammar, NothingBehindTheEndIsRead) {
    constexpr const char* kTexts[] = {"1",         "-",      "1.",     "1e",    "1e-",    "1,",      "1,2",
                                      "1,23",      "1,234",  "1.5,",   "1.5,1", "1.,12",  "1234,5",  "1e1,",
                                      "1e1,0",     "1e1,00", "+",      ".",     "1,234,", "1,234,5", "1,234,56",
                                      "1,234,567", "1e123",  "1e1234", ",",     ",1"};
    for (const char* text : kTexts) {
        for (const Form& form : kForms) EXPECT_TRUE(follows_the_grammar(form, text, {3, kHalfEven}));
    }
}

}  // namespace
}  // namespace qv8numeric_tests
