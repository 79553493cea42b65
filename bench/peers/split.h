// SPDX-License-Identifier: MIT
// For peers that know integers alone: a coefficient as the integers before and behind the point.
#ifndef QV8NUMERIC_BENCH_PEERS_SPLIT_H
#define QV8NUMERIC_BENCH_PEERS_SPLIT_H

#include "int128.h"

namespace qv8numeric_bench {

struct Split {
    bool negative;
    int128::U128 whole;
    std::uint64_t fraction;
};

// At scales 0 to 19.
inline Split split(const Numeric& value, int scale) {
    const int128::I128 number = int128::load(&value);
    const std::uint64_t unit = int128::low(int128::kPower[static_cast<std::size_t>(scale)]);
    Split parts{number < 0, 0, 0};
    parts.whole = int128::divide_by_word<int128::Dividend::kShort>(int128::magnitude(number), unit, &parts.fraction);
    return parts;
}

inline Numeric joined(const Split& parts, int scale) {
    Numeric value;
    const int128::U128 magnitude = parts.whole * int128::kPower[static_cast<std::size_t>(scale)] + parts.fraction;
    int128::store(&value, int128::with_sign(magnitude, parts.negative));
    return value;
}

}  // namespace qv8numeric_bench

#endif
