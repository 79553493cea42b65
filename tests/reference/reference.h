// SPDX-License-Identifier: MIT
// The library's functions a second time, each by its plain steps: one 32-bit limb after the other, eight digits a pass,
// ordinary division, no special case that is there for speed. It shares nothing with the library but the public header,
// whose manual holds for these functions as well.
#ifndef QV8NUMERIC_TESTS_REFERENCE_REFERENCE_H
#define QV8NUMERIC_TESTS_REFERENCE_REFERENCE_H

#include <cstddef>
#include <cstdint>

#include "qv8numeric.h"

namespace reference {

// values.cpp
void set_zero(Numeric* out);
void set_nan(Numeric* out);
int is_zero_value(const Numeric* v);
int is_nan_value(const Numeric* v);
std::int32_t truncated_part(const Numeric& value, std::uint32_t& flag);

// same_scale.cpp
NumericStatus add(const Numeric* a, const Numeric* b, Numeric* out);
NumericStatus subtract(const Numeric* a, const Numeric* b, Numeric* out);
std::int32_t compare(const Numeric* a, const Numeric* b);

// truncation.cpp
NumericStatus ceil(const NumericInfo* info, std::int32_t places, Numeric* num);
NumericStatus floor(const NumericInfo* info, std::int32_t places, Numeric* num);
NumericStatus round(const NumericInfo* info, std::int32_t places, Numeric* num);

// machine_integer.cpp
NumericStatus multiply(Numeric* x, std::int32_t m);
NumericStatus divide(Numeric* x, const NumericInfo* info, std::int32_t d);

// rescale.cpp
NumericStatus rescale(const NumericInfo* from, const NumericInfo* to, const Numeric* src, Numeric* dst);

// rescaling_add.cpp
NumericStatus rescaling_add(const NumericInfo* a_info, const NumericInfo* b_info, const NumericInfo* result_info,
                            const Numeric* a, const Numeric* b, Numeric* result);
NumericStatus rescaling_subtract(const NumericInfo* a_info, const NumericInfo* b_info, const NumericInfo* result_info,
                                 const Numeric* a, const Numeric* b, Numeric* result);
std::int32_t rescaling_compare(const NumericInfo* a_info, const NumericInfo* b_info, const Numeric* a,
                               const Numeric* b);

// rescaling_multiply.cpp, rescaling_divide.cpp
NumericStatus rescaling_multiply(const NumericInfo* a_info, const NumericInfo* b_info, const NumericInfo* result_info,
                                 const Numeric* a, const Numeric* b, Numeric* result);
NumericStatus rescaling_divide(const NumericInfo* a_info, const NumericInfo* b_info, const NumericInfo* result_info,
                               const Numeric* a, const Numeric* b, Numeric* result);

// text_out.cpp
NumericStatus to_text(const Numeric* value, const NumericInfo* info, std::int32_t exponent_shift,
                      std::int32_t output_scale, char* buffer, std::size_t buffer_size);
NumericStatus to_grouped_text(const Numeric* value, const NumericInfo* info, std::int32_t exponent_shift,
                              std::int32_t output_scale, char* buffer, std::size_t buffer_size);

// text_in.cpp
NumericStatus from_text(const char* text, const NumericInfo* info, Numeric* result, char** end);
NumericStatus from_grouped_text(const char* text, const NumericInfo* info, Numeric* result, char** end);

// from_integer.cpp, to_integer.cpp
NumericStatus from_int64(std::int64_t value, const NumericInfo* info, Numeric* out);
NumericStatus from_int32(std::int32_t value, const NumericInfo* info, Numeric* out);
NumericStatus to_int64(const Numeric* in, const NumericInfo* info, std::int64_t* out);
NumericStatus to_int32(const Numeric* in, const NumericInfo* info, std::int32_t* out);

// from_double.cpp, to_double.cpp
NumericStatus from_double(const NumericInfo* info, Numeric* out, double value);
NumericStatus to_double(const Numeric* in, const NumericInfo* info, double* out);

}  // namespace reference

#endif
