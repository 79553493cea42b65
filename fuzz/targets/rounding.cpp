// SPDX-License-Identifier: MIT
// Rounding to a number of places, and from one scale to another.
#include <algorithm>

#include "fields.h"
#include "model.h"
#include "operation.h"
#include "rounding.h"
#include "show.h"
#include "stage.h"

namespace qv8numeric_fuzz {
namespace {

using Round = NumericStatus (*)(const NumericInfo*, std::int32_t, Numeric*);

class RoundToPlaces : public Operation {
  public:
    // mode: that of the function, or above all modes where it takes the descriptor's.
    RoundToPlaces(const char* name, Statuses possible, Round function, std::uint32_t mode)
        : Operation(name, possible), function_(function), mode_(mode) {}

    void draw(Source& source) override {
        NumericInfo infos[2];
        descriptors(source, infos);
        info_ = infos[0];
        places_ = infos[1].scale;
        num_ = coefficient(source, std::max<std::int64_t>(std::int64_t{info_.scale} - places_, 0));
    }

    std::int32_t check(Differences& differences) override {
        Stage stage;
        stage.a = num_;
        stage.info[0] = info_;
        Stage expected = stage;
        const Outcome outcome = expected_outcome();
        if (outcome.written) expected.a = outcome.value;
        differences.status(outcome.status, function_(stage.info, places_, &stage.a));
        compare(expected, stage, differences);
        return outcome.status;
    }

    void print(std::ostream& out) override {
        out << "{\n    Numeric num = " << initializer(num_) << "; /* " << decimal(num_)
            << " */\n    NumericInfo info = " << initializer(info_) << ";\n    " << name() << "(&info, "
            << literal(places_) << ", &num); " << expectation(expected_outcome()) << "}\n";
    }

  private:
    Outcome expected_outcome() const {
        const std::uint32_t mode = is_valid_mode(mode_) ? mode_ : info_.rounding_mode;
        return model::round_to_places(info_.scale, places_, mode, num_);
    }

    Round function_;
    std::uint32_t mode_;
    NumericInfo info_{};
    std::int32_t places_ = 0;
    Numeric num_{};
};

// Beyond 38 more places, sources whose product leaves the range and is let through all the same.
struct LetThrough {
    const char* source;
    std::int32_t places;
};
constexpr LetThrough kLetThrough[] = {
    {"123897535483928329103220953959296061403", 41},
    {"166600883694731896832553913086626783484", 80},
    {"107934196843166079644664139084775959480", 88},
};

class Rescale : public Operation {
  public:
    Rescale() : Operation("QV8NumericRescale", {NUMERIC_OK, NUMERIC_NAN, NUMERIC_OVERFLOW, NUMERIC_INVALID_ARGUMENT}) {}

    void draw(Source& source) override {
        const std::uint8_t choice = source.byte();
        sharing_ = Sharing(source.byte());
        descriptors(source, infos_);
        source_ = coefficient(source, std::int64_t{infos_[0].scale} - infos_[1].scale);
        if (choice < 32) take_departing_product(choice);
    }

    std::int32_t check(Differences& differences) override {
        Stage stage;
        stage.a = source_;
        stage.b = stage.result;
        std::copy(std::begin(infos_), std::end(infos_), stage.info);
        Stage expected = stage;
        const Outcome outcome = expected_outcome();
        if (outcome.written) sharing_.result(expected) = outcome.value;
        differences.status(outcome.status,
                           QV8NumericRescale(stage.info, &sharing_.info(stage, 1), &stage.a, &sharing_.result(stage)));
        compare(expected, stage, differences);
        return outcome.status;
    }

    void print(std::ostream& out) override {
        out << "{\n    Numeric a = " << initializer(source_) << ", b, result; /* " << decimal(source_)
            << " */\n    NumericInfo info = " << initializer(infos_[0]) << ", to = " << initializer(infos_[1])
            << ";\n    QV8NumericRescale(&info, &" << sharing_.info_name("to") << ", &a, &" << sharing_.result_name()
            << "); " << expectation(expected_outcome()) << "}\n";
    }

  private:
    Outcome expected_outcome() const {
        return model::rescale(infos_[0], infos_[sharing_.infos_are_one() ? 0 : 1], source_);
    }

    // A product beyond the range whose bits 128 to 255 are four times the same limb: the smallest multiple of 10^places
    // above such bits and zeros. With 30 to 38 places its factor is a coefficient, and its lower half below 2^127.
    void take_departing_product(std::uint8_t choice) {
        std::int32_t places = 30 + choice % 9;
        const Wide limb = source_.low & 0x7fffffff;
        const Wide upper = limb * ((power_of_two(128) - 1) / (power_of_two(32) - 1)) * power_of_two(128);
        Wide factor = (upper + power_of_ten(places) - 1) / power_of_ten(places);
        if (choice >= 24) {
            const LetThrough& known = kLetThrough[choice % std::size(kLetThrough)];
            places = known.places;
            factor = Wide(known.source);
        }
        source_ = replaced(source_, choice % 2 == 0 ? factor : Wide(-factor));
        infos_[0].scale = 0;
        infos_[1].scale = places;
    }

    Sharing sharing_;
    NumericInfo infos_[2] = {};
    Numeric source_{};
};

class TruncatedPart : public Operation {
  public:
    TruncatedPart() : Operation("get_truncated_part", {-1, 0, 1}) {}

    void draw(Source& source) override {
        value_ = coefficient(source);
        flag_ = source.word32();
        if (flag_ % 4 == 0) flag_ = 0;
    }

    std::int32_t check(Differences& differences) override {
        Stage stage;
        stage.a = value_;
        const Stage expected = stage;
        std::uint32_t flag = flag_;
        const std::int32_t sign = model::truncated_part(value_, flag_);
        differences.status(sign, get_truncated_part(stage.a, flag));
        if (flag != flag_) differences.add("flag", std::to_string(flag_), std::to_string(flag));
        compare(expected, stage, differences);
        return sign;
    }

    void print(std::ostream& out) override {
        out << "{\n    Numeric value = " << initializer(value_) << ";\n    uint32_t flag = " << flag_
            << ";\n    get_truncated_part(value, flag); /* " << model::truncated_part(value_, flag_) << " */\n}\n";
    }

  private:
    Numeric value_{};
    std::uint32_t flag_ = 0;
};

// A magnitude that is rounded towards zero cannot leave the range: Ceil never does on the negative side, Floor never on
// the positive one.
RoundToPlaces ceil_to_places("QV8NumericCeil", {NUMERIC_OK, NUMERIC_NAN, NUMERIC_INEXACT, NUMERIC_OVERFLOW},
                             QV8NumericCeil, NUMERIC_ROUND_CEILING);
RoundToPlaces floor_to_places("QV8NumericFloor", {NUMERIC_OK, NUMERIC_NAN, NUMERIC_INEXACT, NUMERIC_UNDERFLOW},
                              QV8NumericFloor, NUMERIC_ROUND_FLOOR);
RoundToPlaces round_by_mode("QV8NumericRound",
                            {NUMERIC_OK, NUMERIC_NAN, NUMERIC_INEXACT, NUMERIC_OVERFLOW, NUMERIC_UNDERFLOW,
                             NUMERIC_INVALID_ARGUMENT},
                            QV8NumericRound, UINT32_MAX);
Rescale rescale;
TruncatedPart truncated_part;

Operation* const kOperations[] = {&ceil_to_places, &floor_to_places, &round_by_mode, &rescale, &truncated_part};

}  // namespace

std::string_view target_name() { return "rounding"; }
std::span<Operation* const> target_operations() { return kOperations; }

}  // namespace qv8numeric_fuzz
