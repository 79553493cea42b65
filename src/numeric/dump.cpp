// SPDX-License-Identifier: MIT
// The debug printers: limbs in hexadecimal, most significant first. Alone in touching stdio, and in a file of their own
// so that a host linking the static library may define a dump of its own.
#include <cinttypes>
#include <cstdio>

#include "wide/coefficient.h"
#include "wide/extended_numeric.h"

using qv8numeric::limb;

static int dump_limbs(std::uint32_t limb3, std::uint32_t limb2, std::uint32_t limb1, std::uint32_t limb0) {
    return std::printf("(%08" PRIx32 ",%08" PRIx32 ",%08" PRIx32 ",%08" PRIx32 ")\n", limb3, limb2, limb1, limb0);
}

extern "C" int dump(const Numeric* value) noexcept {
    return dump_limbs(limb(*value, 3), limb(*value, 2), limb(*value, 1), limb(*value, 0));
}

int dump(const Numeric32* value) noexcept {
    return dump_limbs(value->limb[3], value->limb[2], value->limb[1], value->limb[0]);
}

// The doubled parenthesis is part of the format: tools that read these lines tell the two widths apart by it.
int dump(const ExtendedNumeric* value) noexcept {
    return std::printf("(%08" PRIx32 ",%08" PRIx32 ",%08" PRIx32 ",%08" PRIx32 ",%08" PRIx32 ",%08" PRIx32 ",%08" PRIx32
                       ",%08" PRIx32 "))\n",
                       limb(*value, 7), limb(*value, 6), limb(*value, 5), limb(*value, 4), limb(*value, 3),
                       limb(*value, 2), limb(*value, 1), limb(*value, 0));
}
