// SPDX-License-Identifier: MIT
// From and to machine integers.
#include "fields.h"
#include "model.h"
#include "operation.h"
#include "show.h"
#include "stage.h"

namespace qv8numeric_fuzz {
namespace {

constexpr Statuses kOfFromInteger{NUMERIC_OK, NUMERIC_INEXACT, NUMERIC_OVERFLOW, NUMERIC_UNDERFLOW,
                                  NUMERIC_INVALID_ARGUMENT};
constexpr Statuses kOfToInteger{NUMERIC_OK,       NUMERIC_NAN,       NUMERIC_INEXACT,
                                NUMERIC_OVERFLOW, NUMERIC_UNDERFLOW, NUMERIC_INVALID_ARGUMENT};

std::int64_t drawn(Source& source, std::int64_t) { return machine_integer_64(source); }
std::int32_t drawn(Source& source, std::int32_t) { return machine_integer(source); }

template <typename Integer>
class FromInteger : public Operation {
  public:
    using Function = NumericStatus (*)(Integer, const NumericInfo*, Numeric*);

    FromInteger(const char* name, Function function) : Operation(name, kOfFromInteger), function_(function) {}

    void draw(Source& source) override {
        info_ = descriptor(source);
        value_ = drawn(source, Integer{});
        // As often to fewer places as to more.
        if (source.byte() % 2 == 0 && info_.scale > 0) info_.scale = -info_.scale;
    }

    std::int32_t check(Differences& differences) override {
        Stage stage;
        stage.info[0] = info_;
        Stage expected = stage;
        const Outcome outcome = model::from_integer(value_, info_);
        if (outcome.written) expected.result = outcome.value;
        differences.status(outcome.status, function_(value_, stage.info, &stage.result));
        compare(expected, stage, differences);
        return outcome.status;
    }

    void print(std::ostream& out) override {
        out << "{\n    NumericInfo info = " << initializer(info_) << ";\n    Numeric out;\n    " << name() << "("
            << literal(value_) << ", &info, &out); " << expectation(model::from_integer(value_, info_)) << "}\n";
    }

  private:
    Function function_;
    NumericInfo info_{};
    Integer value_ = 0;
};

std::int64_t& member(Number& number, std::int64_t) { return number.int64; }
std::int32_t& member(Number& number, std::int32_t) { return number.int32[0]; }

template <typename Integer>
class ToInteger : public Operation {
  public:
    using Function = NumericStatus (*)(const Numeric*, const NumericInfo*, Integer*);
    using Model = model::IntegerOutcome (*)(const Numeric&, const NumericInfo&);

    ToInteger(const char* name, Function function, Model model)
        : Operation(name, kOfToInteger), function_(function), model_(model) {}

    void draw(Source& source) override {
        const std::uint8_t choice = source.byte();
        info_ = descriptor(source);
        in_ = coefficient(source, info_.scale);
        // Many of one or two limbs, which alone can have results; and at scale 0, next to the limits.
        if (choice < 64) in_ = {in_.low, 0};
        if (choice < 32) in_ = {in_.low & 0xffffffff, 0};
        if (choice >= 192) info_.scale = choice % 2 == 0 ? 0 : -(info_.scale % 12);
        if (choice >= 240)
            in_ = halves(power_of_two(choice % 4 < 2 ? 31 : 63) * (choice % 8 < 4 ? 1 : -1) + neighbour(choice));
    }

    std::int32_t check(Differences& differences) override {
        Stage stage;
        stage.a = in_;
        stage.info[0] = info_;
        Stage expected = stage;
        const model::IntegerOutcome outcome = model_(in_, info_);
        member(expected.number, Integer{}) = static_cast<Integer>(outcome.value);
        Integer& output = member(stage.number, Integer{});
        differences.status(outcome.status, function_(&stage.a, stage.info, &output));
        compare(expected, stage, differences);
        return outcome.status;
    }

    void print(std::ostream& out) override {
        const model::IntegerOutcome outcome = model_(in_, info_);
        out << "{\n    Numeric in = " << initializer(in_) << "; /* " << decimal(in_)
            << " */\n    NumericInfo info = " << initializer(info_) << ";\n    "
            << (sizeof(Integer) == 8 ? "int64_t" : "int32_t") << " out;\n    " << name() << "(&in, &info, &out); /* "
            << status_name(outcome.status) << ", " << outcome.value << " */\n}\n";
    }

  private:
    Function function_;
    Model model_;
    NumericInfo info_{};
    Numeric in_{};
};

FromInteger<std::int64_t> long_to_numeric("QV8NumericLong2Num", QV8NumericLong2Num);
FromInteger<std::int32_t> int_to_numeric("QV8NumericInt2Num", QV8NumericInt2Num);
ToInteger<std::int64_t> numeric_to_long("QV8NumericNum2Long", QV8NumericNum2Long, model::to_int64);
ToInteger<std::int32_t> numeric_to_int("QV8NumericNum2Int", QV8NumericNum2Int, model::to_int32);

Operation* const kOperations[] = {&long_to_numeric, &int_to_numeric, &numeric_to_long, &numeric_to_int};

}  // namespace

std::string_view target_name() { return "integers"; }
std::span<Operation* const> target_operations() { return kOperations; }

}  // namespace qv8numeric_fuzz
