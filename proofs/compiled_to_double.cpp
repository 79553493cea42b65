// SPDX-License-Identifier: MIT
#include "compiled.h"
#include "numconv/to_double.cpp"

namespace qv8numeric_proofs {

using namespace qv8numeric;

const std::vector<Function>& functions_of_to_double() {
    static const std::vector<Function> functions{
        {"to_double.leading", 2,
         [](const std::uint64_t* a) -> Words {
             const Leading x = leading(pair_at(a));
             return {x.x.high, x.x.low, x.length};
         }},
        {"to_double.divide", 3,
         [](const std::uint64_t* a) -> Words {
             const Quotient q = divide(pair_at(a), static_cast<unsigned>(a[2]));
             return {q.bits.high, q.bits.low, one_if(q.exact)};
         }},
    };
    return functions;
}

}  // namespace qv8numeric_proofs
