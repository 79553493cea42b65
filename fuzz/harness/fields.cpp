// SPDX-License-Identifier: MIT
#include "fields.h"

#include <algorithm>

namespace qv8numeric_fuzz {
namespace {

struct Payload {
    std::uint64_t low;
    std::uint64_t high;

    Wide wide() const { return Wide(high) * power_of_two(64) + low; }
    unsigned byte(unsigned index) const {
        return static_cast<unsigned>((index < 8 ? low >> (8 * index) : high >> (8 * (index - 8))) & 0xff);
    }
};

// Up to 2^bits - 1, with the highest of its bits set.
Wide of_length(const Wide& value, unsigned bits) {
    return bits == 0 ? Wide(0) : low_bits(value, static_cast<int>(bits - 1)) + power_of_two(bits - 1);
}

// Each limb one of those at which carries, borrows and signs change.
Wide edge_limbs(const Payload& payload) {
    static constexpr std::uint32_t kEdges[] = {0, 1, 0x7fffffff, 0x80000000, 0x80000001, 0xfffffffe, 0xffffffff};
    Wide value = 0;
    for (unsigned i = 0; i < 4; ++i) {
        const unsigned choice = payload.byte(i);
        const bool is_edge = choice % 8 < std::size(kEdges);
        const std::uint32_t limb = is_edge ? kEdges[choice % 8] : static_cast<std::uint32_t>(payload.high >> (8 * i));
        value = value * power_of_two(32) + limb;
    }
    return value;
}

constexpr unsigned kKinds = 32;

Wide special(unsigned kind, const Payload& payload, std::int64_t places) {
    const unsigned first = payload.byte(0);
    const int delta = neighbour(static_cast<std::uint8_t>(payload.byte(1)));
    const Wide multiplier = payload.high >> (payload.byte(2) % 64);
    switch (kind) {
        case 0:
        case 1:
        case 2:
        case 3:
        case 4: return of_length(payload.wide(), first % 128);
        case 5:
        case 6:
        case 7: return of_length(payload.wide(), first % 65);
        case 8:
        case 9: return first % 21;
        case 10: return power_of_two(first % 128) + delta;
        case 11:
        case 12: return power_of_ten(first % 39) + delta;
        case 13: return power_of_ten(first % 39) * payload.byte(2) + delta;
        case 14:
        case 15:
        case 16: return multiplier * power_of_ten(places) + power_of_ten(places) / 2;
        case 17:
        case 18: return multiplier * power_of_ten(places) + power_of_ten(places) / 2 + delta;
        case 19:
        case 20: return multiplier * power_of_ten(places);
        case 21: return multiplier * power_of_ten(places) + delta;
        case 22:
        case 23:
        case 24: return (power_of_two(127) - 1) / power_of_ten(places) + delta;
        case 25: return power_of_two(64) / power_of_ten(places % 20) + delta;
        case 26: return power_of_two(127) - 1 - first % 16;
        case 27: return edge_limbs(payload);
        case 28: return power_of_two(96) + power_of_two(first % 64) * delta;
        case 29: return power_of_two(127) - power_of_ten(places) / 2 + delta;
        case 30: return 0;
        default: return payload.wide();
    }
}

bool is_in_range(const Wide& value) { return value < power_of_two(127) && value > -power_of_two(127); }

std::int32_t clamped(std::int64_t value) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, INT32_MIN, INT32_MAX));
}

// The types' limits, and where sums and differences of scales wrap.
std::int64_t extreme(unsigned choice) {
    static constexpr std::int64_t kExtremes[] = {INT32_MIN, INT32_MAX, INT32_MIN / 2, INT32_MAX / 2, 1000, -1000,
                                                 0,         80};
    return kExtremes[choice % std::size(kExtremes)];
}

}  // namespace

int neighbour(std::uint8_t byte) { return byte % 5 - 2; }

Numeric coefficient(Source& source, std::int64_t places) {
    const unsigned selector = source.byte();
    const Payload payload{source.word64(), source.word64()};
    const unsigned kind = selector % kKinds;
    const bool takes_hint = places != 0 && (selector & 0x60) != 0;
    const std::int64_t hinted = std::min<std::int64_t>(places < 0 ? -places : places, 39);
    if (kind == 30 && payload.byte(0) % 2 == 0) return kNan;
    const std::int64_t dropped = takes_hint ? hinted : payload.byte(3) % 39;
    const Wide value = low_bits(abs(special(kind, payload, dropped)), 127);
    return halves((selector & 0x80) != 0 ? Wide(-value) : value);
}

Numeric replaced(const Numeric& kept, const Wide& value) { return is_in_range(value) ? halves(value) : kept; }

std::int32_t machine_integer(Source& source) {
    const unsigned selector = source.byte();
    const std::uint32_t payload = source.word32();
    const int delta = neighbour(static_cast<std::uint8_t>(payload >> 24));
    std::int64_t value = 0;
    switch (selector % 8) {
        case 0:
        case 1: value = payload; break;
        case 2: value = payload >> payload % 32; break;
        case 3: value = payload % 21; break;
        case 4: value = (std::int64_t{1} << payload % 32) + delta; break;
        case 5: value = static_cast<std::int64_t>(power_of_ten(payload % 10)) + delta; break;
        case 6: value = INT32_MAX - payload % 4; break;
        default: value = payload % 1000;
    }
    if (value > INT32_MAX) value -= std::int64_t{1} << 32;
    return clamped((selector & 0x80) != 0 ? -value : value);
}

std::int64_t machine_integer_64(Source& source) {
    const unsigned selector = source.byte();
    const std::uint64_t payload = source.word64();
    const int delta = neighbour(static_cast<std::uint8_t>(payload >> 56));
    const Wide& ten_to_the = power_of_ten(static_cast<std::int64_t>(payload % 13));
    Wide value = 0;
    switch (selector % 8) {
        case 0: value = payload; break;
        case 1:
        case 2: value = payload >> payload % 64; break;
        case 3: value = payload % 21; break;
        case 4: value = power_of_two(static_cast<std::int64_t>(payload % 64)) + delta; break;
        case 5: value = power_of_ten(static_cast<std::int64_t>(payload % 20)) + delta; break;
        case 6: value = Wide(payload >> 40) * ten_to_the + ten_to_the / 2; break;
        default: value = power_of_two(63) - 1 - payload % 4;
    }
    if ((selector & 0x80) != 0) value = -value;
    if (value < INT64_MIN || value > INT64_MAX) value %= power_of_two(63);
    return static_cast<std::int64_t>(value);
}

std::int32_t scale(Source& source) {
    const unsigned selector = source.byte();
    const std::uint32_t payload = source.word32();
    if (selector < 112) return static_cast<std::int32_t>(payload % 21);
    if (selector < 208) return static_cast<std::int32_t>(payload % 61) - 10;
    if (selector < 240) return static_cast<std::int32_t>(payload % 301) - 150;
    if (selector < 252) return clamped(extreme(payload) + neighbour(static_cast<std::uint8_t>(payload >> 8)));
    return clamped(std::int64_t{payload} + INT32_MIN);
}

std::uint32_t mode(Source& source) {
    static constexpr std::uint32_t kInvalid[] = {7, 8, 0x100, 0x106, 0x80000000, 0x80000006, 0xfffffffe, 0xffffffff};
    const unsigned selector = source.byte();
    return selector < 248 ? selector % 7 : kInvalid[selector % std::size(kInvalid)];
}

NumericInfo descriptor(Source& source) {
    const std::int32_t places = scale(source);
    return {places, mode(source)};
}

void descriptors(Source& source, std::span<NumericInfo> infos) {
    const unsigned group = source.byte();
    const std::int64_t base = extreme(source.byte());
    for (NumericInfo& info : infos) {
        info = descriptor(source);
        if (group < 48) {
            info.scale = infos.front().scale;
        } else if (group < 64) {
            info.scale = clamped(base + info.scale % 128);
        }
    }
}

}  // namespace qv8numeric_fuzz
