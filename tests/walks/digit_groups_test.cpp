// SPDX-License-Identifier: MIT
// Every group of digits that the formatter takes from its table or puts together from it.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "numconv/conv_table.h"
#include "numconv/placed_text.h"
#include "values.h"

namespace qv8numeric_tests {
namespace {

using namespace qv8numeric;

// A build without optimization or with a sanitizer takes some of the numbers, and so does an emulated machine.
#if defined(NDEBUG) && !defined(QV8NUMERIC_EMULATED)
constexpr std::uint64_t kStride = 1;
#else
constexpr std::uint64_t kStride = 997;
#endif

// The digits of a number that is counted up, kept as characters.
class Counter {
  public:
    explicit Counter(std::size_t digits) : text_(digits, '0') {}

    void add(std::uint64_t n) {
        for (std::size_t i = text_.size(); n > 0 && i > 0; --i) {
            n += static_cast<std::uint64_t>(text_[i - 1] - '0');
            text_[i - 1] = static_cast<char>('0' + n % 10);
            n /= 10;
        }
    }
    const std::string& text() const { return text_; }

  private:
    std::string text_;
};

TEST(DigitGroups, EveryEntryOfTheTable) {
    Counter counter(4);
    for (std::size_t i = 0; i < conv_table.size(); ++i, counter.add(1)) {
        for (std::size_t digit = 0; digit < 4; ++digit) {  // units lowest
            const auto value = static_cast<char>('0' + (conv_table[i] >> 8 * digit & 0xff));
            ASSERT_EQ(value, counter.text()[3 - digit]) << i;
        }
    }
}

std::uint64_t as_number(const char* eight) {
    std::uint64_t characters = 0;
    for (int i = 0; i < 8; ++i) characters = characters << 8 | static_cast<unsigned char>(eight[i]);
    return characters;
}

TEST(DigitGroups, EveryEightDigits) {
    Counter counter(8);
    for (std::uint64_t x = 0; x < 100000000; x += kStride, counter.add(kStride)) {
        if (eight_of<PlainDigits>(x) != as_number(counter.text().data())) FAIL() << x;
    }
}

TEST(DigitGroups, EveryTwoGroups) {
    Counter counter(6);
    for (std::uint64_t x = 0; x < 1000000; ++x, counter.add(1)) {
        const std::string& digits = counter.text();
        const std::string expected = "," + digits.substr(0, 3) + "," + digits.substr(3);
        ASSERT_EQ(eight_of<GroupedDigits>(x), as_number(expected.data())) << x;
    }
}

TEST(DigitGroups, EverySevenDigitsAndAPoint) {
    Counter counter(7);
    for (std::uint64_t x = 0; x < 10000000; x += kStride, counter.add(kStride)) {
        char expected[8];
        for (unsigned fraction = 1; fraction <= 7; ++fraction) {
            std::memcpy(expected, counter.text().data(), 7 - fraction);
            expected[7 - fraction] = '.';
            std::memcpy(expected + 8 - fraction, counter.text().data() + 7 - fraction, fraction);
            if (eight_with_point(x, fraction) != as_number(expected)) FAIL() << x << ", " << fraction;
        }
    }
}

std::string grouped(const std::string& digits) {
    std::string text;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0) text += ',';
        text += digits[i];
    }
    return text;
}

// Four digits at every place of a number of 38, through the public functions.
TEST(DigitGroups, EveryFourDigitsAtEveryPlace) {
    const NumericInfo info{0, NUMERIC_ROUND_DOWN};
    for (unsigned group = 0; group < 10000; ++group) {
        for (unsigned place = 0; place <= 33; ++place) {
            const std::string digits = '1' + std::to_string(10000 + group).substr(1) + std::string(place, '0');
            Numeric value{};
            ASSERT_EQ(QV8NumericStr2Num(digits.c_str(), &info, &value, nullptr), NUMERIC_OK);
            char buffer[64];
            ASSERT_EQ(QV8NumericNum2Str(&value, &info, 0, 0, buffer, sizeof buffer), NUMERIC_OK);
            ASSERT_EQ(buffer, digits);
            ASSERT_EQ(QV8NumericNum2Dgstr(&value, &info, 0, 0, buffer, sizeof buffer), NUMERIC_OK);
            ASSERT_EQ(buffer, grouped(digits));
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
