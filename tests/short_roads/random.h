// SPDX-License-Identifier: MIT
// Random numbers that follow from a seed and a number alone, so that any case can be drawn again by itself. No two are
// drawn in one expression that leaves their order to the compiler.
#ifndef QV8NUMERIC_TESTS_SHORT_ROADS_RANDOM_H
#define QV8NUMERIC_TESTS_SHORT_ROADS_RANDOM_H

#include <cstddef>
#include <cstdint>

namespace short_roads {

#if defined(__clang__)
#  define SHORT_ROADS_MAY_WRAP __attribute__((no_sanitize("unsigned-integer-overflow")))
#else
#  define SHORT_ROADS_MAY_WRAP
#endif

// SplitMix64 (Steele, Lea and Flood 2014).
class Random {
  public:
    SHORT_ROADS_MAY_WRAP Random(std::uint64_t seed, std::uint64_t number) : state_(mixed(mixed(seed) + number)) {}

    SHORT_ROADS_MAY_WRAP std::uint64_t bits() { return mixed(state_ += 0x9e3779b97f4a7c15); }

    // Below n, n > 0. The small bias does no harm here.
    std::uint64_t below(std::uint64_t n) { return bits() % n; }

    // first .. last, both included.
    std::int64_t between(std::int64_t first, std::int64_t last) {
        return first + static_cast<std::int64_t>(below(static_cast<std::uint64_t>(last - first) + 1));
    }

    int small(int first, int last) { return static_cast<int>(between(first, last)); }

    bool percent(unsigned share) { return below(100) < share; }

    template <typename T, std::size_t n>
    T pick(const T (&list)[n]) {
        return list[below(n)];
    }

  private:
    SHORT_ROADS_MAY_WRAP static std::uint64_t mixed(std::uint64_t x) {
        x = (x ^ x >> 30) * 0xbf58476d1ce4e5b9;
        x = (x ^ x >> 27) * 0x94d049bb133111eb;
        return x ^ x >> 31;
    }

    std::uint64_t state_;
};

}  // namespace short_roads

#endif
