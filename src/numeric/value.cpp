// SPDX-License-Identifier: MIT
// Zero and NaN: setting them and asking for them.
#include "wide/coefficient.h"

extern "C" void QV8NumericSetZero(Numeric* out) noexcept { *out = Numeric{0, 0}; }

extern "C" void QV8NumericSetNan(Numeric* out) noexcept { *out = qv8numeric::nan_pattern; }

extern "C" int QV8NumericIsZero(const Numeric* v) noexcept { return qv8numeric::is_zero(*v) ? 1 : 0; }

extern "C" int QV8NumericIsNan(const Numeric* v) noexcept { return qv8numeric::is_nan(*v) ? 1 : 0; }
