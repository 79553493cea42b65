// SPDX-License-Identifier: MIT
// Values of one scale, and arithmetic with machine integers.
#include "fields.h"
#include "model.h"
#include "operation.h"
#include "show.h"
#include "stage.h"

namespace qv8numeric_fuzz {
namespace {

// Now and then an operand for which the result lies at a limit, or next to zero.
Numeric partner(const Numeric& a, const Numeric& drawn, std::uint8_t choice, int sign_of_sum) {
    const Wide limit = choice % 2 == 0 ? power_of_two(127) : Wide(-power_of_two(127));
    const Wide goal = choice < 16 ? limit : Wide(0);
    return choice < 32 ? replaced(drawn, (goal + neighbour(choice) - signed_value(a)) * sign_of_sum) : drawn;
}

using Binary = NumericStatus (*)(const Numeric*, const Numeric*, Numeric*);
using BinaryModel = Outcome (*)(const Numeric&, const Numeric&);

class AddOrSubtract : public Operation {
  public:
    AddOrSubtract(const char* name, Binary function, BinaryModel model, int sign)
        : Operation(name, {NUMERIC_OK, NUMERIC_NAN, NUMERIC_OVERFLOW, NUMERIC_UNDERFLOW}),
          function_(function),
          model_(model),
          sign_(sign) {}

    void draw(Source& source) override {
        sharing_ = Sharing(source.byte());
        a_ = coefficient(source);
        const std::uint8_t choice = source.byte();
        b_ = partner(a_, coefficient(source), choice, sign_);
    }

    std::int32_t check(Differences& differences) override {
        Stage stage;
        stage.a = a_;
        stage.b = b_;
        Stage expected = stage;
        const Outcome outcome = model_(a_, sharing_.b_is_a() ? a_ : b_);
        sharing_.result(expected) = outcome.value;
        differences.status(outcome.status, function_(&stage.a, &sharing_.b(stage), &sharing_.result(stage)));
        compare(expected, stage, differences);
        return outcome.status;
    }

    void print(std::ostream& out) override {
        out << "{\n    Numeric a = " << initializer(a_) << ", b = " << initializer(b_) << ", result;\n    " << name()
            << "(&a, &" << sharing_.b_name() << ", &" << sharing_.result_name() << "); "
            << expectation(model_(a_, sharing_.b_is_a() ? a_ : b_)) << "}\n";
    }

  private:
    Binary function_;
    BinaryModel model_;
    int sign_;
    Sharing sharing_;
    Numeric a_{}, b_{};
};

class Compare : public Operation {
  public:
    Compare() : Operation("QV8NumericCmp", {-1, 0, 1}) {}

    void draw(Source& source) override {
        sharing_ = Sharing(source.byte());
        a_ = coefficient(source);
        const std::uint8_t choice = source.byte();
        b_ = partner(a_, coefficient(source), choice, -1);
    }

    std::int32_t check(Differences& differences) override {
        Stage stage;
        stage.a = a_;
        stage.b = b_;
        const Stage expected = stage;
        const std::int32_t order = model::compare(a_, sharing_.b(stage));
        differences.status(order, QV8NumericCmp(&stage.a, &sharing_.b(stage)));
        compare(expected, stage, differences);
        return order;
    }

    void print(std::ostream& out) override {
        out << "{\n    Numeric a = " << initializer(a_) << ", b = " << initializer(b_) << ";\n    QV8NumericCmp(&a, &"
            << sharing_.b_name() << "); /* " << model::compare(a_, sharing_.b_is_a() ? a_ : b_) << " */\n}\n";
    }

  private:
    Sharing sharing_;
    Numeric a_{}, b_{};
};

// x is both operand and result.
class WithMachineInteger : public Operation {
  public:
    using Operation::Operation;

    std::int32_t check(Differences& differences) override {
        Stage stage;
        stage.a = x_;
        stage.info[0] = info_;
        Stage expected = stage;
        const Outcome outcome = expected_outcome();
        expected.a = outcome.value;
        differences.status(outcome.status, call(stage));
        compare(expected, stage, differences);
        return outcome.status;
    }

  protected:
    virtual Outcome expected_outcome() const = 0;
    virtual NumericStatus call(Stage& stage) const = 0;

    Numeric x_{};
    NumericInfo info_{};
    std::int32_t integer_ = 0;
};

class Multiply : public WithMachineInteger {
  public:
    Multiply() : WithMachineInteger("QV8NumericMul", {NUMERIC_OK, NUMERIC_NAN, NUMERIC_UNDERFLOW}) {}

    void draw(Source& source) override {
        integer_ = machine_integer(source);
        x_ = coefficient(source);
        // Now and then a product at a limit.
        const std::uint8_t choice = source.byte();
        if (choice < 32 && integer_ != 0) {
            const Wide limit = power_of_two(127) / integer_ + neighbour(choice);
            x_ = replaced(x_, choice % 2 == 0 ? limit : Wide(-limit));
        }
    }

    void print(std::ostream& out) override {
        out << "{\n    Numeric x = " << initializer(x_) << ";\n    QV8NumericMul(&x, " << literal(integer_) << "); "
            << expectation(expected_outcome()) << "}\n";
    }

  private:
    Outcome expected_outcome() const override { return model::multiply(x_, integer_); }
    NumericStatus call(Stage& stage) const override { return QV8NumericMul(&stage.a, integer_); }
};

class Divide : public WithMachineInteger {
  public:
    Divide()
        : WithMachineInteger("QV8NumericDiv", {NUMERIC_OK, NUMERIC_NAN, NUMERIC_INEXACT, NUMERIC_INVALID_ARGUMENT}) {}

    void draw(Source& source) override {
        integer_ = machine_integer(source);
        info_ = descriptor(source);
        x_ = coefficient(source);
        // Now and then a multiple of the divisor, or a tie between two.
        const std::uint8_t choice = source.byte();
        if (choice < 64) {
            const Wide divisor = abs(Wide(integer_));
            const Wide half = choice % 2 == 0 ? Wide(0) : Wide(divisor / 2);
            x_ = replaced(x_, Wide(x_.low) * divisor + half + (choice < 32 ? 0 : neighbour(choice)));
        }
    }

    void print(std::ostream& out) override {
        out << "{\n    Numeric x = " << initializer(x_) << ";\n    NumericInfo info = " << initializer(info_)
            << ";\n    QV8NumericDiv(&x, &info, " << literal(integer_) << "); " << expectation(expected_outcome())
            << "}\n";
    }

  private:
    Outcome expected_outcome() const override { return model::divide(x_, info_.rounding_mode, integer_); }
    NumericStatus call(Stage& stage) const override { return QV8NumericDiv(&stage.a, stage.info, integer_); }
};

class Predicate : public Operation {
  public:
    Predicate(const char* name, int (*function)(const Numeric*), const Numeric& pattern)
        : Operation(name, {0, 1}), function_(function), pattern_(pattern) {}

    // Mostly a pattern that differs in one bit or not at all.
    void draw(Source& source) override {
        const std::uint8_t choice = source.byte();
        value_ = coefficient(source);
        if (choice < 224) value_ = pattern_;
        if (choice < 64) value_.low ^= std::uint64_t{1} << choice;
        if (choice >= 64 && choice < 128) {
            value_.high =
                static_cast<std::int64_t>(static_cast<std::uint64_t>(value_.high) ^ std::uint64_t{1} << (choice - 64));
        }
    }

    std::int32_t check(Differences& differences) override {
        Stage stage;
        stage.a = value_;
        const Stage expected = stage;
        differences.status(answer(), function_(&stage.a));
        compare(expected, stage, differences);
        return answer();
    }

    void print(std::ostream& out) override {
        out << "{\n    Numeric v = " << initializer(value_) << ";\n    " << name() << "(&v); /* " << answer()
            << " */\n}\n";
    }

  private:
    int answer() const { return value_.low == pattern_.low && value_.high == pattern_.high ? 1 : 0; }

    int (*function_)(const Numeric*);
    Numeric pattern_;
    Numeric value_{};
};

class Setter : public Operation {
  public:
    Setter(const char* name, void (*function)(Numeric*), const Numeric& pattern)
        : Operation(name, {NUMERIC_OK}), function_(function), pattern_(pattern) {}

    void draw(Source& source) override { before_ = coefficient(source); }

    std::int32_t check(Differences& differences) override {
        Stage stage;
        stage.a = before_;
        Stage expected = stage;
        expected.a = pattern_;
        function_(&stage.a);
        compare(expected, stage, differences);
        return NUMERIC_OK;
    }

    void print(std::ostream& out) override {
        out << "{\n    Numeric out = " << initializer(before_) << ";\n    " << name() << "(&out); /* "
            << decimal(pattern_) << " */\n}\n";
    }

  private:
    void (*function_)(Numeric*);
    Numeric pattern_;
    Numeric before_{};
};

AddOrSubtract add("QV8NumericAdd", QV8NumericAdd, model::add, 1);
AddOrSubtract subtract("QV8NumericSub", QV8NumericSub, model::subtract, -1);
Compare compare_coefficients;
Multiply multiply;
Divide divide_by_integer;
Predicate is_zero("QV8NumericIsZero", QV8NumericIsZero, kZero);
Predicate is_nan_pattern("QV8NumericIsNan", QV8NumericIsNan, kNan);
Setter set_zero("QV8NumericSetZero", QV8NumericSetZero, kZero);
Setter set_nan("QV8NumericSetNan", QV8NumericSetNan, kNan);

Operation* const kOperations[] = {
    &add,      &subtract, &compare_coefficients, &multiply, &divide_by_integer, &is_zero, &is_nan_pattern,
    &set_zero, &set_nan};

}  // namespace

std::string_view target_name() { return "same_scale"; }
std::span<Operation* const> target_operations() { return kOperations; }

}  // namespace qv8numeric_fuzz
