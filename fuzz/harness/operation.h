// SPDX-License-Identifier: MIT
// One function of the library as a target calls it: its arguments drawn from an input, the call compared with the
// model.
#ifndef QV8NUMERIC_FUZZ_OPERATION_H
#define QV8NUMERIC_FUZZ_OPERATION_H

#include <cstdint>
#include <initializer_list>
#include <ostream>
#include <span>
#include <string>
#include <string_view>

#include "source.h"

namespace qv8numeric_fuzz {

inline constexpr std::int32_t kLowestStatus = -3;
inline constexpr std::int32_t kHighestStatus = 4;

// A set of what a function can return.
class Statuses {
  public:
    constexpr Statuses(std::initializer_list<std::int32_t> statuses) {
        for (const std::int32_t status : statuses) bits_ |= bit(status);
    }
    constexpr bool contains(std::int32_t status) const {
        return status >= kLowestStatus && status <= kHighestStatus && (bits_ & bit(status)) != 0;
    }

  private:
    static constexpr unsigned bit(std::int32_t status) { return 1U << (status - kLowestStatus); }
    unsigned bits_ = 0;
};

// Where a call did not do what the model says, in lines of text. Empty as long as it did.
class Differences {
  public:
    bool empty() const { return text_.empty(); }
    const std::string& text() const { return text_; }
    void add(std::string_view what, std::string_view expected, std::string_view found) {
        text_.append("    ").append(what).append(": expected ").append(expected);
        text_.append(", found ").append(found).append("\n");
    }
    void status(std::int32_t expected, std::int32_t found);

  private:
    std::string text_;
};

class Operation {
  public:
    Operation(std::string_view name, Statuses possible) : name_(name), possible_(possible) {}
    virtual ~Operation() = default;
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

    std::string_view name() const { return name_; }

    // What it can return at all; for a comparison or a predicate, its answers.
    const Statuses& possible() const { return possible_; }

    // Takes the arguments of the next call.
    virtual void draw(Source& source) = 0;

    // Makes the call; returns the status that the model gives.
    virtual std::int32_t check(Differences& differences) = 0;

    // The call as statements of C, and what the model expects of it.
    virtual void print(std::ostream& out) = 0;

  private:
    std::string_view name_;
    Statuses possible_;
};

// A target is a program of its own: a name and the functions that it calls.
std::string_view target_name();
std::span<Operation* const> target_operations();

}  // namespace qv8numeric_fuzz

#endif
