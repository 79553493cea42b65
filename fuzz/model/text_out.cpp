// SPDX-License-Identifier: MIT
#include <algorithm>

#include "model.h"
#include "scaling.h"

namespace qv8numeric_fuzz::model {
namespace {

// The end of a text, up to a number of characters; grown towards its start. What finds no room is counted as too much.
class TextEnd {
  public:
    explicit TextEnd(std::size_t room) : room_(room) {}

    bool is_full() const { return full_; }
    void put(char character) {
        full_ = full_ || reversed_.size() == room_;
        if (!full_) reversed_.push_back(character);
    }
    void put(std::string_view characters) {
        std::for_each(characters.rbegin(), characters.rend(), [this](char character) { put(character); });
    }
    std::string text() const { return {reversed_.rbegin(), reversed_.rend()}; }

  private:
    std::size_t room_;
    std::string reversed_;
    bool full_ = false;
};

// value < 10^54.
std::string decimal(const Wide& value) {
    std::string digits;
    Wide left = value;
    do {
        Wide chunk;
        divide_qr(left, power_of_ten(18), left, chunk);
        const std::string next = std::to_string(static_cast<std::uint64_t>(chunk));
        digits.insert(0, left == 0 ? next : std::string(18 - next.size(), '0') + next);
    } while (left != 0);
    return digits;
}

struct Digits {
    NumericStatus status;
    std::string characters;
};

// The value's digits at the output scale; beyond the range, those of 2^127.
Digits digits_at(const Numeric& value, const NumericInfo& info, std::int32_t output_scale) {
    const Outcome outcome =
        moved(magnitude(value), is_negative(value), std::int64_t{output_scale} - info.scale, info.rounding_mode);
    return {outcome.status, decimal(magnitude(outcome.value))};
}

class IntegerPart {
  public:
    IntegerPart(TextEnd& text, bool grouped) : text_(text), grouped_(grouped) {}

    void put(char digit) {
        if (grouped_ && written_ > 0 && written_ % 3 == 0) text_.put(',');
        text_.put(digit);
        ++written_;
    }

  private:
    TextEnd& text_;
    bool grouped_;
    std::int64_t written_ = 0;
};

// The digits with their last places behind a point, or, where places is negative, with so many zeros appended; zero
// gets none.
void put_number(TextEnd& text, std::string digits, std::int64_t places, bool grouped) {
    const auto next_digit = [&digits] {
        if (digits.empty()) return '0';
        const char digit = digits.back();
        digits.pop_back();
        return digit;
    };
    for (std::int64_t i = 0; i < places && !text.is_full(); ++i) text.put(next_digit());
    if (places > 0) {
        text.put('.');
        if (digits.empty()) digits = "0";
    }
    IntegerPart integer_part(text, grouped);
    if (digits != "0") {
        for (std::int64_t i = places; i < 0 && !text.is_full(); ++i) integer_part.put('0');
    }
    while (!digits.empty()) integer_part.put(next_digit());
}

void put_suffix(TextEnd& text, std::int32_t exponent_shift) {
    if (exponent_shift == 0) return;
    const std::int64_t exponent = exponent_shift;
    text.put(std::to_string(exponent < 0 ? -exponent : exponent));
    text.put(exponent > 0 ? "E-" : "E+");
}

}  // namespace

TextOut text_out(const Numeric& value, const NumericInfo& info, std::int32_t exponent_shift, std::int32_t output_scale,
                 bool grouped, std::uintptr_t address, std::size_t size) {
    using Buffer = TextOut::Buffer;
    constexpr TextOut::Buffer kNowhere = Buffer::kUntouched;
    if (is_nan(value)) {
        if (size < 4) return {NUMERIC_BUFFER_TOO_SMALL, kNowhere, ""};
        return {NUMERIC_NAN, Buffer::kText, "NaN"};
    }
    if (size == 0 || size > UINTPTR_MAX - address) return {NUMERIC_BUFFER_TOO_SMALL, kNowhere, ""};

    TextEnd text(size - 1);
    put_suffix(text, exponent_shift);
    if (text.is_full()) return {NUMERIC_BUFFER_TOO_SMALL, Buffer::kTail, text.text()};
    if (!is_valid_mode(info.rounding_mode)) return {NUMERIC_INVALID_ARGUMENT, Buffer::kTail, text.text()};

    const Digits digits = digits_at(value, info, output_scale);
    const std::int64_t places = std::max<std::int64_t>(output_scale, 0) - exponent_shift;
    put_number(text, digits.characters, places, grouped);
    if (is_negative(value)) text.put('-');
    if (text.is_full()) return {NUMERIC_BUFFER_TOO_SMALL, Buffer::kTail, text.text()};
    return {digits.status, Buffer::kText, text.text()};
}

}  // namespace qv8numeric_fuzz::model
