// SPDX-License-Identifier: MIT
#ifndef QV8NUMERIC_NUMCONV_FORMAT_H
#define QV8NUMERIC_NUMCONV_FORMAT_H

#include <cstddef>

#include "numconv/number_format_mode.h"
#include "qv8numeric.h"

namespace qv8numeric {

// Writes value as text; the public header describes the arguments. Only format_grouped groups, any other mode is plain.
NumericStatus numeric_num2str_internal(const Numeric* value, const NumericInfo* info, std::int32_t exponent_shift,
                                       std::int32_t output_scale, char* buffer, std::size_t buffer_size,
                                       std::int32_t mode);

}  // namespace qv8numeric

#endif
