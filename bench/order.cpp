// SPDX-License-Identifier: MIT
#include "order.h"

#include "inputs.h"

namespace qv8numeric_bench {
namespace {

Repetition chosen = Repetition::kDrawn;

std::vector<std::uint16_t> draw_order() {
    Draw draw{1};
    std::vector<std::uint16_t> indices;
    indices.reserve(Order::kLength);
    while (indices.size() < Order::kLength) {
        const std::size_t index = chosen == Repetition::kDrawn ? draw.below(kCalls) : indices.size() % kCalls;
        indices.push_back(static_cast<std::uint16_t>(index));
    }
    return indices;
}

}  // namespace

const std::vector<std::uint16_t>& order_of_calls() {
    static const std::vector<std::uint16_t> indices = draw_order();
    return indices;
}

void set_order(Repetition repetition) { chosen = repetition; }

}  // namespace qv8numeric_bench
