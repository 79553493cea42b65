// SPDX-License-Identifier: MIT
// A function called with the arguments of a call, whatever its parameters are.
#ifndef QV8NUMERIC_TESTS_SHORT_ROADS_APPLY_H
#define QV8NUMERIC_TESTS_SHORT_ROADS_APPLY_H

#include <cstddef>
#include <cstdint>
#include <tuple>
#include <type_traits>

#include "call.h"

namespace short_roads {

// The braces make the arguments be handed out in the order of the parameters.
template <typename R, typename... A>
std::tuple<A...> list_of(R (*)(A...), Arguments& arguments) {
    return {arguments.next<A>()...};
}

// The same type of function for all. One that returns nothing is done.
template <auto function>
std::int32_t invoke(Arguments arguments) {
    const auto list = list_of(function, arguments);
    if constexpr (std::is_void_v<decltype(std::apply(function, list))>) {
        std::apply(function, list);
        return NUMERIC_OK;
    } else {
        return std::apply(function, list);
    }
}

// So many calls in a row, each on the operand as it was.
template <auto function>
void repeat(const Call& call, Memory& memory, std::uint64_t times) {
    Arguments arguments(call, call.text.c_str(), memory);
    const auto list = list_of(function, arguments);
    Numeric& operand = memory.objects.numerics[call.operand_at[0]].value;
    for (; times > 0; --times) {
        operand = call.operands[0];
        std::apply(function, list);
    }
}

// How many parameters are of a type.
template <typename T, typename R, typename... A>
constexpr std::size_t count_of(R (*)(A...)) {
    return (std::size_t{std::is_same_v<T, A>} + ...);
}

template <typename T, typename R, typename... A>
constexpr bool takes(R (*function)(A...)) {
    return count_of<T>(function) > 0;
}

}  // namespace short_roads

#endif
