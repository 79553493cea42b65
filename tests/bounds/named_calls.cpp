// SPDX-License-Identifier: MIT
// The dear calls were found by counting the instructions of hundreds of thousands of drawn ones, and of the double
// conversions at every scale from -1300 to 1300. What makes a call dear is said in its row.
#include "named_calls.h"

#include <cfloat>
#include <string>

#include "apply.h"

namespace bounds {
namespace {

using namespace short_roads;

constexpr Numeric kZero{0, 0};
constexpr Numeric kOne{1, 0};
constexpr Numeric kCents{1234567, 0};
constexpr Numeric kWord{UINT64_MAX - 1, 0};
constexpr Numeric kLimb{UINT32_MAX, 0};
constexpr Numeric kWordAndTwo{2, 1};  // 2^64 + 2
constexpr Numeric kWide{0x12345678'9abcdef0, 0x12345678};
constexpr Numeric kMax{UINT64_MAX, INT64_MAX};
constexpr Numeric kMin{1, INT64_MIN};
constexpr Numeric kNan{0, INT64_MIN};
constexpr Numeric kSparse{0xfffffffe'ffffffff, INT64_MIN + UINT32_MAX};  // limbs of many ones, negative

// ---- The arguments of each kind of function ----

constexpr NumericInfo at(std::int32_t scale) { return {scale, NUMERIC_ROUND_HALF_EVEN}; }

Call one(const Numeric& value) { return {.operands = {value}, .flag = 1}; }
Call two(const Numeric& a, const Numeric& b) { return {.operands = {a, b}}; }

// Rounding to a number of places, a factor or a divisor; the result takes the operand's place.
Call in_place(const Numeric& value, std::int32_t scale, std::int32_t number) {
    return {.operands = {value}, .infos = {at(scale)}, .numbers = {number}, .result_at = 0};
}

Call scales(const Numeric& value, std::int32_t from, std::int32_t to) {
    return {.operands = {value}, .infos = {at(from), at(to)}};
}

Call scales(const Numeric& a, const Numeric& b, std::int32_t a_scale, std::int32_t b_scale, std::int32_t result = 0) {
    return {.operands = {a, b}, .infos = {at(a_scale), at(b_scale), at(result)}};
}

Call text_out(const Numeric& value, std::int32_t scale, std::int32_t shift, std::int32_t places, std::size_t size) {
    return {.operands = {value}, .infos = {at(scale)}, .numbers = {shift, places}, .buffer_size = size};
}

Call text_in(std::string text, std::int32_t scale) { return {.infos = {at(scale)}, .text = std::move(text)}; }

Call int64(std::int64_t value, std::int32_t scale) { return {.infos = {at(scale)}, .wide_number = value}; }
Call int32(std::int32_t value, std::int32_t scale) { return {.infos = {at(scale)}, .numbers = {value}}; }
Call real(double value, std::int32_t scale) { return {.infos = {at(scale)}, .real = value}; }
Call at_scale(const Numeric& value, std::int32_t scale) { return {.operands = {value}, .infos = {at(scale)}}; }

// 45 digits before the point and as many behind it.
std::string long_literal() { return std::string(45, '9') + "." + std::string(45, '9'); }

// ---- The rows ----

template <auto function>
NamedCall usual(const char* name, const char* arguments, const Call& call) {
    return {name, invoke<function>, repeat<function>, true, arguments, call};
}

template <auto function>
NamedCall dear(const char* name, const char* arguments, const Call& call) {
    return {name, invoke<function>, repeat<function>, false, arguments, call};
}

// clang-format off
std::vector<NamedCall> calls_on_one_scale() {
    return {
        usual<QV8NumericSetZero>("SetZero", "any", {}),
        usual<QV8NumericSetNan>("SetNan", "any", {}),
        usual<QV8NumericIsZero>("IsZero", "7 digits", one(kCents)),
        usual<QV8NumericIsNan>("IsNan", "7 digits", one(kCents)),
        dear<QV8NumericIsNan>("IsNan", "NaN", one(kNan)),
        usual<get_truncated_part>("get_truncated_part", "7 digits", one(kCents)),
        usual<QV8NumericAdd>("Add", "7 digits", two(kCents, kCents)),
        dear<QV8NumericAdd>("Add", "out of range", two(kMax, kMax)),
        dear<QV8NumericAdd>("Add", "out of range, negative", two(kMin, kMin)),
        dear<QV8NumericAdd>("Add", "the second operand is NaN", two(kOne, kNan)),
        usual<QV8NumericSub>("Sub", "7 digits", two(kCents, kCents)),
        dear<QV8NumericSub>("Sub", "out of range", two(kMax, kMin)),
        dear<QV8NumericSub>("Sub", "out of range, negative", two(kMin, kMax)),
        dear<QV8NumericSub>("Sub", "the second operand is NaN", two(kOne, kNan)),
        usual<QV8NumericCmp>("Cmp", "7 digits", two(kCents, kWide)),
        usual<QV8NumericCeil>("Ceil", "7 digits, 2 dropped", in_place(kCents, 4, 2)),
        dear<QV8NumericCeil>("Ceil", "the largest, 87 dropped", in_place(kMax, 7, -80)),
        usual<QV8NumericFloor>("Floor", "7 digits, 2 dropped", in_place(kCents, 4, 2)),
        dear<QV8NumericFloor>("Floor", "the smallest, 87 dropped", in_place(kMin, 7, -80)),
        usual<QV8NumericRound>("Round", "7 digits, 2 dropped", in_place(kCents, 4, 2)),
        dear<QV8NumericRound>("Round", "the smallest, 87 dropped", in_place(kMin, 7, -80)),
        dear<QV8NumericRound>("Round", "the smallest, 2^32 - 1 dropped", in_place(kMin, INT32_MAX, INT32_MIN)),
        usual<QV8NumericMul>("Mul", "7 digits by 7", in_place(kCents, 0, 7)),
        dear<QV8NumericMul>("Mul", "the smallest by 0", in_place(kMin, 0, 0)),
        dear<QV8NumericMul>("Mul", "-2^64, out of range", in_place({0, -1}, 0, INT32_MAX)),
        usual<QV8NumericDiv>("Div", "7 digits by 7", in_place(kCents, 2, 7)),
        dear<QV8NumericDiv>("Div", "the smallest by -7", in_place(kMin, 2, -7)),
        dear<QV8NumericDiv>("Div", "the largest by -2^31", in_place(kMax, 2, INT32_MIN)),
        usual<QV8NumericRescale>("Rescale", "7 digits, 2 dropped", scales(kCents, 4, 2)),
        dear<QV8NumericRescale>("Rescale", "the largest, 87 dropped", scales(kMax, 7, -80)),
        dear<QV8NumericRescale>("Rescale", "the smallest, 2^32 - 1 places added", scales(kMin, INT32_MIN, INT32_MAX)),
        dear<QV8NumericRescale>("Rescale", "the smallest, 2^32 - 1 dropped", scales(kMin, INT32_MAX, INT32_MIN)),
    };
}

std::vector<NamedCall> rescaling_calls() {
    constexpr const char* kUsual = "7 digits, scales 2, 4 into 2";
    constexpr const char* kDear = "both aligned over 71 places, then 125 dropped";
    constexpr const char* kFar = "2^32 - 1 places apart";
    return {
        usual<QV8NumericRescalingAdd>("RescalingAdd", kUsual, scales(kCents, kCents, 2, 4, 2)),
        dear<QV8NumericRescalingAdd>("RescalingAdd", kDear, scales(kWide, kSparse, 33, -38, -87)),
        dear<QV8NumericRescalingAdd>("RescalingAdd", kFar, scales(kMin, kMin, INT32_MIN, INT32_MAX)),
        usual<QV8NumericRescalingSub>("RescalingSub", kUsual, scales(kCents, kCents, 2, 4, 2)),
        dear<QV8NumericRescalingSub>("RescalingSub", kDear, scales(kWide, kSparse, 33, -38, -87)),
        dear<QV8NumericRescalingSub>("RescalingSub", kFar, scales(kMin, kMin, INT32_MIN, INT32_MAX)),
        usual<QV8NumericRescalingCmp>("RescalingCmp", "7 digits, scales 2, 4", scales(kCents, kCents, 2, 4)),
        dear<QV8NumericRescalingCmp>("RescalingCmp", "1 and the smallest, 85 places apart", scales(kOne, kMin, 4, 89)),
        dear<QV8NumericRescalingCmp>("RescalingCmp", kFar, scales(kMin, kMax, INT32_MIN, INT32_MAX)),
        usual<QV8NumericRescalingMul>("RescalingMul", kUsual, scales(kCents, kCents, 2, 4, 2)),
        dear<QV8NumericRescalingMul>("RescalingMul", "the largest ones, 82 dropped", scales(kMax, kMin, 40, 42, 0)),
        dear<QV8NumericRescalingMul>("RescalingMul", "the largest ones, 2^31 dropped", scales(kMax, kMax, INT32_MAX, 0, -1)),
        usual<QV8NumericRescalingDiv>("RescalingDiv", "7 digits, scales 2, 4 into 6", scales(kCents, kCents, 2, 4, 6)),
        dear<QV8NumericRescalingDiv>("RescalingDiv", "0 by a word, 77 places added", scales(kZero, kWord, 7, -9, 93)),
        dear<QV8NumericRescalingDiv>("RescalingDiv", "0 by two words, 98 places added", scales(kZero, kWordAndTwo, 0, 31, 67)),
        dear<QV8NumericRescalingDiv>("RescalingDiv", "the smallest by 2^64 + 2, 38 places added", scales(kMin, kWordAndTwo, 0, 0, 38)),
        dear<QV8NumericRescalingDiv>("RescalingDiv", "the largest by 1, 2^32 - 1 dropped", scales(kMax, kOne, INT32_MAX, 0, INT32_MIN)),
    };
}

std::vector<NamedCall> text_calls() {
    constexpr const char* kFar = "39 digits, 87 dropped and 2^31 - 1 zeros appended";
    return {
        usual<QV8NumericNum2Str>("Num2Str", "7 digits", text_out(kCents, 2, 0, 2, 64)),
        dear<QV8NumericNum2Str>("Num2Str", "39 digits and 80 places", text_out(kMin, 80, 0, 80, 128)),
        dear<QV8NumericNum2Str>("Num2Str", "39 digits and an exponent", text_out(kMin, 0, -1, 0, 64)),
        dear<QV8NumericNum2Str>("Num2Str", kFar, text_out(kMin, 87, INT32_MAX, 0, 64)),
        usual<QV8NumericNum2Dgstr>("Num2Dgstr", "7 digits", text_out(kCents, 2, 0, 2, 64)),
        dear<QV8NumericNum2Dgstr>("Num2Dgstr", "39 digits and 80 places", text_out(kMin, 80, 0, 80, 128)),
        dear<QV8NumericNum2Dgstr>("Num2Dgstr", "39 digits and an exponent", text_out(kMin, 0, -1, 0, 64)),
        dear<QV8NumericNum2Dgstr>("Num2Dgstr", kFar, text_out(kMin, 87, INT32_MAX, 0, 64)),
        usual<QV8NumericStr2Num>("Str2Num", "7 digits", text_in("12345.67", 2)),
        dear<QV8NumericStr2Num>("Str2Num", "90 digits, all but six dropped", text_in(long_literal(), -39)),
        dear<QV8NumericStr2Num>("Str2Num", "the smallest exponent", text_in(std::string(45, '9') + "e-2147483648", INT32_MIN)),
        usual<QV8NumericDgstr2Num>("Dgstr2Num", "7 digits", text_in("12,345.67", 2)),
        dear<QV8NumericDgstr2Num>("Dgstr2Num", "90 digits, all but six dropped", text_in(long_literal(), -39)),
        dear<QV8NumericDgstr2Num>("Dgstr2Num", "groups behind an exponent", text_in("9.99999999e9,999,999,999,999,999,999,999", 0)),
    };
}

std::vector<NamedCall> machine_number_calls() {
    return {
        usual<QV8NumericLong2Num>("Long2Num", "7 digits, scale 2", int64(1234567, 2)),
        dear<QV8NumericLong2Num>("Long2Num", "32 bits, 22 places added", int64(UINT32_MAX, 22)),
        dear<QV8NumericLong2Num>("Long2Num", "the smallest, 18 dropped", int64(INT64_MIN, -18)),
        dear<QV8NumericLong2Num>("Long2Num", "the smallest, 2^31 - 1 places added", int64(INT64_MIN, INT32_MAX)),
        usual<QV8NumericInt2Num>("Int2Num", "7 digits, scale 2", int32(1234567, 2)),
        dear<QV8NumericInt2Num>("Int2Num", "the largest, 22 places added", int32(INT32_MAX, 22)),
        dear<QV8NumericInt2Num>("Int2Num", "the smallest, 9 dropped", int32(INT32_MIN, -9)),
        dear<QV8NumericInt2Num>("Int2Num", "the smallest, 2^31 dropped", int32(INT32_MIN, INT32_MIN)),
        usual<QV8NumericNum2Long>("Num2Long", "7 digits, scale 2", at_scale(kCents, 2)),
        dear<QV8NumericNum2Long>("Num2Long", "32 bits, 9 dropped", at_scale(kLimb, 9)),
        dear<QV8NumericNum2Long>("Num2Long", "32 bits, 2^31 - 1 dropped", at_scale(kLimb, INT32_MAX)),
        usual<QV8NumericNum2Int>("Num2Int", "7 digits, scale 2", at_scale(kCents, 2)),
        dear<QV8NumericNum2Int>("Num2Int", "0, 7 places added", at_scale(kZero, -7)),
        dear<QV8NumericNum2Int>("Num2Int", "32 bits, 2^31 - 1 dropped", at_scale(kLimb, INT32_MAX)),
        usual<QV8NumericDbl2Num>("Dbl2Num", "12345.67 at scale 2", real(12345.67, 2)),
        dear<QV8NumericDbl2Num>("Dbl2Num", "the largest double at scale -769", real(DBL_MAX, -769)),
        dear<QV8NumericDbl2Num>("Dbl2Num", "the smallest double at scale 2^31 - 1", real(DBL_TRUE_MIN, INT32_MAX)),
        usual<QV8NumericNum2Dbl>("Num2Dbl", "7 digits, scale 2", at_scale(kCents, 2)),
        dear<QV8NumericNum2Dbl>("Num2Dbl", "the smallest at scale 361", at_scale(kMin, 361)),
        dear<QV8NumericNum2Dbl>("Num2Dbl", "the smallest at scale -347", at_scale(kMin, -347)),
    };
}
// clang-format on

std::vector<NamedCall> all_calls() {
    std::vector<NamedCall> calls = calls_on_one_scale();
    for (const auto& more : {rescaling_calls(), text_calls(), machine_number_calls()}) {
        calls.insert(calls.end(), more.begin(), more.end());
    }
    return calls;
}

}  // namespace

const std::vector<NamedCall>& named_calls() {
    static const std::vector<NamedCall> calls = all_calls();
    return calls;
}

}  // namespace bounds
