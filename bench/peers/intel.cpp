// SPDX-License-Identifier: MIT
// Intel's decimal floating-point library: NaN, a range, five of the seven modes as an argument and a status of flags.
#define DECIMAL_CALL_BY_REFERENCE 0
#define DECIMAL_GLOBAL_ROUNDING 0
#define DECIMAL_GLOBAL_EXCEPTION_FLAGS 0
#include <bid_conf.h>
#include <bid_functions.h>

#include <bit>

#include "../contender.h"
#include "bid.h"
#include "peers.h"

namespace qv8numeric_bench {
namespace {

using Info = NumericInfo;

BID_UINT128 in(const Bid& value) { return std::bit_cast<BID_UINT128>(value); }
Bid out(const BID_UINT128& value) { return std::bit_cast<Bid>(value); }

// One unit of the last place at a scale.
BID_UINT128 unit(int scale) { return in(Bid{1, static_cast<std::uint64_t>(kBidBias - scale) << kBidExponentShift}); }

// Of UP and HALF_DOWN there is no equal.
_IDEC_round mode_of(std::uint32_t mode) {
    constexpr _IDEC_round modes[] = {BID_ROUNDING_TO_NEAREST, BID_ROUNDING_TO_ZERO,   BID_ROUNDING_UP,
                                     BID_ROUNDING_DOWN,       BID_ROUNDING_TIES_AWAY, BID_ROUNDING_TO_NEAREST,
                                     BID_ROUNDING_TO_NEAREST};
    return modes[mode % 7];
}

NumericStatus status_of(_IDEC_flags flags) {
    if (flags & BID_INVALID_EXCEPTION) return NUMERIC_NAN;
    if (flags & BID_OVERFLOW_EXCEPTION) return NUMERIC_OVERFLOW;
    return flags & BID_INEXACT_EXCEPTION ? NUMERIC_INEXACT : NUMERIC_OK;
}

NumericStatus at_scale(BID_UINT128 value, const Info* info, _IDEC_flags flags, Bid* result) {
    *result = out(bid128_quantize(value, unit(info->scale), mode_of(info->rounding_mode), &flags));
    return status_of(flags);
}

NumericStatus add(const Bid* a, const Bid* b, Bid* result) {
    _IDEC_flags flags = 0;
    *result = out(bid128_add(in(*a), in(*b), BID_ROUNDING_TO_NEAREST, &flags));
    return status_of(flags);
}

std::int32_t compare(const Bid* a, const Bid* b) {
    _IDEC_flags flags = 0;
    return bid128_quiet_greater(in(*a), in(*b), &flags) - bid128_quiet_less(in(*a), in(*b), &flags);
}

NumericStatus rescale(const Info*, const Info* to, const Bid* src, Bid* dst) { return at_scale(in(*src), to, 0, dst); }

NumericStatus round(const Info* info, std::int32_t places, Bid* num) {
    const Info at_places{places, info->rounding_mode};
    return at_scale(in(*num), &at_places, 0, num);
}

NumericStatus rescaling_add(const Info*, const Info*, const Info* result_info, const Bid* a, const Bid* b,
                            Bid* result) {
    _IDEC_flags flags = 0;
    const BID_UINT128 sum = bid128_add(in(*a), in(*b), mode_of(result_info->rounding_mode), &flags);
    return at_scale(sum, result_info, flags, result);
}

NumericStatus rescaling_multiply(const Info*, const Info*, const Info* result_info, const Bid* a, const Bid* b,
                                 Bid* result) {
    _IDEC_flags flags = 0;
    const BID_UINT128 product = bid128_mul(in(*a), in(*b), mode_of(result_info->rounding_mode), &flags);
    return at_scale(product, result_info, flags, result);
}

NumericStatus rescaling_divide(const Info*, const Info*, const Info* result_info, const Bid* a, const Bid* b,
                               Bid* result) {
    _IDEC_flags flags = 0;
    const BID_UINT128 quotient = bid128_div(in(*a), in(*b), mode_of(result_info->rounding_mode), &flags);
    return at_scale(quotient, result_info, flags, result);
}

std::int32_t rescaling_compare(const Info*, const Info*, const Bid* a, const Bid* b) { return compare(a, b); }

NumericStatus divide_by_integer(Bid* x, const Info* info, std::int32_t d) {
    _IDEC_flags flags = 0;
    const BID_UINT128 quotient = bid128_div(in(*x), bid128_from_int32(d), mode_of(info->rounding_mode), &flags);
    return at_scale(quotient, info, flags, x);
}

NumericStatus multiply_by_integer(Bid* x, std::int32_t m) {
    _IDEC_flags flags = 0;
    *x = out(bid128_mul(in(*x), bid128_from_int32(m), BID_ROUNDING_TO_NEAREST, &flags));
    return status_of(flags);
}

NumericStatus from_text(const char* text, const Info* info, Bid* result, char**) {
    _IDEC_flags flags = 0;
    const BID_UINT128 value = bid128_from_string(const_cast<char*>(text), mode_of(info->rounding_mode), &flags);
    return at_scale(value, info, flags, result);
}

NumericStatus from_double(const Info* info, Bid* result, double value) {
    _IDEC_flags flags = 0;
    const BID_UINT128 exact = binary64_to_bid128(value, mode_of(info->rounding_mode), &flags);
    return at_scale(exact, info, flags, result);
}

NumericStatus to_double(const Bid* value, const Info* info, double* result) {
    _IDEC_flags flags = 0;
    *result = bid128_to_binary64(in(*value), mode_of(info->rounding_mode), &flags);
    return status_of(flags);
}

NumericStatus from_integer(std::int64_t value, const Info* info, Bid* result) {
    return at_scale(bid128_from_int64(value), info, 0, result);
}

NumericStatus to_integer(const Bid* value, const Info*, std::int64_t* result) {
    _IDEC_flags flags = 0;
    *result = bid128_to_int64_xint(in(*value), &flags);
    return status_of(flags);
}

struct Intel : BidTraits {
    static constexpr const char* kName = "Intel decimal";
    static constexpr Manners kManners = Manners::kCommon;

    static const Kernels<Bid>& kernels() {
        static const Kernels<Bid> kernels = [] {
            Kernels<Bid> k{};
            k.add = add;
            k.compare = compare;
            k.rescale = rescale;
            k.round = round;
            k.rescaling_add = rescaling_add;
            k.rescaling_multiply = rescaling_multiply;
            k.rescaling_divide = rescaling_divide;
            k.rescaling_compare = rescaling_compare;
            k.divide_by_integer = divide_by_integer;
            k.multiply_by_integer = multiply_by_integer;
            k.from_text = from_text;
            k.from_double = from_double;
            k.to_double = to_double;
            k.from_integer = from_integer;
            k.to_integer = to_integer;
            return k;
        }();
        return kernels;
    }

    static std::optional<Part> part_in(const Workload& w, int digits) {
        const std::uint32_t mode = deciding_mode(w);
        if (digits > kBidDigits) return std::nullopt;
        if (mode == NUMERIC_ROUND_UP || mode == NUMERIC_ROUND_HALF_DOWN) return std::nullopt;
        switch (w.operation) {
            // What the product or the quotient has beyond 34 digits is rounded before the scale is set.
            case Operation::kRescalingMultiply:
                if (2 * digits - (w.a.scale + w.b.scale - w.result.scale) > kBidDigits) return std::nullopt;
                return part_without("rounds twice");
            case Operation::kRescalingDivide:
                if (digits > 19 || digits + w.result.scale - w.a.scale + w.b.scale > kBidDigits) return std::nullopt;
                return part_without("rounds twice");
            case Operation::kDivideByInteger:
                if (digits > 19) return std::nullopt;
                return part_without("rounds twice");
            case Operation::kFromDouble:
                if (w.result.scale != 2) return std::nullopt;  // at the others doubles of 38 digits are drawn
                return part_without("rounds twice");
            case Operation::kRescale:
                if (digits + std::max(w.result.scale - w.a.scale, 0) > kBidDigits) return std::nullopt;
                return whole_job();
            default:
                if (digits > kBidDigits - 6) return std::nullopt;
                return whole_job();
        }
    }
};

}  // namespace

std::unique_ptr<Contender> intel_peer() { return std::make_unique<Peer<Intel>>(); }

}  // namespace qv8numeric_bench
