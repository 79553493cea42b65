// SPDX-License-Identifier: MIT
// The three widths of a magnitude, for tests that are written once and run for each of them.
#ifndef QV8NUMERIC_TESTS_WIDTHS_H
#define QV8NUMERIC_TESTS_WIDTHS_H

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "wide_values.h"

namespace qv8numeric_tests {

using Widths = testing::Types<std::uint64_t, qv8numeric::WordPair, ExtendedNumeric>;

struct WidthNames {
    template <class Magnitude>
    static std::string GetName(int) {
        if constexpr (std::is_same_v<Magnitude, std::uint64_t>) return "Word";
        if constexpr (std::is_same_v<Magnitude, qv8numeric::WordPair>) return "Pair";
        if constexpr (std::is_same_v<Magnitude, ExtendedNumeric>) return "FourWords";
    }
};

template <class Magnitude>
inline constexpr unsigned kBits = 8 * sizeof(Magnitude);

// The value modulo what the width holds.
template <class Magnitude>
Magnitude in_width(const Integer& value) {
    if constexpr (std::is_same_v<Magnitude, std::uint64_t>) {
        return word_of(modulo(value, two_to(64)), 0);
    } else if constexpr (std::is_same_v<Magnitude, qv8numeric::WordPair>) {
        return pair(value);
    } else {
        return wide(value);
    }
}

}  // namespace qv8numeric_tests

#endif
