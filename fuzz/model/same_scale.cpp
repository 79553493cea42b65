// SPDX-License-Identifier: MIT
#include "model.h"
#include "scaling.h"

namespace qv8numeric_fuzz::model {
namespace {

Outcome exact(const Wide& result) { return narrowed(abs(result), result < 0, NUMERIC_OK); }

}  // namespace

Outcome add(const Numeric& a, const Numeric& b) {
    if (is_nan(a) || is_nan(b)) return kNanOperand;
    return exact(signed_value(a) + signed_value(b));
}

Outcome subtract(const Numeric& a, const Numeric& b) {
    if (is_nan(a) || is_nan(b)) return kNanOperand;
    return exact(signed_value(a) - signed_value(b));
}

// The sign of b - a; NaN is the integer that its pattern is.
std::int32_t compare(const Numeric& a, const Numeric& b) { return signed_value(b).compare(signed_value(a)); }

}  // namespace qv8numeric_fuzz::model
