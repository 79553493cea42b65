// SPDX-License-Identifier: MIT
#include "operation.h"

#include "show.h"

namespace qv8numeric_fuzz {

void Differences::status(std::int32_t expected, std::int32_t found) {
    if (expected != found) add("status", status_name(expected), status_name(found));
}

}  // namespace qv8numeric_fuzz
