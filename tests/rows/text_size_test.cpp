// SPDX-License-Identifier: MIT
// The size macros: no text of the same shift and output scale is longer, so a buffer of that size never fails.
#include <gtest/gtest.h>

#include <algorithm>
#include <type_traits>
#include <vector>

#include "modes.h"
#include "values.h"

namespace qv8numeric_tests {
namespace {

// A size is an array bound of type size_t, whatever expressions the arguments are.
static_assert(std::is_same_v<decltype(QV8NUMERIC_TEXT_SIZE(0, 0)), std::size_t>);
static_assert(std::is_same_v<decltype(QV8NUMERIC_GROUPED_TEXT_SIZE(0, 0)), std::size_t>);
[[maybe_unused]] char plain_array[QV8NUMERIC_TEXT_SIZE(0, 2)];
[[maybe_unused]] char grouped_array[QV8NUMERIC_GROUPED_TEXT_SIZE(0, 2)];
constexpr bool kChoose = true;
static_assert(QV8NUMERIC_TEXT_SIZE(kChoose ? -3 : 1, 2 - 1) == QV8NUMERIC_TEXT_SIZE(-3, 1));
static_assert(QV8NUMERIC_TEXT_SIZE(7 & 3, kChoose ? 9 : 1) == QV8NUMERIC_TEXT_SIZE(3, 9));
static_assert(QV8NUMERIC_GROUPED_TEXT_SIZE(kChoose ? -3 : 1, 2 - 1) == QV8NUMERIC_GROUPED_TEXT_SIZE(-3, 1));
static_assert(QV8NUMERIC_GROUPED_TEXT_SIZE(7 & 3, kChoose ? 9 : 1) == QV8NUMERIC_GROUPED_TEXT_SIZE(3, 9));

struct Form {
    const char* name;
    NumericStatus (*formatter)(const Numeric*, const NumericInfo*, std::int32_t, std::int32_t, char*, std::size_t);
    bool grouped;

    std::size_t size(std::int32_t shift, std::int32_t output_scale) const {
        return grouped ? QV8NUMERIC_GROUPED_TEXT_SIZE(shift, output_scale) : QV8NUMERIC_TEXT_SIZE(shift, output_scale);
    }
};
constexpr Form kForms[] = {{"plain", QV8NumericNum2Str, false}, {"grouped", QV8NumericNum2Dgstr, true}};

struct Value {
    const char* coefficient;
    std::int32_t below_output_scale;  // its own scale, counted down from the output scale
};

// Written with all their digits, and as the 39 digits that stand for an overflow.
constexpr Value kValues[] = {{"0", 0},     {"1", 0},      {"-1", 0},    {"2^127-1", 0}, {"-2^127+1", 0},
                             {"10^38", 0}, {"-10^38", 0}, {"-2^64", 0}, {"2^127-1", 1}, {"-2^127+1", 1}};

TEST(TextSize, IsEnoughForEveryShiftAndScale) {
    std::vector<char> buffer;
    for (const Form& form : kForms) {
        for (const Value& value : kValues) {
            const Numeric coefficient = num(value.coefficient);
            for (std::int32_t shift = -60; shift <= 60; ++shift) {
                for (std::int32_t output_scale = -60; output_scale <= 60; ++output_scale) {
                    const NumericInfo info = {output_scale - value.below_output_scale, kHalfEven};
                    buffer.resize(form.size(shift, output_scale));
                    const NumericStatus status =
                        form.formatter(&coefficient, &info, shift, output_scale, buffer.data(), buffer.size());
                    ASSERT_GE(status, NUMERIC_OK) << form.name << ", " << value.coefficient << ", shift " << shift
                                                  << ", output scale " << output_scale;
                }
            }
        }
    }
}

// The longest text is a negative overflow: 39 digits, a sign, and the places and zeros that the arguments demand.
std::uint64_t longest_text(bool grouped, std::int64_t shift, std::int64_t output_scale) {
    constexpr std::int64_t kDigits = 39;
    const std::int64_t places = std::max<std::int64_t>(output_scale, 0) - shift;
    const std::int64_t integer = std::max<std::int64_t>(kDigits - places, 1);
    const std::int64_t commas = grouped ? (integer - 1) / 3 : 0;
    const std::int64_t fraction = places > 0 ? 1 + places : 0;
    const auto suffix = shift == 0 ? 0 : 2 + static_cast<std::int64_t>(std::to_string(std::abs(shift)).size());
    return static_cast<std::uint64_t>(1 + integer + commas + fraction + suffix);
}

TEST(TextSize, ReachesTheLongestTextAtTheExtremes) {
    constexpr std::int32_t kEdges[] = {INT32_MIN,   INT32_MIN + 1,
                                       -1000000000, -1000000,
                                       -10000,      -9999,
                                       -1000,       -100,
                                       -40,         -39,
                                       -10,         -1,
                                       0,           1,
                                       9,           10,
                                       39,          40,
                                       99,          100,
                                       1000,        9999,
                                       10000,       100000000,
                                       1000000000,  INT32_MAX - 1,
                                       INT32_MAX};
    for (const Form& form : kForms) {
        for (const std::int32_t shift : kEdges) {
            for (const std::int32_t output_scale : kEdges) {
                const std::uint64_t needed = longest_text(form.grouped, shift, output_scale) + 1;
                if (needed > SIZE_MAX) continue;  // no memory of this machine holds that text
                EXPECT_GE(form.size(shift, output_scale), needed)
                    << form.name << ", shift " << shift << ", output scale " << output_scale;
            }
        }
    }
}

TEST(TextSize, IsEnoughAtTheExtremesThatFitIntoMemory) {
    constexpr std::size_t kLargestBuffer = std::size_t{4} << 20;
    struct Edge {
        std::int32_t shift;
        std::int32_t output_scale;
    };
    constexpr Edge kEdges[] = {{0, INT32_MIN},     {1, INT32_MIN},       {-1, INT32_MIN},       {10000, 0},
                               {-10000, 0},        {1000000, 0},         {-1000000, 0},         {0, 1000000},
                               {1000000, 1000000}, {1000000, INT32_MIN}, {-1000000, INT32_MIN}, {500000, 1000000}};
    for (const Form& form : kForms) {
        for (const Edge& edge : kEdges) {
            const std::size_t size = form.size(edge.shift, edge.output_scale);
            ASSERT_LE(size, kLargestBuffer)
                << form.name << ", shift " << edge.shift << ", output scale " << edge.output_scale;
            std::vector<char> buffer(size);
            for (const Value& value : kValues) {
                const Numeric coefficient = num(value.coefficient);
                const std::int64_t scale = std::int64_t{edge.output_scale} - value.below_output_scale;
                const NumericInfo info = {static_cast<std::int32_t>(std::max<std::int64_t>(scale, INT32_MIN)),
                                          kHalfEven};
                EXPECT_GE(form.formatter(&coefficient, &info, edge.shift, edge.output_scale, buffer.data(), size),
                          NUMERIC_OK)
                    << form.name << ", " << value.coefficient << ", shift " << edge.shift << ", output scale "
                    << edge.output_scale;
            }
        }
    }
}

TEST(TextSize, NanFits) {
    for (const Form& form : kForms) {
        for (const std::int32_t output_scale : {INT32_MIN, -1, 0, 1}) {
            EXPECT_GE(form.size(0, output_scale), 4U) << form.name << ", output scale " << output_scale;
        }
    }
}

}  // namespace
}  // namespace qv8numeric_tests
