// SPDX-License-Identifier: MIT
// The standard library's <charconv>: texts by the integers before and behind the point, doubles by way of their texts.
#include <charconv>
#include <cstring>

#include "../coefficients.h"
#include "../contender.h"
#include "peers.h"
#include "split.h"

namespace qv8numeric_bench {
namespace {

constexpr std::size_t kTextSize = 64;

// Writes at the scale of info, 0 to 19, and returns the end, or null.
char* write(const Numeric& value, int scale, char* at, char* end) {
    const Split parts = split(value, scale);
    if (parts.negative) *at++ = '-';
    const auto whole = int128::is_word(parts.whole) ? std::to_chars(at, end, int128::low(parts.whole))
                                                    : std::to_chars(at, end, parts.whole);
    if (whole.ec != std::errc{} || end - whole.ptr <= scale + 1) return nullptr;
    at = whole.ptr;
    if (scale == 0) return at;
    *at++ = '.';
    char digits[kTextSize];
    const auto count = std::to_chars(digits, digits + kTextSize, parts.fraction).ptr - digits;
    std::memset(at, '0', static_cast<std::size_t>(scale - count));
    std::memcpy(at + scale - count, digits, static_cast<std::size_t>(count));
    return at + scale;
}

// Reads exactly `scale` digits behind the point, and no exponent. Returns the end, or null.
const char* read(const char* at, const char* end, int scale, Numeric* result) {
    Split parts{*at == '-', 0, 0};
    if (parts.negative) ++at;
    const auto whole = std::from_chars(at, end, parts.whole);
    if (whole.ec != std::errc{}) return nullptr;
    at = whole.ptr;
    if (scale > 0) {
        if (at == end || *at != '.') return nullptr;
        const auto fraction = std::from_chars(at + 1, end, parts.fraction);
        if (fraction.ec != std::errc{} || fraction.ptr - at - 1 != scale) return nullptr;
        at = fraction.ptr;
    }
    *result = joined(parts, scale);
    return at;
}

NumericStatus to_text(const Numeric* value, const NumericInfo* info, std::int32_t, std::int32_t, char* buffer,
                      std::size_t buffer_size) {
    char* const end = write(*value, info->scale, buffer, buffer + buffer_size - 1);
    if (!end) return NUMERIC_BUFFER_TOO_SMALL;
    *end = '\0';
    return NUMERIC_OK;
}

NumericStatus from_text(const char* text, const NumericInfo* info, Numeric* result, char** end) {
    const char* const behind = read(text, text + std::strlen(text), info->scale, result);
    if (!behind) return NUMERIC_SYNTAX_ERROR;
    *end = const_cast<char*>(behind);
    return NUMERIC_OK;
}

NumericStatus to_double(const Numeric* in, const NumericInfo* info, double* out) {
    char text[kTextSize];
    const char* const end = write(*in, info->scale, text, text + sizeof text);
    return end && std::from_chars(text, end, *out).ec == std::errc{} ? NUMERIC_OK : NUMERIC_OVERFLOW;
}

NumericStatus from_double(const NumericInfo* info, Numeric* out, double value) {
    char text[kTextSize];
    const auto written = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, info->scale);
    return written.ec == std::errc{} && read(text, written.ptr, info->scale, out) ? NUMERIC_OK : NUMERIC_OVERFLOW;
}

bool is_split(int scale) { return 0 <= scale && scale <= int128::kWordDigits; }

struct Charconv : CoefficientTraits {
    static constexpr const char* kName = "<charconv>";
    static constexpr Manners kManners = Manners::kCommon;

    static const Kernels<Numeric>& kernels() {
        static const Kernels<Numeric> kernels = [] {
            Kernels<Numeric> k{};
            k.to_text = to_text;
            k.from_text = from_text;
            k.to_double = to_double;
            k.from_double = from_double;
            return k;
        }();
        return kernels;
    }

    static std::optional<Part> part_in(const Workload& w, int digits) {
        switch (w.operation) {
            case Operation::kFromDouble:
            case Operation::kToDouble:
                if (deciding_mode(w) != NUMERIC_ROUND_HALF_EVEN || !is_split(w.a.scale) || !is_split(w.result.scale)) {
                    return std::nullopt;
                }
                return part_without("half-even alone, no status");
            case Operation::kToText:
                if (w.places != w.a.scale || !is_split(w.a.scale)) return std::nullopt;
                return part_without("no rounding, no NaN");
            case Operation::kFromText:
                if (w.operands != std::to_string(digits) + " digits") return std::nullopt;
                return part_without("no rounding, no exponent");
            default: return std::nullopt;
        }
    }
};

}  // namespace

std::unique_ptr<Contender> charconv_peer() { return std::make_unique<Peer<Charconv>>(); }

}  // namespace qv8numeric_bench
