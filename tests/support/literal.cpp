// SPDX-License-Identifier: MIT
#include "literal.h"

#include <algorithm>
#include <string>

#include "exact.h"

namespace qv8numeric_tests {
namespace {

constexpr std::string_view kDigits = "0123456789";

bool is_short(std::string_view run) { return 1 <= run.size() && run.size() <= 3; }

class Reader {
  public:
    Reader(std::string_view text, bool grouped) : text_(text), grouped_(grouped) {}

    Literal read() {
        const bool negative = sign() == '-';
        if (!mantissa()) return {};
        if (!late_groups() && skip("Ee") && !exponent()) return {};
        return {true, static_cast<std::ptrdiff_t>(end_), negative, std::stoll(digits_), exponent_ - places_};
    }

  private:
    bool next_is(std::string_view characters) const {
        return at_ < text_.size() && characters.find(text_[at_]) != std::string_view::npos;
    }

    bool skip(std::string_view characters) {
        const bool found = next_is(characters);
        if (found) ++at_;
        return found;
    }

    // '+' where there is none.
    char sign() {
        const char found = next_is("+-") ? text_[at_] : '+';
        skip("+-");
        return found;
    }

    std::string run() {
        const std::size_t start = at_;
        at_ = std::min(text_.find_first_not_of(kDigits, at_), text_.size());
        return std::string(text_.substr(start, at_ - start));
    }

    // The digits of the groups that begin here.
    std::string groups() {
        std::string digits;
        while (grouped_ && next_is(",")) {
            const std::string_view behind = text_.substr(at_ + 1);
            if (std::min(behind.find_first_not_of(kDigits), behind.size()) != 3) break;
            digits += behind.substr(0, 3);
            at_ += 4;
        }
        return digits;
    }

    bool mantissa() {
        digits_ = run();
        may_group_ = is_short(digits_);
        if (may_group_) digits_ += groups();
        const bool has_integer = !digits_.empty();
        point_ = skip(".");
        if (point_) {
            const std::string fraction = run();
            digits_ += fraction;
            places_ = static_cast<std::int64_t>(fraction.size());
        }
        end_ = at_;
        return has_integer || places_ != 0;
    }

    // Groups behind a long run or a point end the number. Looking one character ahead has taken their digits all the
    // same.
    bool late_groups() {
        if (may_group_ && !point_) return false;
        const std::string late = groups();
        digits_ += late;
        if (point_) places_ += static_cast<std::int64_t>(late.size());
        return !late.empty();
    }

    bool exponent() {
        const bool negative = sign() == '-';
        const std::size_t start = at_;
        std::string value = run();
        if (value.empty()) return false;
        if (is_short(value)) {
            end_ = at_;
            value = behind_short_exponent(value);
        } else {
            end_ = start;  // a long exponent is accepted without a look at what follows it
        }
        exponent_ = std::stoll(value);
        if (exponent_ > INT32_MAX + std::int64_t{negative}) return false;
        if (negative) exponent_ = -exponent_;
        return true;
    }

    // The whole exponent. Its groups count as mantissa digits: behind a point they move the mantissa, and a mantissa
    // without a digit passes over their zeros, which cannot be seen, because that mantissa is zero.
    std::string behind_short_exponent(const std::string& value) {
        const std::string more = groups();
        if (point_) places_ += static_cast<std::int64_t>(more.size());
        if (!more.empty() || !next_is("Ee")) return value + more;
        digits_ += value;  // a second marker pushes the exponent into the mantissa
        return "0";
    }

    std::string_view text_;
    bool grouped_;
    std::size_t at_ = 0;
    std::size_t end_ = 0;
    std::string digits_;
    std::int64_t places_ = 0;
    std::int64_t exponent_ = 0;
    bool may_group_ = false;
    bool point_ = false;
};

}  // namespace

Literal read_literal(std::string_view text, bool grouped) { return Reader(text, grouped).read(); }

Outcome coefficient_at(const Literal& literal, const NumericInfo& info) {
    if (literal.digits == 0) return outcome(NUMERIC_OK, "0");
    const cpp_int digits = literal.negative ? -literal.digits : literal.digits;
    // Eleven digits leave the range, or vanish far below half a unit, long before sixty places.
    const auto places = std::clamp<std::int64_t>(literal.exponent + info.scale, -60, 60);
    return narrowed(cut({digits, 1}, static_cast<int>(places)), info.rounding_mode);
}

}  // namespace qv8numeric_tests
