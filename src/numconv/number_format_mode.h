// SPDX-License-Identifier: MIT
#ifndef QV8NUMERIC_NUMCONV_NUMBER_FORMAT_MODE_H
#define QV8NUMERIC_NUMCONV_NUMBER_FORMAT_MODE_H

#include <cstdint>

namespace qv8numeric {

// Digits in groups of three with "," between them, or plain: what the formatter writes and what the parser allows.
enum NumberFormatMode : std::int32_t { format_grouped = 1, format_plain = 2 };

}  // namespace qv8numeric

#endif
