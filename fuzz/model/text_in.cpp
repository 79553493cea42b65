// SPDX-License-Identifier: MIT
// Reading a literal. The lexer does the arithmetic while the grammar is still deciding, so a token that ends the
// literal may have acted already: both are kept apart here for that reason.
#include "model.h"
#include "scaling.h"

namespace qv8numeric_fuzz::model {
namespace {

enum class Token { kEnd, kPoint, kSign, kLongDigits, kShortDigits, kGroups, kExponent, kBad };

constexpr std::int64_t kLargestExponent = INT32_MAX;

bool is_digit(char character) { return character >= '0' && character <= '9'; }

class Lexer {
  public:
    Lexer(const char* text, bool grouped) : text_(text), cursor_(text), start_(text), grouped_(grouped) {}

    Token next() {
        start_ = cursor_;
        if (is_digit(*cursor_)) return exponent_seen_ ? exponent_digits() : mantissa_digits();
        switch (*cursor_) {
            case ',': return groups();
            case '.':
                ++cursor_;
                point_seen_ = true;
                return Token::kPoint;
            case '+': ++cursor_; return Token::kSign;
            case '-': ++cursor_; return minus();
            case 'E':
            case 'e': ++cursor_; return exponent_marker();
            default: return Token::kEnd;
        }
    }

    // Where the last token began.
    std::size_t position() const { return static_cast<std::size_t>(start_ - text_); }
    bool negative() const { return negative_; }

    // The literal is digits() times 10^-scale().
    Wide digits() const { return exponent_seen_ ? flushed_ : flushed_with_pending(); }
    std::int64_t scale() const {
        const std::int64_t exponent = !exponent_seen_ ? 0 : exponent_negative_ ? -pending_ : pending_;
        return fraction_digits_ - dropped_ - exponent;
    }

  private:
    static constexpr int kPendingDigits = 8;

    Wide flushed_with_pending() const { return flushed_ * power_of_ten(pending_digits_) + pending_; }

    void flush() {
        flushed_ = flushed_with_pending();
        pending_ = 0;
        pending_digits_ = 0;
    }

    void take(char digit) {
        pending_ = pending_ * 10 + (digit - '0');
        ++held_;
        if (point_seen_) ++fraction_digits_;
        if (++pending_digits_ == kPendingDigits) flush();
    }

    // One step of one or three digits: skipped as leading zeros, dropped beyond the limit, or taken.
    void step(int count, int limit) {
        bool zeros = true;
        for (int i = 0; i < count; ++i) zeros = zeros && cursor_[i] == '0';
        if (held_ > limit) {
            dropped_ += count;
            if (point_seen_) fraction_digits_ += count;
        } else if (!zeros || held_ > 0 || point_seen_) {
            for (int i = 0; i < count; ++i) take(cursor_[i]);
        }
        cursor_ += count;
    }
    void step_of_three() { step(3, 42); }
    void step_of_one() { step(1, 40); }

    Token mantissa_digits() {
        const char* end = cursor_;
        while (is_digit(*end)) ++end;
        const Token token = end - cursor_ < 4 ? Token::kShortDigits : Token::kLongDigits;
        while (end - cursor_ >= 3) step_of_three();
        while (cursor_ != end) step_of_one();
        return token;
    }

    // Held back as a number, which takes no part in the mantissa unless a second marker flushes it there.
    Token exponent_digits() {
        const std::int64_t largest = exponent_negative_ ? kLargestExponent + 1 : kLargestExponent;
        const char* const begin = cursor_;
        pending_ = 0;
        for (; is_digit(*cursor_); ++cursor_) {
            pending_ = pending_ * 10 + (*cursor_ - '0');
            if (pending_ > largest) return Token::kBad;
        }
        pending_digits_ = cursor_ - begin;
        return cursor_ - begin < 4 ? Token::kShortDigits : Token::kLongDigits;
    }

    bool at_group() const {
        return *cursor_ == ',' && is_digit(cursor_[1]) && is_digit(cursor_[2]) && is_digit(cursor_[3]) &&
               !is_digit(cursor_[4]);
    }

    Token groups() {
        if (!grouped_) return Token::kEnd;
        if (!at_group()) return Token::kBad;
        while (at_group()) {
            ++cursor_;
            step_of_three();
        }
        return Token::kGroups;
    }

    // Only the first sign of the mantissa and of the exponent can be part of a literal; a later one ends it.
    Token minus() {
        if (exponent_seen_) {
            exponent_negative_ = exponent_negative_ || start_[-1] == 'E' || start_[-1] == 'e';
        } else {
            negative_ = negative_ || start_ == text_;
        }
        return Token::kSign;
    }

    Token exponent_marker() {
        flush();
        exponent_seen_ = true;
        return Token::kExponent;
    }

    const char* const text_;
    const char* cursor_;
    const char* start_;
    const bool grouped_;
    bool negative_ = false;
    bool point_seen_ = false;
    bool exponent_seen_ = false;
    bool exponent_negative_ = false;
    std::int64_t held_ = 0;
    std::int64_t dropped_ = 0;
    std::int64_t fraction_digits_ = 0;
    Wide flushed_;
    std::int64_t pending_ = 0;  // mantissa digits, or the exponent's magnitude
    std::int64_t pending_digits_ = 0;
};

bool is_run(Token token) { return token == Token::kShortDigits || token == Token::kLongDigits; }

// After the marker. A long run and groups complete the literal without a look at what follows.
bool accepts_exponent(Lexer& lexer) {
    Token token = lexer.next();
    if (token == Token::kSign) token = lexer.next();
    if (token == Token::kShortDigits) lexer.next();
    return is_run(token);
}

// Leaves the lexer at the token that ends the literal, or at the last one of it where none has to be read.
bool accepts_number(Lexer& lexer) {
    Token token = lexer.next();
    if (token == Token::kSign) token = lexer.next();
    const bool has_integer = is_run(token);
    if (has_integer) {
        const bool may_be_grouped = token == Token::kShortDigits;
        token = lexer.next();
        if (may_be_grouped && token == Token::kGroups) token = lexer.next();
    }
    if (token == Token::kPoint) {
        token = lexer.next();
        const bool has_fraction = is_run(token);
        if (!has_integer && !has_fraction) return false;
        if (has_fraction) token = lexer.next();
    } else if (!has_integer) {
        return false;
    }
    return token != Token::kExponent || accepts_exponent(lexer);
}

}  // namespace

TextIn text_in(const char* text, const NumericInfo& info, bool grouped) {
    if (*text == '\0') return {{NUMERIC_OK, true, kNan}, false, 0};
    Lexer lexer(text, grouped);
    if (!accepts_number(lexer)) return {{NUMERIC_SYNTAX_ERROR, false, kZero}, true, 0};
    const std::int64_t places = info.scale - lexer.scale();
    return {moved(lexer.digits(), lexer.negative(), places, info.rounding_mode), true, lexer.position()};
}

}  // namespace qv8numeric_fuzz::model
