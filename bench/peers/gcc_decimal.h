// SPDX-License-Identifier: MIT
// GCC's _Decimal128, which C has and C++ has not: its operations behind functions in C.
#ifndef QV8NUMERIC_BENCH_PEERS_GCC_DECIMAL_H
#define QV8NUMERIC_BENCH_PEERS_GCC_DECIMAL_H

#include <stdint.h>

#include "qv8numeric.h"

#if defined(__cplusplus)
namespace qv8numeric_bench {
struct Bid;
}
typedef qv8numeric_bench::Bid GccDecimal;
extern "C" {
#else
__extension__ typedef _Decimal128 GccDecimal;
#endif

NumericStatus gcc_decimal_add(const GccDecimal* a, const GccDecimal* b, GccDecimal* out);
int32_t gcc_decimal_compare(const GccDecimal* a, const GccDecimal* b);
int32_t gcc_decimal_rescaling_compare(const NumericInfo* a_info, const NumericInfo* b_info, const GccDecimal* a,
                                      const GccDecimal* b);
NumericStatus gcc_decimal_multiply_by_integer(GccDecimal* x, int32_t m);
NumericStatus gcc_decimal_to_double(const GccDecimal* in, const NumericInfo* info, double* out);
NumericStatus gcc_decimal_from_integer(int64_t value, const NumericInfo* info, GccDecimal* out);
NumericStatus gcc_decimal_to_integer(const GccDecimal* in, const NumericInfo* info, int64_t* out);

#if defined(__cplusplus)
}
#endif

#endif
