// SPDX-License-Identifier: MIT
// A machine on which one call of one function has one bit wrong: linked into the checksum's program, this rounding
// takes the place of the library's.
#include "qv8numeric.h"
#include "reference/reference.h"

NumericStatus QV8NumericRound(const NumericInfo* info, int32_t places, Numeric* num) noexcept {
    static int calls = 0;
    const NumericStatus status = reference::round(info, places, num);
    if (++calls == 500) num->low ^= 1;
    return status;
}
