// SPDX-License-Identifier: MIT
// A Numeric from a double.
#include <bit>

#include "numconv/double_steps.h"

using namespace qv8numeric;

extern "C" NumericStatus QV8NumericDbl2Num(const NumericInfo* info, Numeric* out, double value) noexcept {
    return from_double_in_steps(std::bit_cast<uint64_t>(value), *info, *out);
}
