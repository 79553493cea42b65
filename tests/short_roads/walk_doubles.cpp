// SPDX-License-Identifier: MIT
#include <bit>
#include <cstdint>

#include "operands.h"
#include "reference/rounding.h"
#include "reference/scaling.h"
#include "walk.h"

namespace short_roads {
namespace {

void walk_from_double(const Visit& visit) {
    static constexpr std::uint64_t kFractions[] = {0, 1, 0x8000000000000, 0x5555555555555, 0xfffffffffffff};
    static constexpr std::int32_t kScales[] = {-300, -60, -30, -12, -3, -1, 0,  1,  2,  10, 11,
                                               12,   13,  24,  27,  28, 36, 48, 72, 73, 90, 330};
    std::uint32_t mode = 0;
    for (std::uint64_t exponent = 0; exponent <= 2047; ++exponent) {
        for (const std::uint64_t fraction : kFractions) {
            for (const std::int32_t scale : kScales) {
                for (const std::uint64_t sign : {std::uint64_t{0}, std::uint64_t{1} << 63}) {
                    mode = (mode + 1) % 7;
                    Call call;
                    call.infos[0] = {scale, mode};
                    call.real = std::bit_cast<double>(sign | exponent << 52 | fraction);
                    visit(operation_named("Dbl2Num"), call);
                }
            }
        }
    }
}

// The coefficient nearest to significand * 2^-shift * 10^scale, a double of 53 bits or halfway between two of them: the
// bits behind those that are kept are then all zeros or all ones, as far as 126 bits go.
Limbs near_double(std::uint64_t significand, int scale, std::int64_t delta) {
    Limbs x = reference::from_word(significand);
    reference::scale_up(x, scale);
    const int excess = reference::bit_length(x) - 126;
    if (excess > 0) reference::shift_right(x, excess);
    nudge(x, delta);
    return x;
}

void walk_to_double(const Visit& visit) {
    static constexpr std::uint64_t kSignificands[] = {0x20000000000000,
                                                      0x20000000000001,
                                                      0x20000000000002,
                                                      0x20000000000003,
                                                      0x2aaaaaaaaaaaab,
                                                      0x3ffffffffffffd,
                                                      0x3ffffffffffffe,
                                                      0x3fffffffffffff,
                                                      1,
                                                      3};
    for (int scale = -90; scale <= 90; ++scale) {
        for (const std::uint64_t significand : kSignificands) {
            for (const std::int64_t delta : {-1, 0, 1}) {
                const Limbs x = near_double(significand, scale < 0 || scale > 60 ? 0 : scale, delta);
                for (std::uint32_t mode = 0; mode <= 7; ++mode) {
                    for (const bool negative : {false, true}) {
                        Call call;
                        call.infos[0] = {scale, mode};
                        call.operands[0] = reference::signed_numeric(x, negative);
                        visit(operation_named("Num2Dbl"), call);
                    }
                }
            }
        }
    }
}

}  // namespace

void walk_doubles(const Visit& visit) {
    walk_from_double(visit);
    walk_to_double(visit);
}

}  // namespace short_roads
