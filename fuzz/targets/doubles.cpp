// SPDX-License-Identifier: MIT
// From and to doubles, which are made and compared as bits.
#include <bit>

#include "fields.h"
#include "model.h"
#include "operation.h"
#include "show.h"
#include "stage.h"

namespace qv8numeric_fuzz {
namespace {

constexpr int kFractionBits = 52;
constexpr std::uint64_t kFraction = (std::uint64_t{1} << kFractionBits) - 1;
constexpr std::uint64_t kBias = 1023;
constexpr std::uint64_t kFields = 2048;

std::uint64_t fraction(unsigned selector, std::uint64_t payload) {
    switch (selector % 8) {
        case 0: return 0;
        case 1: return 1;
        case 2: return kFraction;
        case 3: return std::uint64_t{1} << payload % kFractionBits;
        case 4: return kFraction & ~(kFraction >> payload % kFractionBits);
        default: return payload & kFraction;
    }
}

// log2(10) is a little above 3.32: where 10^scale times the double comes near 2^bits.
std::uint64_t field_near(std::int64_t bits, std::int64_t scale, std::uint8_t choice) {
    const std::int64_t field = std::int64_t{kBias} + bits - scale * 332 / 100 + choice % 8 - 4;
    return static_cast<std::uint64_t>(field < 0 ? 0 : field) % kFields;
}

std::uint64_t exponent_field(unsigned selector, std::uint8_t choice, std::int64_t scale) {
    switch (selector % 16) {
        case 0: return 0;
        case 1: return 1;
        case 2: return kFields - 1;
        case 3: return kFields - 2;
        case 4:
        case 5: return kBias + choice % 128;
        case 6:
        case 7: return kBias - choice % 64;
        case 8:
        case 9:
        case 10: return field_near(127, scale, choice);
        case 11:
        case 12: return field_near(choice % 128, scale, choice);
        case 13: return field_near(0, scale, choice);
        default: return (selector >> 4) * 16 * 8 + choice % 128;
    }
}

// The bits of a double for this scale: every class, the limits, and values near which the result begins or ends.
std::uint64_t double_bits(Source& source, std::int64_t scale) {
    const unsigned selector = source.byte();
    const std::uint8_t choice = source.byte();
    const std::uint64_t payload = source.word64();
    const std::uint64_t sign = payload & kSignBit;
    if (selector % 16 == 15) return payload;
    // An integer divided by a power of two: exact, and a tie when half of one unit is left.
    return sign | exponent_field(selector, choice, scale) << kFractionBits | fraction(choice >> 5, payload);
}

class FromDouble : public Operation {
  public:
    FromDouble()
        : Operation("QV8NumericDbl2Num", {NUMERIC_OK, NUMERIC_NAN, NUMERIC_INEXACT, NUMERIC_OVERFLOW, NUMERIC_UNDERFLOW,
                                          NUMERIC_INVALID_ARGUMENT}) {}

    void draw(Source& source) override {
        const std::uint8_t choice = source.byte();
        info_ = descriptor(source);
        if (choice < 64) info_.scale = -(info_.scale % 400);
        if (choice >= 192) info_.scale = info_.scale % 64 * 8 + choice % 8;
        bits_ = double_bits(source, info_.scale);
    }

    std::int32_t check(Differences& differences) override {
        Stage stage;
        stage.info[0] = info_;
        Stage expected = stage;
        const Outcome outcome = model::from_double(info_, bits_);
        if (outcome.written) expected.result = outcome.value;
        differences.status(outcome.status, QV8NumericDbl2Num(stage.info, &stage.result, std::bit_cast<double>(bits_)));
        compare(expected, stage, differences);
        return outcome.status;
    }

    void print(std::ostream& out) override {
        out << "{\n    NumericInfo info = " << initializer(info_)
            << ";\n    Numeric out;\n    uint64_t bits = " << hexadecimal(bits_) << ";\n    double value; /* "
            << std::bit_cast<double>(bits_)
            << " */\n    memcpy(&value, &bits, 8);\n    QV8NumericDbl2Num(&info, &out, value); "
            << expectation(model::from_double(info_, bits_)) << "}\n";
    }

  private:
    NumericInfo info_{};
    std::uint64_t bits_ = 0;
};

class ToDouble : public Operation {
  public:
    ToDouble()
        : Operation("QV8NumericNum2Dbl", {NUMERIC_OK, NUMERIC_NAN, NUMERIC_INEXACT, NUMERIC_OVERFLOW, NUMERIC_UNDERFLOW,
                                          NUMERIC_INVALID_ARGUMENT}) {}

    // Also where doubles end: at scales near -270 .. -308 and 290 .. 362.
    void draw(Source& source) override {
        const std::uint8_t choice = source.byte();
        info_ = descriptor(source);
        in_ = coefficient(source);
        if (choice < 64) info_.scale = -(info_.scale % 400);
        if (choice >= 192) info_.scale = 286 + choice % 64 + info_.scale % 20;
        if (choice >= 176 && choice < 192) info_.scale = -270 - info_.scale % 40;
        if (choice >= 64 && choice < 96) take_near_double(choice);
        if (choice >= 96 && choice < 104) take_near_infinity();
    }

    std::int32_t check(Differences& differences) override {
        Stage stage;
        stage.a = in_;
        stage.info[0] = info_;
        Stage expected = stage;
        const model::DoubleOutcome outcome = model::to_double(in_, info_);
        if (outcome.written) expected.number.bits = outcome.bits;
        differences.status(outcome.status, QV8NumericNum2Dbl(&stage.a, stage.info, &stage.number.binary64));
        compare(expected, stage, differences);
        return outcome.status;
    }

    void print(std::ostream& out) override {
        const model::DoubleOutcome outcome = model::to_double(in_, info_);
        out << "{\n    Numeric in = " << initializer(in_) << "; /* " << decimal(in_)
            << " */\n    NumericInfo info = " << initializer(info_) << ";\n    double out;\n    " << name()
            << "(&in, &info, &out); /* " << status_name(outcome.status) << ", "
            << (outcome.written ? hexadecimal(outcome.bits) : "untouched") << " */\n}\n";
    }

  private:
    // At or half way between two doubles of 53 bits, or next to either.
    void take_near_double(std::uint8_t choice) {
        const Wide significand = (in_.low & (2 * kFraction + 1)) * Wide(2) + choice % 2;
        const Wide value = significand * power_of_two(choice % 64) + (choice % 4 < 2 ? 0 : neighbour(choice));
        in_ = replaced(in_, is_negative(in_) ? Wide(-value) : value);
        info_.scale = choice < 80 ? 0 : info_.scale;
    }

    // The first digits of 2^1024, as many as round up to it, and their neighbours.
    void take_near_infinity() {
        constexpr std::string_view kDigits = "17976931348623159077293051907890247336";  // of 309
        constexpr std::int32_t kAll = 309;
        const auto taken = static_cast<std::int32_t>(16 + in_.low % 23);
        const Wide value(std::string(kDigits.substr(0, static_cast<std::size_t>(taken))));
        const Wide beside = value + neighbour(static_cast<std::uint8_t>(in_.low >> 56));
        in_ = halves(is_negative(in_) ? Wide(-beside) : beside);
        info_.scale = taken - kAll;
    }

    NumericInfo info_{};
    Numeric in_{};
};

FromDouble from_double;
ToDouble to_double;

Operation* const kOperations[] = {&from_double, &to_double};

}  // namespace

std::string_view target_name() { return "doubles"; }
std::span<Operation* const> target_operations() { return kOperations; }

}  // namespace qv8numeric_fuzz
