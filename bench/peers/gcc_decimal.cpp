// SPDX-License-Identifier: MIT
// GCC's _Decimal128. Plain C has no rounding to a scale for it, no mode and no status.
#include "gcc_decimal.h"

#include "../contender.h"
#include "bid.h"
#include "peers.h"

namespace qv8numeric_bench {
namespace {

struct GccDecimal128 : BidTraits {
    static constexpr const char* kName = "GCC _Decimal128";
    static constexpr Manners kManners = Manners::kCommon;

    static const Kernels<Bid>& kernels() {
        static const Kernels<Bid> kernels = [] {
            Kernels<Bid> k{};
            k.add = gcc_decimal_add;
            k.compare = gcc_decimal_compare;
            k.rescaling_compare = gcc_decimal_rescaling_compare;
            k.multiply_by_integer = gcc_decimal_multiply_by_integer;
            k.to_double = gcc_decimal_to_double;
            k.from_integer = gcc_decimal_from_integer;
            k.to_integer = gcc_decimal_to_integer;
            return k;
        }();
        return kernels;
    }

    static std::optional<Part> part_in(const Workload& w, int digits) {
        if (digits > kBidDigits - 6) return std::nullopt;
        if (w.operation == Operation::kCompare || w.operation == Operation::kRescalingCompare) return whole_job();
        return part_without("no mode, no status");
    }
};

}  // namespace

std::unique_ptr<Contender> gcc_decimal_peer() { return std::make_unique<Peer<GccDecimal128>>(); }

}  // namespace qv8numeric_bench
