// SPDX-License-Identifier: MIT
// Text put straight into place: every digit count with every place of the point, in the tightest buffers.
#include "numconv/placed_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "wide_values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

// By the decimal digits of an integer of any size.
std::string expected_text(const Integer& magnitude, bool negative, unsigned fraction, bool grouped) {
    std::string digits = magnitude.str();
    if (digits.size() <= fraction) digits.insert(0, fraction + 1 - digits.size(), '0');
    std::string integer = digits.substr(0, digits.size() - fraction);
    if (grouped) {
        for (std::size_t comma = integer.size(); comma > 3;) integer.insert(comma -= 3, ",");
    }
    const std::string point = fraction == 0 ? "" : "." + digits.substr(digits.size() - fraction);
    return (negative ? "-" : "") + integer + point;
}

// In a buffer with `room` bytes more than the text and its NUL, or in the nine that are the fewest.
template <class Form, class Magnitude>
void expect_placed(Magnitude magnitude, const std::string& text, unsigned fraction, std::size_t room) {
    const std::size_t size = std::max<std::size_t>(text.size() + 1 + room, 9);
    std::string memory(size + 64, '#');
    char* const buffer = memory.data() + 32;
    ASSERT_TRUE(place_text<Form>(magnitude, text[0] == '-', static_cast<int32_t>(fraction), buffer, size)) << text;
    ASSERT_EQ(std::string(buffer), text);
    ASSERT_EQ(memory.substr(0, 32), std::string(32, '#')) << "before the buffer of " << text;
    ASSERT_EQ(memory.substr(32 + size), std::string(32, '#')) << "behind the buffer of " << text;
    for (std::size_t i = text.size() + 1; i < size; ++i) {
        ASSERT_TRUE(buffer[i] == '#' || (buffer[i] == '\0' && i < 9)) << "byte " << i << " behind " << text;
    }
}

template <class Form, class Magnitude>
void expect_refused(Magnitude magnitude, const std::string& text, unsigned fraction) {
    for (const std::size_t size : {text.size(), std::size_t{8}}) {
        if (size > std::max<std::size_t>(text.size(), 8)) continue;
        std::string memory(size, '#');
        ASSERT_FALSE(place_text<Form>(magnitude, text[0] == '-', static_cast<int32_t>(fraction), memory.data(), size));
        ASSERT_EQ(memory, std::string(size, '#')) << text;
    }
}

template <class Form, class Magnitude>
void expect_both_signs(Magnitude magnitude, const Integer& value, unsigned fraction) {
    for (const bool negative : {false, true}) {
        const std::string text = expected_text(value, negative, fraction, is_grouped<Form>());
        expect_placed<Form>(magnitude, text, fraction, 0);
        expect_placed<Form>(magnitude, text, fraction, 20);
        expect_refused<Form>(magnitude, text, fraction);
    }
}

void expect_everywhere(const Integer& value) {
    for (unsigned fraction = 0; fraction <= 38; ++fraction) {
        expect_both_signs<PlainDigits>(pair(value), value, fraction);
        expect_both_signs<GroupedDigits>(pair(value), value, fraction);
        if (value > two_to(63) || fraction > 19) continue;
        expect_both_signs<PlainDigits>(word_of(value, 0), value, fraction);
        expect_both_signs<GroupedDigits>(word_of(value, 0), value, fraction);
    }
}

TEST(PlacedText, Zero) { expect_everywhere(0); }

// 123..., 999..., 1000... and 1000...1 of each length.
TEST(PlacedText, EveryNumberOfDigits) {
    const std::string digits = "123456789012345678901234567890123456789";
    for (unsigned count = 1; count <= 39; ++count) {
        expect_everywhere(Integer{digits.substr(0, count)});
        expect_everywhere(power(10, count - 1));
        expect_everywhere(power(10, count - 1) + 1);
        if (count <= 38) expect_everywhere(power(10, count) - 1);
    }
}

TEST(PlacedText, AroundThePowersOfTwoThatEndAWidth) {
    for (const unsigned bits : {31U, 32U, 63U, 64U, 126U, 127U}) {
        for (const int offset : {-1, 0, 1}) {
            if (bits < 127 || offset < 1) expect_everywhere(two_to(bits) + offset);
        }
    }
}

TEST(PlacedText, RandomMagnitudes) {
    RandomValues random(20260404);
    for (int i = 0; i < 500; ++i) expect_everywhere(random.magnitude(127));
}

}  // namespace
}  // namespace qv8numeric_tests
