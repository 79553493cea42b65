// SPDX-License-Identifier: MIT
// The hardest places to round: halfway between two neighbours, and one unit of the source to either side of it, at
// every distance a coefficient allows. What each mode answers is written out, not computed.
#ifndef QV8NUMERIC_TESTS_TIES_H
#define QV8NUMERIC_TESTS_TIES_H

#include <ostream>

#include "values.h"

namespace qv8numeric_tests {

struct Tie {
    const char* name;
    int kept;              // the digit that stays, 0 or 1
    int beside;            // units away from the half
    const char* positive;  // per mode, in the order of kModes: '+' when the kept digit grows by one
    const char* negative;  // the same for the negated value
};

inline constexpr Tie kTies[] = {
    {"just below half of 1", 0, -1, "+.+....", "+..+..."}, {"exactly half of 1", 0, 0, "+.+.+..", "+..++.."},
    {"just above half of 1", 0, 1, "+.+.+++", "+..++++"},  {"just below 1 and a half", 1, -1, "+.+....", "+..+..."},
    {"exactly 1 and a half", 1, 0, "+.+.+.+", "+..++.+"},  {"just above 1 and a half", 1, 1, "+.+.+++", "+..++++"},
};

// The longest distance at which 1 and a half, in units of 10^distance, is still a coefficient.
inline constexpr int kLongestTie = 38;

struct TieCase {
    const Tie& tie;
    int distance;  // decimal places that go
    bool negative;
    std::uint32_t mode;

    Numeric value() const;  // the tie in units of 10^-distance
    int rounded() const;    // what is left of it, with its sign; the status is NUMERIC_INEXACT in every case
};
std::ostream& operator<<(std::ostream& out, const TieCase& item);

template <typename Check>
void for_every_tie(Check check) {
    for (const Tie& tie : kTies) {
        for (int distance = 1; distance <= kLongestTie; ++distance) {
            for (const bool negative : {false, true}) {
                for (const std::uint32_t mode : kModes) check(TieCase{tie, distance, negative, mode});
            }
        }
    }
}

}  // namespace qv8numeric_tests

#endif
