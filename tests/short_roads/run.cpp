// SPDX-License-Identifier: MIT
#include "run.h"

#include <cstddef>
#include <cstdio>
#include <string>

#include "comparison.h"
#include "random.h"
#include "walk.h"

namespace short_roads {
namespace {

// Of a call: where it stands in the plan, in words that lead back to it.
using Place = std::string (*)(const Plan& plan, std::uint64_t number);

std::string place_in_walk(const Plan&, std::uint64_t number) {
    return "call " + std::to_string(number) + " of the walk";
}

std::string place_among_drawn(const Plan& plan, std::uint64_t number) {
    return "--seed " + std::to_string(plan.seed) + " --case " + std::to_string(number);
}

const Operation& drawn_operation(Random& random) {
    static const std::uint64_t shares = [] {
        std::uint64_t sum = 0;
        for (const Operation& operation : operations()) sum += operation.share;
        return sum;
    }();
    std::uint64_t turn = random.below(shares);
    const Operation* operation = operations().data();
    for (; turn >= operation->share; ++operation) turn -= operation->share;
    return *operation;
}

// All calls of the plan in order, until the visitor has had enough.
using Visitor = std::function<bool(const Operation& operation, const Call& call, Place place, std::uint64_t number)>;

void visit_calls(const Plan& plan, const Visitor& visit) {
    std::uint64_t number = 0;
    bool going_on = true;
    if (plan.walk_every != 0) {
        for (const auto walk : {walk_ties, walk_texts, walk_doubles}) {
            walk([&](const Operation& operation, const Call& call) {
                if (number++ % plan.walk_every != 0) return;
                going_on = going_on && visit(operation, call, place_in_walk, number - 1);
            });
        }
    }
    for (number = plan.first_case; going_on && number < plan.first_case + plan.cases; ++number) {
        Random random(plan.seed, number);
        const Operation& operation = drawn_operation(random);
        Call call;
        operation.draw(random, call);
        going_on = visit(operation, call, place_among_drawn, number);
    }
}

void count_outcome(const Operation& operation, std::int32_t status, Progress& progress) {
    const std::ptrdiff_t row = &operation - operations().data();
    if (-3 <= status && status <= 4) ++progress.outcomes[row][status + 3];
}

}  // namespace

void run(const Plan& plan, Progress& progress) {
    Comparison comparison;
    visit_calls(plan, [&](const Operation& operation, const Call& call, Place place, std::uint64_t number) {
        ++progress.calls;
        const bool agrees = comparison.agrees(operation, call);
        count_outcome(operation, comparison.status(), progress);
        if (!agrees) ++progress.differences;
        if (!agrees || plan.showing) {
            std::printf("%s: %s\n", place(plan, number).c_str(), comparison.report(operation, call).c_str());
            std::fflush(stdout);
        }
        return progress.differences < kMostDifferences;
    });
}

void print_call(const Plan& plan, std::uint64_t wanted) {
    std::uint64_t at = 0;
    visit_calls(plan, [&](const Operation& operation, const Call& call, Place place, std::uint64_t number) {
        if (++at < wanted) return true;
        std::printf("%s: %s", place(plan, number).c_str(), in_words(operation, call).c_str());
        return false;
    });
}

}  // namespace short_roads
