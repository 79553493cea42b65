/* SPDX-License-Identifier: MIT */
#include "gcc_decimal.h"

NumericStatus gcc_decimal_add(const GccDecimal* a, const GccDecimal* b, GccDecimal* out) {
    *out = *a + *b;
    return NUMERIC_OK;
}

int32_t gcc_decimal_compare(const GccDecimal* a, const GccDecimal* b) { return (*a > *b) - (*a < *b); }

int32_t gcc_decimal_rescaling_compare(const NumericInfo* a_info, const NumericInfo* b_info, const GccDecimal* a,
                                      const GccDecimal* b) {
    (void)a_info;
    (void)b_info;
    return gcc_decimal_compare(a, b);
}

NumericStatus gcc_decimal_multiply_by_integer(GccDecimal* x, int32_t m) {
    *x *= (GccDecimal)m;
    return NUMERIC_OK;
}

NumericStatus gcc_decimal_to_double(const GccDecimal* in, const NumericInfo* info, double* out) {
    (void)info;
    *out = (double)*in;
    return NUMERIC_OK;
}

NumericStatus gcc_decimal_from_integer(int64_t value, const NumericInfo* info, GccDecimal* out) {
    (void)info;
    *out = (GccDecimal)value;
    return NUMERIC_OK;
}

NumericStatus gcc_decimal_to_integer(const GccDecimal* in, const NumericInfo* info, int64_t* out) {
    (void)info;
    *out = (int64_t)*in;
    return NUMERIC_OK;
}
