// SPDX-License-Identifier: MIT
// The bytes of an input, read from the front. Behind their end there are zeros, so that every input is complete.
#ifndef QV8NUMERIC_FUZZ_SOURCE_H
#define QV8NUMERIC_FUZZ_SOURCE_H

#include <cstddef>
#include <cstdint>
#include <span>

namespace qv8numeric_fuzz {

class Source {
  public:
    explicit Source(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    bool is_empty() const { return position_ == bytes_.size(); }
    std::size_t position() const { return position_; }
    std::span<const std::uint8_t> since(std::size_t position) const {
        return bytes_.subspan(position, position_ - position);
    }

    std::uint8_t byte() { return is_empty() ? std::uint8_t{0} : bytes_[position_++]; }
    std::uint16_t word16() { return static_cast<std::uint16_t>(little_endian(2)); }
    std::uint32_t word32() { return static_cast<std::uint32_t>(little_endian(4)); }
    std::uint64_t word64() { return little_endian(8); }

  private:
    std::uint64_t little_endian(unsigned bytes) {
        std::uint64_t value = 0;
        if (bytes_.size() - position_ < bytes) {
            for (unsigned i = 0; i < bytes; ++i) value |= std::uint64_t{byte()} << (8 * i);
            return value;
        }
        for (unsigned i = 0; i < bytes; ++i) value |= std::uint64_t{bytes_[position_ + i]} << (8 * i);
        position_ += bytes;
        return value;
    }

    std::span<const std::uint8_t> bytes_;
    std::size_t position_ = 0;
};

}  // namespace qv8numeric_fuzz

#endif
