// SPDX-License-Identifier: MIT
#include "formatting.h"

#include <gtest/gtest.h>

#include "calls.h"

namespace qv8numeric_tests {

Filled fill(Formatter formatter, const Format& format, std::size_t buffer_size) {
    constexpr std::size_t kGuard = 32;
    const std::string guard(kGuard, kFiller);
    std::string memory(kGuard + buffer_size + kGuard, kFiller);
    const Format before = format;
    const NumericStatus status = formatter(&format.value, &format.info, format.exponent_shift, format.output_scale,
                                           memory.data() + kGuard, buffer_size);
    if (!(format.value == before.value) || !(format.info == before.info)) ADD_FAILURE() << "an operand changed";
    if (memory.compare(0, kGuard, guard) != 0) ADD_FAILURE() << "wrote before the buffer";
    if (memory.compare(kGuard + buffer_size, kGuard, guard) != 0) ADD_FAILURE() << "wrote behind the buffer";
    return {status, memory.substr(kGuard, buffer_size)};
}

void expect_rows(Formatter formatter, std::span<const FormatRow> rows) {
    for (const FormatRow& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string expected = row.text;
        for (const std::size_t size : {expected.size() + 100, expected.size() + 1}) {
            const Filled filled = fill(formatter, row.format(), size);
            EXPECT_EQ(status_name(filled.status), status_name(row.status)) << "in " << size << " bytes";
            EXPECT_EQ(filled.text(), expected) << "in " << size << " bytes";
        }
        const Filled refused = fill(formatter, row.format(), expected.size());
        EXPECT_EQ(status_name(refused.status), "NUMERIC_BUFFER_TOO_SMALL") << "one byte short";
    }
}

}  // namespace qv8numeric_tests
