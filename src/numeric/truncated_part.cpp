// SPDX-License-Identifier: MIT
// The exported name for the sign of a cut-off part. In a file of its own so that a host linking the static library may
// define that name itself.
#include "numeric/truncation.h"

int32_t get_truncated_part(const Numeric& value, uint32_t& flag) noexcept {
    return qv8numeric::truncated_sign(value, flag != 0);
}
