// SPDX-License-Identifier: MIT
// The operations of a peer on its own values, with the arguments of the library's functions.
#ifndef QV8NUMERIC_BENCH_KERNELS_H
#define QV8NUMERIC_BENCH_KERNELS_H

#include <cstddef>
#include <cstdint>

#include "qv8numeric.h"

namespace qv8numeric_bench {

// Null where the peer has no such operation.
template <typename Value>
struct Kernels {
    using Info = NumericInfo;
    using SameScale = NumericStatus(const Value* a, const Value* b, Value* out);
    using Rescaling = NumericStatus(const Info* a_info, const Info* b_info, const Info* result_info, const Value* a,
                                    const Value* b, Value* result);
    using ToText = NumericStatus(const Value* value, const Info* info, std::int32_t exponent_shift,
                                 std::int32_t output_scale, char* buffer, std::size_t buffer_size);
    using FromText = NumericStatus(const char* text, const Info* info, Value* result, char** end);

    SameScale* add;
    std::int32_t (*compare)(const Value* a, const Value* b);
    NumericStatus (*rescale)(const Info* from, const Info* to, const Value* src, Value* dst);
    NumericStatus (*round)(const Info* info, std::int32_t places, Value* num);
    Rescaling* rescaling_add;
    Rescaling* rescaling_multiply;
    Rescaling* rescaling_divide;
    std::int32_t (*rescaling_compare)(const Info* a_info, const Info* b_info, const Value* a, const Value* b);
    NumericStatus (*divide_by_integer)(Value* x, const Info* info, std::int32_t d);
    NumericStatus (*multiply_by_integer)(Value* x, std::int32_t m);
    ToText* to_text;
    ToText* to_grouped_text;
    FromText* from_text;
    FromText* from_grouped_text;
    NumericStatus (*from_double)(const Info* info, Value* out, double value);
    NumericStatus (*to_double)(const Value* in, const Info* info, double* out);
    NumericStatus (*from_integer)(std::int64_t value, const Info* info, Value* out);
    NumericStatus (*to_integer)(const Value* in, const Info* info, std::int64_t* out);
};

}  // namespace qv8numeric_bench

#endif
