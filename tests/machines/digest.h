// SPDX-License-Identifier: MIT
// A checksum of numbers as numbers, so that it is the same whatever the byte order and the width of a word.
#ifndef QV8NUMERIC_TESTS_MACHINES_DIGEST_H
#define QV8NUMERIC_TESTS_MACHINES_DIGEST_H

#include <cstddef>
#include <cstdint>

#include "qv8numeric.h"
#include "short_roads/random.h"

namespace machines {

class Digest {
  public:
    // Two sequences that differ in one word never have the same checksum: each step can be taken back.
    SHORT_ROADS_MAY_WRAP void add(std::uint64_t word) {
        state_ = (state_ ^ word) * 0x9e3779b97f4a7c15;
        state_ ^= state_ >> 29;
    }

    void add_signed(std::int64_t word) { add(static_cast<std::uint64_t>(word)); }

    void add(const Numeric& value) {
        add(value.low);
        add_signed(value.high);
    }

    void add(const NumericInfo& info) {
        add_signed(info.scale);
        add(info.rounding_mode);
    }

    void add(const char* bytes, std::size_t count) {
        add(count);
        for (std::size_t i = 0; i < count; ++i) add(static_cast<unsigned char>(bytes[i]));
    }

    std::uint64_t value() const { return state_; }

  private:
    std::uint64_t state_ = 0x243f6a8885a308d3;
};

}  // namespace machines

#endif
