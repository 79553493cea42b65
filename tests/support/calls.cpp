// SPDX-License-Identifier: MIT
#include "calls.h"

#include <string_view>

namespace qv8numeric_tests {
namespace {

// Collects what went wrong over several calls; silent, and cheap, while nothing does.
class Comparison {
  public:
    explicit Comparison(const Outcome& expected) : expected_(expected) {}

    void result(std::string_view arrangement, const Outcome& actual, const Numeric& held_before) {
        const Outcome wanted = {expected_.status, expected_.value == kUntouched ? held_before : expected_.value};
        if (!(actual == wanted)) fail(arrangement) << "left " << actual << ", expected " << wanted;
    }

    void operand(std::string_view arrangement, const GuardedNumeric& actual, const Numeric& held_before) {
        if (!(actual.value == held_before)) fail(arrangement) << "an operand became " << actual.value;
    }

    void guards(std::string_view arrangement, const GuardedNumeric& object) {
        if (!object.guards_intact()) fail(arrangement) << "wrote beside a coefficient";
    }

    const testing::AssertionResult& verdict() const { return verdict_; }

  private:
    testing::AssertionResult& fail(std::string_view arrangement) {
        if (verdict_) verdict_ = testing::AssertionFailure();
        return verdict_ << "\n  " << arrangement << ": ";
    }

    Outcome expected_;
    testing::AssertionResult verdict_ = testing::AssertionSuccess();
};

}  // namespace

testing::AssertionResult yields(const BinaryOperation& operation, const Numeric& a, const Numeric& b,
                                const Outcome& expected) {
    Comparison comparison(expected);
    const auto call = [&](std::string_view arrangement, GuardedNumeric& first, GuardedNumeric& second,
                          GuardedNumeric& result) {
        const Numeric held_before = result.value;
        const NumericStatus status = operation(&first.value, &second.value, &result.value);
        comparison.result(arrangement, {status, result.value}, held_before);
        if (&first != &result) comparison.operand(arrangement, first, a);
        if (&second != &result) comparison.operand(arrangement, second, b);
        for (const GuardedNumeric* object : {&first, &second, &result}) comparison.guards(arrangement, *object);
    };
    {
        GuardedNumeric first{.value = a}, second{.value = b}, result;
        call("a result of its own", first, second, result);
    }
    {
        GuardedNumeric first{.value = a}, second{.value = b};
        call("the result is the first operand", first, second, first);
    }
    {
        GuardedNumeric first{.value = a}, second{.value = b};
        call("the result is the second operand", first, second, second);
    }
    if (a == b) {
        GuardedNumeric both{.value = a}, result;
        call("one object for both operands", both, both, result);
        call("one object for all three", both, both, both);
    }
    return comparison.verdict();
}

testing::AssertionResult yields(const UnaryOperation& operation, const Numeric& source, const Outcome& expected) {
    Comparison comparison(expected);
    const auto call = [&](std::string_view arrangement, GuardedNumeric& from, GuardedNumeric& to) {
        const Numeric held_before = to.value;
        const NumericStatus status = operation(&from.value, &to.value);
        comparison.result(arrangement, {status, to.value}, held_before);
        if (&from != &to) comparison.operand(arrangement, from, source);
        for (const GuardedNumeric* object : {&from, &to}) comparison.guards(arrangement, *object);
    };
    GuardedNumeric object{.value = source}, result;
    call("a result of its own", object, result);
    call("the result is the source", object, object);
    return comparison.verdict();
}

testing::AssertionResult yields(const InPlaceOperation& operation, const Numeric& value, const Outcome& expected) {
    Comparison comparison(expected);
    GuardedNumeric object{.value = value};
    const NumericStatus status = operation(&object.value);
    comparison.result("in place", {status, object.value}, value);
    comparison.guards("in place", object);
    return comparison.verdict();
}

}  // namespace qv8numeric_tests
