// SPDX-License-Identifier: MIT
// {fmt}, its format compiled: the integers before and behind the point.
#include <fmt/compile.h>

#include "../coefficients.h"
#include "../contender.h"
#include "peers.h"
#include "split.h"

namespace qv8numeric_bench {
namespace {

constexpr std::size_t kLongest = 48;  // a sign, 39 digits, a point and the NUL

NumericStatus to_text(const Numeric* value, const NumericInfo* info, std::int32_t, std::int32_t, char* buffer,
                      std::size_t buffer_size) {
    const Split parts = split(*value, info->scale);
    const char* const sign = parts.negative ? "-" : "";
    if (buffer_size < kLongest) return NUMERIC_BUFFER_TOO_SMALL;
    char* const end =
        int128::is_word(parts.whole)
            ? fmt::format_to(buffer, FMT_COMPILE("{}{}.{:02}"), sign, int128::low(parts.whole), parts.fraction)
            : fmt::format_to(buffer, FMT_COMPILE("{}{}.{:02}"), sign, parts.whole, parts.fraction);
    *end = '\0';
    return NUMERIC_OK;
}

struct Fmt : CoefficientTraits {
    static constexpr const char* kName = "{fmt}";
    static constexpr Manners kManners = Manners::kCommon;

    static const Kernels<Numeric>& kernels() {
        static const Kernels<Numeric> kernels = [] {
            Kernels<Numeric> k{};
            k.to_text = to_text;
            return k;
        }();
        return kernels;
    }

    static std::optional<Part> part_in(const Workload& w, int) {
        if (w.a.scale != 2 || w.places != 2) return std::nullopt;
        return part_without("scale 2 alone, no NaN");
    }
};

}  // namespace

std::unique_ptr<Contender> fmt_peer() { return std::make_unique<Peer<Fmt>>(); }

}  // namespace qv8numeric_bench
