// SPDX-License-Identifier: MIT
// The reference under the library's names: as a library of its own it can stand wherever the library does.
#include "qv8numeric.h"
#include "reference.h"

void QV8NumericSetZero(Numeric* out) noexcept { reference::set_zero(out); }
void QV8NumericSetNan(Numeric* out) noexcept { reference::set_nan(out); }
int QV8NumericIsZero(const Numeric* v) noexcept { return reference::is_zero_value(v); }
int QV8NumericIsNan(const Numeric* v) noexcept { return reference::is_nan_value(v); }

NumericStatus QV8NumericAdd(const Numeric* a, const Numeric* b, Numeric* out) noexcept {
    return reference::add(a, b, out);
}
NumericStatus QV8NumericSub(const Numeric* a, const Numeric* b, Numeric* out) noexcept {
    return reference::subtract(a, b, out);
}
int32_t QV8NumericCmp(const Numeric* a, const Numeric* b) noexcept { return reference::compare(a, b); }

NumericStatus QV8NumericCeil(const NumericInfo* info, int32_t places, Numeric* num) noexcept {
    return reference::ceil(info, places, num);
}
NumericStatus QV8NumericFloor(const NumericInfo* info, int32_t places, Numeric* num) noexcept {
    return reference::floor(info, places, num);
}
NumericStatus QV8NumericRound(const NumericInfo* info, int32_t places, Numeric* num) noexcept {
    return reference::round(info, places, num);
}

NumericStatus QV8NumericMul(Numeric* x, int32_t m) noexcept { return reference::multiply(x, m); }
NumericStatus QV8NumericDiv(Numeric* x, const NumericInfo* info, int32_t d) noexcept {
    return reference::divide(x, info, d);
}

NumericStatus QV8NumericRescale(const NumericInfo* from, const NumericInfo* to, const Numeric* src,
                                Numeric* dst) noexcept {
    return reference::rescale(from, to, src, dst);
}

NumericStatus QV8NumericRescalingAdd(const NumericInfo* a_info, const NumericInfo* b_info,
                                     const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                     Numeric* result) noexcept {
    return reference::rescaling_add(a_info, b_info, result_info, a, b, result);
}
NumericStatus QV8NumericRescalingSub(const NumericInfo* a_info, const NumericInfo* b_info,
                                     const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                     Numeric* result) noexcept {
    return reference::rescaling_subtract(a_info, b_info, result_info, a, b, result);
}
int32_t QV8NumericRescalingCmp(const NumericInfo* a_info, const NumericInfo* b_info, const Numeric* a,
                               const Numeric* b) noexcept {
    return reference::rescaling_compare(a_info, b_info, a, b);
}
NumericStatus QV8NumericRescalingMul(const NumericInfo* a_info, const NumericInfo* b_info,
                                     const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                     Numeric* result) noexcept {
    return reference::rescaling_multiply(a_info, b_info, result_info, a, b, result);
}
NumericStatus QV8NumericRescalingDiv(const NumericInfo* a_info, const NumericInfo* b_info,
                                     const NumericInfo* result_info, const Numeric* a, const Numeric* b,
                                     Numeric* result) noexcept {
    return reference::rescaling_divide(a_info, b_info, result_info, a, b, result);
}

NumericStatus QV8NumericNum2Str(const Numeric* value, const NumericInfo* info, int32_t exponent_shift,
                                int32_t output_scale, char* buffer, size_t buffer_size) noexcept {
    return reference::to_text(value, info, exponent_shift, output_scale, buffer, buffer_size);
}
NumericStatus QV8NumericNum2Dgstr(const Numeric* value, const NumericInfo* info, int32_t exponent_shift,
                                  int32_t output_scale, char* buffer, size_t buffer_size) noexcept {
    return reference::to_grouped_text(value, info, exponent_shift, output_scale, buffer, buffer_size);
}

NumericStatus QV8NumericStr2Num(const char* text, const NumericInfo* info, Numeric* result, char** end) noexcept {
    return reference::from_text(text, info, result, end);
}
NumericStatus QV8NumericDgstr2Num(const char* text, const NumericInfo* info, Numeric* result, char** end) noexcept {
    return reference::from_grouped_text(text, info, result, end);
}

NumericStatus QV8NumericLong2Num(int64_t value, const NumericInfo* info, Numeric* out) noexcept {
    return reference::from_int64(value, info, out);
}
NumericStatus QV8NumericInt2Num(int32_t value, const NumericInfo* info, Numeric* out) noexcept {
    return reference::from_int32(value, info, out);
}
NumericStatus QV8NumericNum2Long(const Numeric* in, const NumericInfo* info, int64_t* out) noexcept {
    return reference::to_int64(in, info, out);
}
NumericStatus QV8NumericNum2Int(const Numeric* in, const NumericInfo* info, int32_t* out) noexcept {
    return reference::to_int32(in, info, out);
}

NumericStatus QV8NumericDbl2Num(const NumericInfo* info, Numeric* out, double value) noexcept {
    return reference::from_double(info, out, value);
}
NumericStatus QV8NumericNum2Dbl(const Numeric* in, const NumericInfo* info, double* out) noexcept {
    return reference::to_double(in, info, out);
}

int32_t get_truncated_part(const Numeric& value, uint32_t& flag) noexcept {
    return reference::truncated_part(value, flag);
}
