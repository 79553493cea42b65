// SPDX-License-Identifier: MIT
// The digits of 0 .. 9999, four at a look.
#ifndef QV8NUMERIC_NUMCONV_CONV_TABLE_H
#define QV8NUMERIC_NUMCONV_CONV_TABLE_H

#include <array>
#include <cstddef>
#include <cstdint>

namespace qv8numeric {

// Entry i holds the decimal digits of i as values, one a byte, units lowest: shifted out from the bottom they come in
// the order in which text is written backwards. A constant, so it is there before the first call of any thread.
inline constexpr auto conv_table = []() {
    std::array<std::uint32_t, 10000> table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        const auto n = static_cast<std::uint32_t>(i);
        table[i] = n / 1000 << 24 | n / 100 % 10 << 16 | n / 10 % 10 << 8 | n % 10;
    }
    return table;
}();
static_assert(sizeof conv_table == 40000);
static_assert(conv_table[0] == 0 && conv_table[1234] == 0x01020304 && conv_table[9999] == 0x09090909);

}  // namespace qv8numeric

#endif
