// SPDX-License-Identifier: MIT
// Text out, plain and grouped, into buffers of every size.
#include <algorithm>
#include <array>
#include <cstring>
#include <new>

#include "fields.h"
#include "model.h"
#include "operation.h"
#include "show.h"
#include "stage.h"

namespace qv8numeric_fuzz {
namespace {

using Function = NumericStatus (*)(const Numeric*, const NumericInfo*, std::int32_t, std::int32_t, char*, std::size_t);

constexpr std::size_t kMargin = 64;
constexpr std::size_t kRoom = 512;

// The buffer between two margins; in all of it each byte differs from the next, so that a shifted byte is seen.
struct Memory {
    alignas(16) std::array<char, kMargin + kRoom + kMargin> bytes;

    Memory() {
        static const auto pattern = [] {
            std::array<char, kMargin + kRoom + kMargin> result{};
            for (std::size_t i = 0; i < result.size(); ++i) result[i] = static_cast<char>(0x80 + i % 0x7f);
            return result;
        }();
        bytes = pattern;
    }
};

class Format : public Operation {
  public:
    Format(const char* name, Function function, bool grouped)
        : Operation(name, {NUMERIC_OK, NUMERIC_NAN, NUMERIC_INEXACT, NUMERIC_OVERFLOW, NUMERIC_UNDERFLOW,
                           NUMERIC_BUFFER_TOO_SMALL, NUMERIC_INVALID_ARGUMENT}),
          function_(function),
          grouped_(grouped) {}

    void draw(Source& source) override {
        placing_ = source.byte();
        NumericInfo infos[2];
        descriptors(source, infos);
        info_ = infos[0];
        output_scale_ = infos[1].scale;
        exponent_shift_ = shift(source);
        value_ = coefficient(source, std::int64_t{info_.scale} - output_scale_);
        size_ = size(source);
    }

    std::int32_t check(Differences& differences) override {
        Memory memory;
        Numeric value_apart = value_;
        NumericInfo info_apart = info_;
        char* const room = memory.bytes.data() + kMargin;
        const Numeric& value = value_overlaps() ? *new (room + 8 * (placing_ % 4)) Numeric(value_) : value_apart;
        const NumericInfo& info = info_overlaps() ? *new (room + 48) NumericInfo(info_) : info_apart;
        Memory expected = memory;

        char* const buffer = is_null() ? nullptr : room + offset();
        const model::TextOut outcome = expected_outcome(reinterpret_cast<std::uintptr_t>(buffer));
        const NumericStatus status = function_(&value, &info, exponent_shift_, output_scale_, buffer, size_);
        differences.status(outcome.status, status);
        if (size_ == sufficient_size() && is_promised() && status == NUMERIC_BUFFER_TOO_SMALL) {
            differences.add("size", "sufficient", std::to_string(size_));
        }
        expect_written(outcome, memory, expected);
        compare_memory(expected, memory, differences);
        if (!value_overlaps() && std::memcmp(&value_apart, &value_, sizeof value_) != 0) {
            differences.add("value", initializer(value_), initializer(value_apart));
        }
        if (!info_overlaps() && std::memcmp(&info_apart, &info_, sizeof info_) != 0) {
            differences.add("info", initializer(info_), initializer(info_apart));
        }
        return outcome.status;
    }

    void print(std::ostream& out) override {
        const model::TextOut outcome = expected_outcome(is_null() ? 0 : kMargin);
        out << "{\n    Numeric value = " << initializer(value_) << "; /* " << decimal(value_)
            << " */\n    NumericInfo info = " << initializer(info_) << ";\n";
        if (value_overlaps()) out << "    /* value lies " << 8 * (placing_ % 4) << " bytes into the memory */\n";
        if (info_overlaps()) out << "    /* info lies 48 bytes into the memory */\n";
        out << "    char memory[" << kRoom << "], *buffer = " << (is_null() ? "NULL" : "memory");
        if (!is_null()) out << " + " << offset();
        out << ";\n    " << name() << "(&value, &info, " << literal(exponent_shift_) << ", " << literal(output_scale_)
            << ", buffer, " << size_ << "); /* " << status_name(outcome.status) << ", " << literal(outcome.characters)
            << " */\n}\n";
    }

  private:
    bool value_overlaps() const { return placing_ % 8 == 1; }
    bool info_overlaps() const { return placing_ % 16 >= 14; }
    bool is_null() const { return size_ == 0 && placing_ % 2 == 0; }
    std::size_t offset() const { return placing_ / 16 % 8; }

    model::TextOut expected_outcome(std::uintptr_t address) const {
        return model::text_out(value_, info_, exponent_shift_, output_scale_, grouped_, address, size_);
    }

    // What the header's macros say.
    std::size_t sufficient_size() const {
        return grouped_ ? QV8NUMERIC_GROUPED_TEXT_SIZE(exponent_shift_, output_scale_)
                        : QV8NUMERIC_TEXT_SIZE(exponent_shift_, output_scale_);
    }

    // On a 32-bit machine larger arguments may give a size that leaves size_t.
    bool is_promised() const {
        constexpr std::int64_t kMost = 1'000'000'000;
        return sizeof(std::size_t) > sizeof(std::uint32_t) ||
               (std::abs(std::int64_t{exponent_shift_}) <= kMost && std::abs(std::int64_t{output_scale_}) <= kMost);
    }

    static std::int32_t shift(Source& source) {
        const std::uint8_t choice = source.byte();
        const std::int32_t drawn = scale(source);
        return choice < 128 ? 0 : choice < 192 ? -(drawn % 64) : drawn;
    }

    std::size_t size(Source& source) const {
        constexpr std::size_t kLargest = kRoom - 8;
        const std::uint8_t choice = source.byte();
        const std::size_t payload = source.word16();
        if (choice < 16) return payload % 16;
        if (choice < 32) return payload % 80;
        if (choice < 40) return payload % (kLargest + 1);
        if (choice < 44) return SIZE_MAX - payload % 64;
        if (choice < 128) return just_enough(payload % 4);
        const std::size_t sufficient = sufficient_size();
        if (sufficient > kLargest) return kLargest;
        return choice < 144 ? std::min(sufficient - 1 + payload % 3, kLargest) : sufficient;
    }

    // One or two bytes less than needed, as many, or one more.
    std::size_t just_enough(std::size_t choice) const {
        constexpr std::size_t kLargest = kRoom - 8;
        const std::size_t length =
            model::text_out(value_, info_, exponent_shift_, output_scale_, grouped_, 0, kLargest).characters.size();
        return std::min(length + choice < 1 ? 0 : length + choice - 1, kLargest);
    }

    void expect_written(const model::TextOut& outcome, const Memory& found, Memory& expected) const {
        using Buffer = model::TextOut::Buffer;
        if (outcome.buffer == Buffer::kUntouched) return;
        char* const begin = expected.bytes.data() + kMargin + offset();
        const std::size_t length = outcome.characters.size();
        const std::size_t start = outcome.buffer == Buffer::kText ? 0 : size_ - 1 - length;
        std::copy_n(outcome.characters.begin(), length, begin + start);
        begin[start + length] = '\0';
        if (outcome.buffer != Buffer::kText) return;
        // What lies behind the text is unspecified, up to the size.
        const std::size_t end = std::min(size_, kRoom - 8);
        const char* const found_begin = found.bytes.data() + kMargin + offset();
        if (length + 1 < end) std::copy(found_begin + length + 1, found_begin + end, begin + length + 1);
    }

    void compare_memory(const Memory& expected, const Memory& found, Differences& differences) const {
        if (expected.bytes == found.bytes) return;
        const auto at = std::mismatch(expected.bytes.begin(), expected.bytes.end(), found.bytes.begin());
        const auto position = at.first - expected.bytes.begin() - static_cast<std::ptrdiff_t>(kMargin + offset());
        constexpr std::size_t kShown = 48;
        const auto shown = [&](const Memory& memory, auto begin) {
            const auto left = static_cast<std::size_t>(memory.bytes.end() - begin);
            return literal(std::string_view(&*begin, std::min(kShown, left)));
        };
        differences.add("buffer[" + std::to_string(position) + "] and on", shown(expected, at.first),
                        shown(found, at.second));
    }

    Function function_;
    bool grouped_;
    std::uint8_t placing_ = 0;
    Numeric value_{};
    NumericInfo info_{};
    std::int32_t exponent_shift_ = 0;
    std::int32_t output_scale_ = 0;
    std::size_t size_ = 0;
};

Format plain("QV8NumericNum2Str", QV8NumericNum2Str, false);
Format grouped("QV8NumericNum2Dgstr", QV8NumericNum2Dgstr, true);

Operation* const kOperations[] = {&plain, &grouped};

}  // namespace

std::string_view target_name() { return "text_out"; }
std::span<Operation* const> target_operations() { return kOperations; }

}  // namespace qv8numeric_fuzz
