// SPDX-License-Identifier: MIT
// Values as C writes them.
#ifndef QV8NUMERIC_FUZZ_SHOW_H
#define QV8NUMERIC_FUZZ_SHOW_H

#include <cstdint>
#include <string>
#include <string_view>

#include "qv8numeric.h"

namespace qv8numeric_fuzz {

std::string initializer(const Numeric& value);      // {UINT64_C(0x...), (int64_t)UINT64_C(0x...)}
std::string initializer(const NumericInfo& value);  // {2, 6}
std::string decimal(const Numeric& value);          // "-12", "NaN"
std::string hexadecimal(std::uint64_t value);       // UINT64_C(0x...)
std::string literal(std::int32_t value);
std::string literal(std::int64_t value);
std::string literal(std::string_view text);  // in quotation marks, with escapes where they are needed
std::string status_name(std::int32_t status);

}  // namespace qv8numeric_fuzz

#endif
