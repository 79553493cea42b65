// SPDX-License-Identifier: MIT
// Arithmetic and comparison of values whose scales differ.
#include <algorithm>

#include "fields.h"
#include "model.h"
#include "operation.h"
#include "show.h"
#include "stage.h"

namespace qv8numeric_fuzz {
namespace {

// Two operands, each with its descriptor, and a third one for the result.
class Rescaling : public Operation {
  public:
    using Operation::Operation;

    void draw(Source& source) override {
        sharing_ = Sharing(source.byte());
        const std::uint8_t choice = source.byte();
        descriptors(source, infos_);
        draw_operands(source, choice);
    }

  protected:
    virtual void draw_operands(Source& source, std::uint8_t choice) = 0;

    const NumericInfo& info(int index) const { return infos_[sharing_.infos_are_one() ? 0 : index]; }
    const Numeric& b() const { return sharing_.b_is_a() ? a_ : b_; }

    Stage stage() const {
        Stage stage;
        stage.a = a_;
        stage.b = b_;
        std::copy(std::begin(infos_), std::end(infos_), stage.info);
        return stage;
    }

    void print_arguments(std::ostream& out) const {
        out << "{\n    Numeric a = " << initializer(a_) << "; /* " << decimal(a_)
            << " */\n    Numeric b = " << initializer(b_) << "; /* " << decimal(b_)
            << " */\n    NumericInfo info = " << initializer(infos_[0]) << ", b_info = " << initializer(infos_[1])
            << ", result_info = " << initializer(infos_[2]) << ";\n    ";
    }

    Sharing sharing_;
    NumericInfo infos_[3] = {};
    Numeric a_{}, b_{};
};

using Function = NumericStatus (*)(const NumericInfo*, const NumericInfo*, const NumericInfo*, const Numeric*,
                                   const Numeric*, Numeric*);
using Model = Outcome (*)(const NumericInfo&, const NumericInfo&, const NumericInfo&, const Numeric&, const Numeric&);

class Arithmetic : public Rescaling {
  public:
    Arithmetic(const char* name, Function function, Model model)
        : Rescaling(name, {NUMERIC_OK, NUMERIC_NAN, NUMERIC_INEXACT, NUMERIC_OVERFLOW, NUMERIC_UNDERFLOW,
                           NUMERIC_INVALID_ARGUMENT}),
          function_(function),
          model_(model) {}

    std::int32_t check(Differences& differences) override {
        Stage stage = this->stage();
        Stage expected = stage;
        const Outcome outcome = expected_outcome();
        if (outcome.written) sharing_.result(expected) = outcome.value;
        differences.status(outcome.status, function_(stage.info, &sharing_.info(stage, 1), &sharing_.info(stage, 2),
                                                     &stage.a, &sharing_.b(stage), &sharing_.result(stage)));
        compare(expected, stage, differences);
        return outcome.status;
    }

    void print(std::ostream& out) override {
        print_arguments(out);
        out << "Numeric result;\n    " << name() << "(&info, &" << sharing_.info_name("b_info") << ", &"
            << sharing_.info_name("result_info") << ", &a, &" << sharing_.b_name() << ", &" << sharing_.result_name()
            << "); " << expectation(expected_outcome()) << "}\n";
    }

  private:
    Outcome expected_outcome() const { return model_(info(0), info(1), info(2), a_, b()); }

    Function function_;
    Model model_;
};

// Operands on whose sum a limit or a tie can lie; sign is that of b in it.
class Sum : public Arithmetic {
  public:
    Sum(const char* name, Function function, Model model, int sign) : Arithmetic(name, function, model), sign_(sign) {}

  private:
    void draw_operands(Source& source, std::uint8_t choice) override {
        a_ = coefficient(source, std::int64_t{info(0).scale} - info(2).scale);
        b_ = coefficient(source, std::int64_t{info(1).scale} - info(2).scale);
        const std::int64_t more = std::int64_t{info(1).scale} - info(0).scale;
        if (choice < 48 && more >= 0 && more <= 38) take_complement(source.byte(), more);
    }

    // b so that the sum, at the result's scale, is within two units of a limit or of zero.
    void take_complement(std::uint8_t choice, std::int64_t more) {
        const std::int64_t distance = std::int64_t{info(2).scale} - info(1).scale;
        Wide goal = choice % 4 < 2 ? power_of_two(127) : Wide(0);
        if (distance > 0 && distance < 40) goal /= power_of_ten(distance);
        if (distance < 0 && distance > -40) goal *= power_of_ten(-distance);
        if (choice % 2 == 0) goal = -goal;
        b_ = replaced(b_, (goal + neighbour(choice) - signed_value(a_) * power_of_ten(more)) * sign_);
    }

    int sign_;
};

// Products at ties: one factor a tie, the other small and odd.
class Product : public Arithmetic {
  public:
    using Arithmetic::Arithmetic;

  private:
    void draw_operands(Source& source, std::uint8_t choice) override {
        const std::int64_t places = std::int64_t{info(0).scale} + info(1).scale - info(2).scale;
        a_ = coefficient(source, places);
        b_ = coefficient(source);
        if (choice < 96) b_ = replaced(b_, choice % 2 == 0 ? choice : -choice);
        if (choice >= 96 && choice < 128) take_limit(choice, places);
    }

    // b so that the product, at the result's scale, is near a limit.
    void take_limit(std::uint8_t choice, std::int64_t places) {
        if (a_.low == 0 || places < -38 || places > 38) return;
        Wide limit = power_of_two(127);
        if (places < 0) limit /= power_of_ten(-places);
        if (places > 0) limit *= power_of_ten(places);
        const Wide a = signed_value(a_);
        b_ = replaced(b_, (choice % 2 == 0 ? limit : Wide(-limit)) / a + neighbour(choice));
    }
};

class Quotients : public Arithmetic {
  public:
    using Arithmetic::Arithmetic;

  private:
    void draw_operands(Source& source, std::uint8_t choice) override {
        const std::int64_t places = std::int64_t{info(2).scale} - info(0).scale + info(1).scale;
        b_ = coefficient(source);
        a_ = coefficient(source, -places);
        if (choice < 64) take_multiple(choice, places);
        if (choice >= 64 && choice < 80) take_departing_dividend(choice);
    }

    // A dividend whose quotient is whole, half way between two, or next to either.
    void take_multiple(std::uint8_t choice, std::int64_t places) {
        Wide divisor = signed_value(b_);
        if (places < 0) divisor *= power_of_ten(std::min<std::int64_t>(-places, 40));
        const Wide twice = Wide(a_.low) * 2 + (choice % 2 == 0 ? 1 : 0);
        Wide dividend = divisor * twice / 2;
        if (places > 0) dividend /= power_of_ten(std::min<std::int64_t>(places, 40));
        a_ = replaced(a_, dividend + (choice < 32 ? 0 : neighbour(choice)));
    }

    // A divisor of one word below a dividend that is a multiple of 2^224 and less than 2^192.
    void take_departing_dividend(std::uint8_t choice) {
        const std::int32_t places = 30 + 2 * (choice % 16);
        const Wide upper = Wide(a_.low >> (32 + choice % 32)) * power_of_two(224);
        a_ = replaced(a_, (upper + power_of_ten(places) - 1) / power_of_ten(places));
        b_ = replaced(b_, Wide(b_.low >> choice % 64));
        for (NumericInfo& info : infos_) info.scale = 0;
        infos_[2].scale = places;
    }
};

class RescalingCompare : public Rescaling {
  public:
    RescalingCompare() : Rescaling("QV8NumericRescalingCmp", {NUMERIC_INVALID_ARGUMENT, -1, 0, 1}) {}

    std::int32_t check(Differences& differences) override {
        Stage stage = this->stage();
        const Stage expected = stage;
        const std::int32_t order = expected_outcome();
        differences.status(order,
                           QV8NumericRescalingCmp(stage.info, &sharing_.info(stage, 1), &stage.a, &sharing_.b(stage)));
        compare(expected, stage, differences);
        return order;
    }

    void print(std::ostream& out) override {
        print_arguments(out);
        out << name() << "(&info, &" << sharing_.info_name("b_info") << ", &a, &" << sharing_.b_name() << "); /* "
            << expected_outcome() << " */\n}\n";
    }

  private:
    std::int32_t expected_outcome() const { return model::rescaling_compare(info(0), info(1), a_, b()); }

    // Often the same value at another scale, or one unit beside it.
    void draw_operands(Source& source, std::uint8_t choice) override {
        a_ = coefficient(source);
        b_ = coefficient(source);
        const std::int64_t more = std::int64_t{info(1).scale} - info(0).scale;
        if (choice < 64 && more >= 0 && more < 39) {
            b_ = replaced(b_, signed_value(a_) * power_of_ten(more) + neighbour(choice));
        } else if (choice < 64 && more < 0 && more > -39) {
            b_ = replaced(b_, signed_value(a_) / power_of_ten(-more) + neighbour(choice));
        }
    }
};

Sum add("QV8NumericRescalingAdd", QV8NumericRescalingAdd, model::rescaling_add, 1);
Sum subtract("QV8NumericRescalingSub", QV8NumericRescalingSub, model::rescaling_subtract, -1);
RescalingCompare compare_values;
Product multiply("QV8NumericRescalingMul", QV8NumericRescalingMul, model::rescaling_multiply);
Quotients divide_values("QV8NumericRescalingDiv", QV8NumericRescalingDiv, model::rescaling_divide);

Operation* const kOperations[] = {&add, &subtract, &compare_values, &multiply, &divide_values};

}  // namespace

std::string_view target_name() { return "rescaling"; }
std::span<Operation* const> target_operations() { return kOperations; }

}  // namespace qv8numeric_fuzz
