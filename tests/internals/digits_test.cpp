// SPDX-License-Identifier: MIT
// Eight characters at once, against one at a time.
#include "numconv/digits.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>
#include <string>

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

std::string eight_digits(unsigned number) {
    char text[9];
    std::snprintf(text, sizeof text, "%08u", number);
    return text;
}

TEST(Digits, EightCharactersWithTheFirstOneLowest) {
    EXPECT_EQ(load_eight("12345678"), UINT64_C(0x3837363534333231));
    EXPECT_EQ(load_eight("\xff\x80\x01.,eE"), UINT64_C(0x0045652c2e0180ff));
    const char text[] = "x12345678";
    EXPECT_EQ(load_eight(text + 1), load_eight("12345678"));
    for (unsigned i = 0; i < 8; ++i) EXPECT_EQ(character_of(load_eight("12345678"), i), '1' + i);
    EXPECT_EQ(character_of(load_eight("\xae......."), 0), 0xaeU);
}

// All characters in all places, with digits around them.
TEST(Digits, AMissIsSeenWhereverItIs) {
    for (unsigned place = 0; place < 8; ++place) {
        for (unsigned character = 0; character < 256; ++character) {
            std::string text = "90909090";
            text[place] = static_cast<char>(character);
            const Matched matched = match_digits(load_eight(text.c_str()));
            const bool is_digit = '0' <= character && character <= '9';
            ASSERT_EQ(matched.misses == 0, is_digit) << "character " << character << " at " << place;
            ASSERT_EQ(count_matched(matched), is_digit ? 8 : place) << "character " << character << " at " << place;
        }
    }
}

TEST(Digits, TheFirstOfTwoMissesCounts) {
    for (unsigned first = 0; first < 8; ++first) {
        for (unsigned second = first; second < 8; ++second) {
            for (const char character : {'\0', '.', '/', ':', '\x7f', '\x80', '\xba', '\xff'}) {
                std::string text = "12345678";
                text[first] = text[second] = character;
                ASSERT_EQ(count_matched(match_digits(load_eight(text.c_str()))), first) << text;
            }
        }
    }
}

TEST(Digits, CloseUpOverAMiss) {
    for (unsigned point = 0; point < 8; ++point) {
        for (unsigned end = point + 1; end <= 8; ++end) {
            std::string text = "12345678";
            text[point] = '.';
            for (unsigned i = end; i < 8; ++i) text[i] = '\0';
            const Matched matched = without_first_miss(match_digits(load_eight(text.c_str())));
            const unsigned count = end - 1;
            ASSERT_EQ(count_matched(matched), count) << text;
            const std::string digits = text.substr(0, point) + text.substr(point + 1, end - point - 1);
            ASSERT_EQ(number_of(first_values(matched, count)), digits.empty() ? 0 : std::stoull(digits)) << text;
        }
    }
}

TEST(Digits, TheNumberOfEightDigits) {
    std::mt19937 random(20260403);
    for (const unsigned number : {0U, 1U, 9U, 10U, 99U, 100U, 9999U, 10000U, 12345678U, 90000000U, 99999999U}) {
        EXPECT_EQ(number_of(match_digits(load_eight(eight_digits(number).c_str())).values), number);
    }
    for (int i = 0; i < 100000; ++i) {
        const auto number = static_cast<unsigned>(random() % 100000000);
        ASSERT_EQ(number_of(match_digits(load_eight(eight_digits(number).c_str())).values), number);
    }
}

TEST(Digits, TheNumberOfTwoGroups) {
    for (unsigned number = 0; number < 1000000; number += 7) {
        const std::string digits = eight_digits(number).substr(2);
        const std::string text = "," + digits.substr(0, 3) + "," + digits.substr(3);
        const Matched matched = match_two_groups(load_eight(text.c_str()));
        ASSERT_EQ(matched.misses, 0U) << text;
        ASSERT_EQ(number_of<1'000>(matched.values), number) << text;
    }
}

TEST(Digits, GroupsMissWhateverElseStandsInAPlace) {
    for (unsigned place = 0; place < 8; ++place) {
        for (unsigned character = 0; character < 256; ++character) {
            std::string text = ",909,090";
            text[place] = static_cast<char>(character);
            const bool wanted = place % 4 == 0 ? character == ',' : '0' <= character && character <= '9';
            ASSERT_EQ(match_two_groups(load_eight(text.c_str())).misses == 0, wanted)
                << "character " << character << " at " << place;
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
