// SPDX-License-Identifier: MIT
// Decimals of 34 digits in the binary encoding of IEEE 754: the values of two peers, made and read by their bits.
#ifndef QV8NUMERIC_BENCH_PEERS_BID_H
#define QV8NUMERIC_BENCH_PEERS_BID_H

#include "../answers.h"
#include "int128.h"

namespace qv8numeric_bench {

struct alignas(16) Bid {
    std::uint64_t low;
    std::uint64_t high;
};

inline constexpr int kBidDigits = 34;
inline constexpr int kBidBias = 6176;
inline constexpr int kBidExponentShift = 49;  // in the upper half, below the sign

inline Bid bid_of(std::int64_t high, std::uint64_t low, int exponent) {
    const Numeric number{low, high};
    const int128::U128 magnitude = int128::magnitude(int128::load(&number));
    const std::uint64_t sign = high < 0 ? std::uint64_t{1} << 63 : 0;
    const auto field = static_cast<std::uint64_t>(exponent + kBidBias) << kBidExponentShift;
    return {int128::low(magnitude), int128::high(magnitude) | field | sign};
}

struct BidTraits {
    using Value = Bid;

    static Value value(const Numeric& number, int scale) { return bid_of(number.high, number.low, -scale); }

    // At another scale the same number is written with more or fewer zeros.
    static std::string text(const Value& value, int scale) {
        constexpr std::uint64_t below_exponent = (std::uint64_t{1} << kBidExponentShift) - 1;
        if ((value.high >> 61 & 3) == 3) return "NaN";
        const int128::U128 magnitude = static_cast<int128::U128>(value.high & below_exponent) << 64 | value.low;
        int exponent = static_cast<int>(value.high >> kBidExponentShift & 0x3fff) - kBidBias;
        int128::U128 coefficient = magnitude;
        for (; exponent > -scale && magnitude != 0; --exponent) coefficient *= 10;
        for (; exponent < -scale && coefficient % 10 == 0 && magnitude != 0; ++exponent) coefficient /= 10;
        if (exponent != -scale && magnitude != 0) return "not at this scale";
        Numeric number;
        int128::store(&number, int128::with_sign(coefficient, value.high >> 63 != 0));
        return text_of(number);
    }

    static std::uint64_t word(const Value& value) { return value.low ^ value.high; }
    static void entangle(Value& value, std::uint64_t zero) { value.low ^= zero; }
};

}  // namespace qv8numeric_bench

#endif
