// SPDX-License-Identifier: MIT
// What the exported formatters do not show: their table of digits, and modes that they never pass.
#include "numconv/format.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "numconv/conv_table.h"
#include "values.h"

namespace qv8numeric_tests {
namespace {

using qv8numeric::conv_table;
using qv8numeric::numeric_num2str_internal;

TEST(ConvTable, HoldsTheDigitsOfEveryNumberUnitsLowest) {
    ASSERT_EQ(conv_table.size(), 10000U);
    std::size_t entry = 0;
    for (unsigned thousands = 0; thousands < 10; ++thousands) {
        for (unsigned hundreds = 0; hundreds < 10; ++hundreds) {
            for (unsigned tens = 0; tens < 10; ++tens) {
                for (unsigned units = 0; units < 10; ++units) {
                    const unsigned digits[] = {units, tens, hundreds, thousands};
                    for (unsigned i = 0; i < 4; ++i) {
                        ASSERT_EQ(conv_table[entry] >> 8 * i & 0xff, digits[i]) << entry << ", digit " << i;
                    }
                    ++entry;
                }
            }
        }
    }
}

struct ModeRow {
    const char* name;
    std::int32_t mode;
    const char* text;
};

constexpr ModeRow kModeRows[] = {
    {"grouped", 1, "-1,234,567.25"},          {"plain", 2, "-1234567.25"},
    {"no mode, below", 0, "-1234567.25"},     {"no mode, above", 3, "-1234567.25"},
    {"all bits", -1, "-1234567.25"},          {"the bit of grouped and another one", 257, "-1234567.25"},
    {"the lowest", INT32_MIN, "-1234567.25"}, {"the highest", INT32_MAX, "-1234567.25"},
};

TEST(Format, OnlyOneModeGroups) {
    const Numeric value = num("-123456725");
    const NumericInfo info{2, NUMERIC_ROUND_DOWN};
    for (const ModeRow& row : kModeRows) {
        SCOPED_TRACE(row.name);
        std::array<char, QV8NUMERIC_GROUPED_TEXT_SIZE(0, 2)> buffer;
        buffer.fill('#');
        EXPECT_EQ(numeric_num2str_internal(&value, &info, 0, 2, buffer.data(), buffer.size(), row.mode), NUMERIC_OK);
        EXPECT_EQ(std::string(buffer.data()), row.text);
    }
}

}  // namespace
}  // namespace qv8numeric_tests
