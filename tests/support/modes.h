// SPDX-License-Identifier: MIT
// Short names of the rounding modes, and lists of one value per mode, so that a table row stays one line.
#ifndef QV8NUMERIC_TESTS_MODES_H
#define QV8NUMERIC_TESTS_MODES_H

#include <string>

#include "values.h"

namespace qv8numeric_tests {

inline constexpr std::uint32_t kUp = NUMERIC_ROUND_UP;
inline constexpr std::uint32_t kDown = NUMERIC_ROUND_DOWN;
inline constexpr std::uint32_t kCeiling = NUMERIC_ROUND_CEILING;
inline constexpr std::uint32_t kFloor = NUMERIC_ROUND_FLOOR;
inline constexpr std::uint32_t kHalfUp = NUMERIC_ROUND_HALF_UP;
inline constexpr std::uint32_t kHalfDown = NUMERIC_ROUND_HALF_DOWN;
inline constexpr std::uint32_t kHalfEven = NUMERIC_ROUND_HALF_EVEN;

inline constexpr std::uint32_t kInvalidModes[] = {7, 9, UINT32_MAX};

// The word that belongs to `mode` in a list of seven, in the order of kModes: "3 2 3 2 3 2 2". Throws
// std::invalid_argument unless there are seven.
std::string in_mode(const std::string& list, std::uint32_t mode);

}  // namespace qv8numeric_tests

#endif
