// SPDX-License-Identifier: MIT
#include "operations.h"

#include <cstring>
#include <stdexcept>

#include "apply.h"
#include "reference/reference.h"

namespace short_roads {
namespace {

template <typename R, typename... A>
std::string describe(R (*)(A...), ArgumentsInWords& arguments) {
    std::string text;
    const std::string list[] = {arguments.next<A>()...};
    for (const std::string& argument : list) text += "    " + argument + "\n";
    return text;
}

template <auto function>
std::string words(ArgumentsInWords arguments) {
    return describe(function, arguments);
}

template <auto library>
constexpr Result result_of() {
    if (takes<Numeric*>(library)) return Result::kNumeric;
    if (takes<std::int32_t*>(library)) return Result::kInt32;
    if (takes<std::int64_t*>(library)) return Result::kInt64;
    if (takes<double*>(library)) return Result::kDouble;
    return takes<char*>(library) ? Result::kText : Result::kNone;
}

template <auto library, auto plain>
constexpr Operation operation(const char* name, Draw draw, unsigned share) {
    return {name,
            invoke<library>,
            invoke<plain>,
            words<library>,
            draw,
            count_of<const NumericInfo*>(library),
            share,
            result_of<library>(),
            count_of<const Numeric*>(library) == 2,
            takes<const char*>(library),
            takes<char*>(library)};
}

constexpr Operation kOperations[] = {
    operation<QV8NumericSetZero, reference::set_zero>("SetZero", draw_one_operand, 1),
    operation<QV8NumericSetNan, reference::set_nan>("SetNan", draw_one_operand, 1),
    operation<QV8NumericIsZero, reference::is_zero_value>("IsZero", draw_one_operand, 1),
    operation<QV8NumericIsNan, reference::is_nan_value>("IsNan", draw_one_operand, 1),
    operation<get_truncated_part, reference::truncated_part>("get_truncated_part", draw_operand_and_flag, 1),
    operation<QV8NumericAdd, reference::add>("Add", draw_sum, 4),
    operation<QV8NumericSub, reference::subtract>("Sub", draw_sum, 4),
    operation<QV8NumericCmp, reference::compare>("Cmp", draw_order, 4),
    operation<QV8NumericCeil, reference::ceil>("Ceil", draw_truncation, 4),
    operation<QV8NumericFloor, reference::floor>("Floor", draw_truncation, 4),
    operation<QV8NumericRound, reference::round>("Round", draw_truncation, 12),
    operation<QV8NumericMul, reference::multiply>("Mul", draw_factor, 6),
    operation<QV8NumericDiv, reference::divide>("Div", draw_divisor, 10),
    operation<QV8NumericRescale, reference::rescale>("Rescale", draw_rescale, 14),
    operation<QV8NumericRescalingAdd, reference::rescaling_add>("RescalingAdd", draw_rescaling_sum, 14),
    operation<QV8NumericRescalingSub, reference::rescaling_subtract>("RescalingSub", draw_rescaling_sum, 14),
    operation<QV8NumericRescalingCmp, reference::rescaling_compare>("RescalingCmp", draw_rescaling_order, 8),
    operation<QV8NumericRescalingMul, reference::rescaling_multiply>("RescalingMul", draw_rescaling_product, 18),
    operation<QV8NumericRescalingDiv, reference::rescaling_divide>("RescalingDiv", draw_rescaling_quotient, 24),
    operation<QV8NumericNum2Str, reference::to_text>("Num2Str", draw_text_out, 14),
    operation<QV8NumericNum2Dgstr, reference::to_grouped_text>("Num2Dgstr", draw_text_out, 14),
    operation<QV8NumericStr2Num, reference::from_text>("Str2Num", draw_text_in, 14),
    operation<QV8NumericDgstr2Num, reference::from_grouped_text>("Dgstr2Num", draw_grouped_text_in, 14),
    operation<QV8NumericLong2Num, reference::from_int64>("Long2Num", draw_from_int64, 8),
    operation<QV8NumericInt2Num, reference::from_int32>("Int2Num", draw_from_int32, 6),
    operation<QV8NumericNum2Long, reference::to_int64>("Num2Long", draw_to_integer, 8),
    operation<QV8NumericNum2Int, reference::to_int32>("Num2Int", draw_to_integer, 6),
    operation<QV8NumericDbl2Num, reference::from_double>("Dbl2Num", draw_from_double, 16),
    operation<QV8NumericNum2Dbl, reference::to_double>("Num2Dbl", draw_to_double, 16),
};

}  // namespace

std::span<const Operation> operations() { return kOperations; }

const Operation& operation_named(const char* name) {
    for (const Operation& operation : kOperations) {
        if (std::strcmp(operation.name, name) == 0) return operation;
    }
    throw std::invalid_argument(name);
}

}  // namespace short_roads
