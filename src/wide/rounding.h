// SPDX-License-Identifier: MIT
// The seven modes and the one decision: is the magnitude to be increased by one unit in its last place?
#ifndef QV8NUMERIC_WIDE_ROUNDING_H
#define QV8NUMERIC_WIDE_ROUNDING_H

#include <array>
#include <cstddef>

#include "wide/dropped.h"
#include "wide/extended_numeric.h"
#include "wide/scaling.h"

namespace qv8numeric {

constexpr bool is_rounding_mode(uint32_t mode) { return mode <= NUMERIC_ROUND_HALF_EVEN; }

// Operations on three descriptors refuse a bad mode in any of them, though only the result's is used.
constexpr bool are_rounding_modes(const NumericInfo& a, const NumericInfo& b, const NumericInfo& result) {
    return is_rounding_mode(a.rounding_mode) && is_rounding_mode(b.rounding_mode) &&
           is_rounding_mode(result.rounding_mode);
}

// The kept magnitudes that a mode increases, as a set of four: bit 2 * negative + odd.
enum class Increased : unsigned {
    never = 0b0000,
    positive = 0b0011,
    odd = 0b1010,
    negative = 0b1100,
    always = 0b1111,
};

// For each mode four sets, the one for a fraction at bit 4 * fraction.
using DecisionTable = std::array<std::uint16_t, 7>;

inline constexpr auto increased_by_mode = []() {
    using enum Increased;
    constexpr std::array<std::array<Increased, 4>, 7> modes{{
        //           nothing  below_half  exactly_half  above_half
        /* UP */ {{never, always, always, always}},
        /* DOWN */ {{never, never, never, never}},
        /* CEILING */ {{never, positive, positive, positive}},
        /* FLOOR */ {{never, negative, negative, negative}},
        /* HALF_UP */ {{never, never, always, always}},
        /* HALF_DOWN */ {{never, never, never, always}},
        /* HALF_EVEN */ {{never, never, odd, always}},
    }};
    DecisionTable packed{};
    for (std::size_t mode = 0; mode < modes.size(); ++mode) {
        unsigned sets = 0;
        for (std::size_t fraction = 4; fraction-- > 0;) sets = sets << 4 | static_cast<unsigned>(modes[mode][fraction]);
        packed[mode] = static_cast<std::uint16_t>(sets);
    }
    return packed;
}();

constexpr bool decision(const DecisionTable& table, uint32_t mode, Fraction dropped, bool negative, bool odd) {
    const unsigned position = static_cast<unsigned>(dropped) * 4 + one_if(negative) * 2 + one_if(odd);
    return (table[mode] >> position & 1) != 0;
}

// The decision, for a valid mode. The sign is that of the value, which a magnitude of zero may have too.
constexpr bool rounds_away(uint32_t mode, Fraction dropped, bool negative, bool odd) {
    return decision(increased_by_mode, mode, dropped, negative, odd);
}

// The same decision seen from the integer below a value, which lies above it by the fraction. For a negative value that
// integer is the one further from zero: the magnitude nearer to zero has the other parity and the fraction's
// complement, and the value is raised to it unless that is rounded away.
inline constexpr auto raised_by_mode = []() {
    DecisionTable table{};
    for (uint32_t mode = 0; mode < table.size(); ++mode) {
        for (const Fraction above : {Fraction::below_half, Fraction::exactly_half, Fraction::above_half}) {
            for (const bool odd : {false, true}) {
                const unsigned position = static_cast<unsigned>(above) * 4 + one_if(odd);
                const bool raised = rounds_away(mode, above, false, odd);
                const bool negative_raised = !rounds_away(mode, complement_if(true, above), true, !odd);
                table[mode] = static_cast<std::uint16_t>(table[mode] | (one_if(raised) << position) |
                                                         (one_if(negative_raised) << (position + 2)));
            }
        }
    }
    return table;
}();

constexpr bool rounds_up(uint32_t mode, Fraction above, bool negative, bool odd) {
    return decision(raised_by_mode, mode, above, negative, odd);
}

// Rounds a magnitude from what was dropped below it. NUMERIC_INEXACT when that was anything at all, increased or not;
// NUMERIC_INVALID_ARGUMENT for an invalid mode, with the magnitude untouched.
template <class Magnitude>
constexpr NumericStatus round_magnitude(Magnitude& magnitude, Fraction dropped, bool negative, uint32_t mode) {
    if (!is_rounding_mode(mode)) return NUMERIC_INVALID_ARGUMENT;
    magnitude = increased_by(magnitude, rounds_away(mode, dropped, negative, is_odd(magnitude)));
    return dropped == Fraction::nothing ? NUMERIC_OK : NUMERIC_INEXACT;
}

// Moves a magnitude by a number of places and rounds it there, once. overflow collects what left the top.
template <class Magnitude>
constexpr NumericStatus scale_and_round(Magnitude& magnitude, bool negative, int64_t places, uint32_t mode,
                                        unsigned& overflow) {
    const Fraction dropped = scale_by(magnitude, places, overflow);
    return round_magnitude(magnitude, dropped, negative, mode);
}

}  // namespace qv8numeric

#endif
