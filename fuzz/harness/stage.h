// SPDX-License-Identifier: MIT
// Where the arguments of a call lie while it is made: each between guards, the outputs poisoned. Afterwards every byte
// has to be as before, but for what the model says is written.
#ifndef QV8NUMERIC_FUZZ_STAGE_H
#define QV8NUMERIC_FUZZ_STAGE_H

#include <cstdint>
#include <string>

#include "operation.h"
#include "outcome.h"
#include "source.h"

namespace qv8numeric_fuzz {

inline constexpr std::uint64_t kGuard = 0xc3a5c3a5c3a5c3a5;
inline constexpr std::uint64_t kPoison = 0x5a5a5a5a5a5a5a5a;

// An output that is no coefficient.
union Number {
    std::uint64_t bits;
    std::int64_t int64;
    std::int32_t int32[2];
    double binary64;
};

// All of its members are made of words, so there are no bytes between them.
struct Stage {
    std::uint64_t before_a[2] = {kGuard, kGuard};
    Numeric a{0, 0};
    std::uint64_t before_b[2] = {kGuard, kGuard};
    Numeric b{0, 0};
    std::uint64_t before_result[2] = {kGuard, kGuard};
    Numeric result{kPoison, static_cast<std::int64_t>(kPoison)};
    std::uint64_t before_number[2] = {kGuard, kGuard};
    Number number{kPoison};
    std::uint64_t before_info[2] = {kGuard, kGuard};
    NumericInfo info[3] = {{0, 0}, {0, 0}, {0, 0}};
    std::uint64_t behind[2] = {kGuard, kGuard};
};

// Names where found differs from expected.
void compare(const Stage& expected, const Stage& found, Differences& differences);

// Which arguments are the same object. The names are those of the printed call.
class Sharing {
  public:
    Sharing() = default;
    explicit Sharing(std::uint8_t choice) : choice_(choice) {}

    bool b_is_a() const { return choice_ % 16 == 0; }
    bool infos_are_one() const { return choice_ / 16 % 8 == 0; }

    Numeric& b(Stage& stage) const { return b_is_a() ? stage.a : stage.b; }
    Numeric& result(Stage& stage) const {
        return choice_ % 4 == 1 ? stage.a : choice_ % 4 == 2 ? b(stage) : stage.result;
    }
    NumericInfo& info(Stage& stage, int index) const { return stage.info[infos_are_one() ? 0 : index]; }

    std::string b_name() const { return b_is_a() ? "a" : "b"; }
    std::string result_name() const { return choice_ % 4 == 1 ? "a" : choice_ % 4 == 2 ? b_name() : "result"; }
    std::string info_name(const char* own) const { return infos_are_one() ? "info" : own; }

  private:
    std::uint8_t choice_ = 0xff;
};

// What the model says of a status and an output, for a printed call.
std::string expectation(const Outcome& outcome);

}  // namespace qv8numeric_fuzz

#endif
