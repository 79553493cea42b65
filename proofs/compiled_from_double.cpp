// SPDX-License-Identifier: MIT
#include "compiled.h"
#include "numconv/from_double.cpp"

namespace qv8numeric_proofs {

using namespace qv8numeric;

const std::vector<Function>& functions_of_from_double() {
    static const std::vector<Function> functions{
        {"from_double.scale_by_two", 6,
         [](const std::uint64_t* a) -> Words {
             const FixedPoint x = scale_by_two({pair_at(a), pair_at(a + 2), a[4]}, static_cast<std::int64_t>(a[5]));
             return {x.integer.high, x.integer.low, static_cast<std::uint64_t>(fraction_of(x))};
         }},
        {"from_double.is_out_of_range", 2,
         [](const std::uint64_t* a) -> Words {
             return {one_if(is_out_of_range(static_cast<std::int64_t>(a[0]), static_cast<std::int64_t>(a[1])))};
         }},
    };
    return functions;
}

}  // namespace qv8numeric_proofs
