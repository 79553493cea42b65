// SPDX-License-Identifier: MIT
// What number to text leaves in a buffer of any size, and which complaint comes first.
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <new>

#include "formatting.h"
#include "modes.h"

namespace qv8numeric_tests {
namespace {

using namespace std::string_literals;

constexpr Formatter kFormatters[] = {QV8NumericNum2Str, QV8NumericNum2Dgstr};

std::string filler(std::size_t size) { return std::string(size, kFiller); }

// `text` is right-aligned before a NUL in the last byte of a buffer of `size` bytes that is otherwise untouched.
std::string at_the_end(const std::string& text, std::size_t size) {
    return filler(size - 1 - text.size()) + text + '\0';
}

std::string last(const std::string& text, std::size_t count) { return text.substr(text.size() - count); }

struct Row {
    const char* name;
    const char* value;
    std::int32_t scale;
    std::uint32_t mode;
    std::int32_t exponent_shift;
    std::int32_t output_scale;
    NumericStatus status;
    const char* plain;
    const char* grouped;

    Format format() const { return {num(value), {scale, mode}, exponent_shift, output_scale}; }
};

constexpr Row kRows[] = {
    {"zero", "0", 0, kHalfEven, 0, 0, NUMERIC_OK, "0", "0"},
    {"a sign", "-7", 0, kHalfEven, 0, 0, NUMERIC_OK, "-7", "-7"},
    {"groups", "-1234567", 0, kHalfEven, 0, 0, NUMERIC_OK, "-1234567", "-1,234,567"},
    {"places", "1234567", 0, kHalfEven, 0, 2, NUMERIC_OK, "1234567.00", "1,234,567.00"},
    {"zeros behind the point", "-5", 9, kHalfEven, 0, 9, NUMERIC_OK, "-0.000000005", "-0.000000005"},
    {"a suffix", "12345", 1, kHalfEven, -3, 4, NUMERIC_OK, "1.2345000E+3", "1.2345000E+3"},
    {"a suffix behind zero", "0", 0, kHalfEven, 10000, 0, NUMERIC_OK, "0E-10000", "0E-10000"},
    {"appended zeros", "-12345", 1, kHalfEven, 12, 1, NUMERIC_OK, "-1234500000000000E-12",
     "-1,234,500,000,000,000E-12"},
    {"rounded", "999999995", 1, kHalfUp, 0, 0, NUMERIC_INEXACT, "100000000", "100,000,000"},
    {"rounded to a zero with a sign", "-4", 3, kHalfUp, 0, 2, NUMERIC_INEXACT, "-0.00", "-0.00"},
    {"overflow", "2^127-1", 0, kHalfEven, 2, 1, NUMERIC_OVERFLOW, "1701411834604692317316873037158841057280E-2",
     "1,701,411,834,604,692,317,316,873,037,158,841,057,280E-2"},
    {"negative overflow", "-1", 0, kHalfEven, 0, 39, NUMERIC_UNDERFLOW, "-0.170141183460469231731687303715884105728",
     "-0.170141183460469231731687303715884105728"},
    {"-2^64", "-2^64", 0, kHalfEven, 0, 0, NUMERIC_OK, "-18446744073709551616", "-18,446,744,073,709,551,616"},
};

TEST(FormatBuffer, EverySizeHoldsTheTextOrItsTail) {
    for (const Row& row : kRows) {
        for (const Formatter formatter : kFormatters) {
            const std::string text = formatter == QV8NumericNum2Str ? row.plain : row.grouped;
            for (std::size_t size = 0; size <= text.size() + 3; ++size) {
                SCOPED_TRACE(std::string(row.name) + ", '" + text + "' in " + std::to_string(size) + " bytes");
                const Filled filled = fill(formatter, row.format(), size);
                if (size > text.size()) {
                    EXPECT_EQ(status_name(filled.status), status_name(row.status));
                    EXPECT_EQ(filled.text(), text);
                } else {
                    EXPECT_EQ(status_name(filled.status), "NUMERIC_BUFFER_TOO_SMALL");
                    EXPECT_EQ(filled.buffer, size == 0 ? "" : last(text, size - 1) + '\0');
                }
            }
        }
    }
}

TEST(FormatBuffer, NanNeedsFourBytes) {
    for (const Formatter formatter : kFormatters) {
        for (const std::uint32_t mode : {kHalfEven, 7U, UINT32_MAX}) {
            const Format format = {num("NaN"), {0, mode}, INT32_MIN, INT32_MAX};
            for (const std::size_t size : {0U, 1U, 2U, 3U}) {
                const Filled refused = fill(formatter, format, size);
                EXPECT_EQ(status_name(refused.status), "NUMERIC_BUFFER_TOO_SMALL") << size << " bytes, mode " << mode;
                EXPECT_EQ(refused.buffer, filler(size)) << "mode " << mode;
            }
            const Filled exact = fill(formatter, format, 4);
            EXPECT_EQ(status_name(exact.status), "NUMERIC_NAN") << "mode " << mode;
            EXPECT_EQ(exact.buffer, "NaN\0"s) << "mode " << mode;
        }
    }
}

TEST(FormatBuffer, AbsentBufferOfSizeZero) {
    for (const Formatter formatter : kFormatters) {
        for (const char* value : {"0", "-2^64", "2^127-1", "NaN"}) {
            for (const std::uint32_t mode : {kHalfEven, 7U}) {
                const Numeric number = num(value);
                const NumericInfo info = {0, mode};
                EXPECT_EQ(status_name(formatter(&number, &info, 3, 2, nullptr, 0)), "NUMERIC_BUFFER_TOO_SMALL")
                    << value << ", mode " << mode;
            }
        }
    }
}

// A size with which the buffer would end behind the last address is refused before anything is written.
TEST(FormatBuffer, EndBehindTheLastAddress) {
    for (const Formatter formatter : kFormatters) {
        std::string memory = filler(64);
        const auto address = reinterpret_cast<std::uintptr_t>(memory.data());
        const std::size_t smallest_wrapping = SIZE_MAX - static_cast<std::size_t>(address) + 2;
        for (const std::size_t size : {smallest_wrapping, SIZE_MAX}) {
            for (const std::uint32_t mode : {kHalfEven, 7U}) {
                const Numeric number = num("12345");
                const NumericInfo info = {2, mode};
                EXPECT_EQ(status_name(formatter(&number, &info, 1, 2, memory.data(), size)), "NUMERIC_BUFFER_TOO_SMALL")
                    << size << " bytes, mode " << mode;
                EXPECT_EQ(memory, filler(64));
            }
        }
    }
}

// As a number the size may be beyond the address: the buffer is no nearer to the last address for that.
TEST(FormatBuffer, MoreBytesThanItsAddressSays) {
    constexpr std::size_t kSize = 32 << 20;
    void* const low = reinterpret_cast<void*>(std::uintptr_t{16} << 20);
    void* const memory = mmap(low, kSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(memory, MAP_FAILED);
    if (memory == low) {
        char* const buffer = static_cast<char*>(memory);
        for (const Formatter formatter : kFormatters) {
            for (const std::int32_t exponent_shift : {0, 1}) {  // without an exponent, and with one
                const Numeric number = num("-125");
                const NumericInfo info = {2, kHalfEven};
                EXPECT_EQ(status_name(formatter(&number, &info, exponent_shift, 2, buffer, kSize)), "NUMERIC_OK");
                EXPECT_EQ(std::string(buffer), exponent_shift == 0 ? "-1.25" : "-12.5E-1");
            }
        }
    }
    EXPECT_EQ(munmap(memory, kSize), 0);
    if (memory != low) GTEST_SKIP() << "no memory at a low address";
}

// For NaN the size only has to reach four.
TEST(FormatBuffer, NanLooksAtNothingButFourBytes) {
    for (const Formatter formatter : kFormatters) {
        std::string memory = filler(16);
        const Numeric nan = num("NaN");
        const NumericInfo info = {0, kHalfEven};
        EXPECT_EQ(status_name(formatter(&nan, &info, 0, 0, memory.data(), SIZE_MAX)), "NUMERIC_NAN");
        EXPECT_EQ(memory.substr(0, 4), "NaN\0"s);
    }
}

struct InvalidModeRow {
    const char* name;
    const char* value;
    std::int32_t scale;
    std::int32_t exponent_shift;
    std::int32_t output_scale;
    const char* suffix;
};

constexpr InvalidModeRow kInvalidModeRows[] = {
    {"nothing to round, no suffix", "5", 2, 0, 2, ""},
    {"places to add", "5", 0, 0, 2, ""},
    {"digits to drop", "12345", 4, 0, 2, ""},
    {"zero", "0", 0, 0, 0, ""},
    {"-2^64", "-2^64", 0, 0, 0, ""},
    {"an overflow", "2^127-1", 0, 0, 1, ""},
    {"a suffix", "12345", 1, 12, 1, "E-12"},
    {"a suffix with a plus", "-12345", 4, -3, 1, "E+3"},
    {"a suffix of an overflow", "-1", -100, 10000, 0, "E-10000"},
    {"the longest suffix", "0", 0, INT32_MIN, 0, "E+2147483648"},
};

TEST(FormatBuffer, InvalidModeIsSeenAfterTheSuffixAndBeforeTheDigits) {
    for (const InvalidModeRow& row : kInvalidModeRows) {
        for (const std::uint32_t mode : kInvalidModes) {
            for (const Formatter formatter : kFormatters) {
                const Format format = {num(row.value), {row.scale, mode}, row.exponent_shift, row.output_scale};
                const std::string suffix = row.suffix;
                for (std::size_t size = 0; size <= suffix.size() + 60; ++size) {
                    SCOPED_TRACE(std::string(row.name) + ", mode " + std::to_string(mode) + ", " +
                                 std::to_string(size) + " bytes");
                    const Filled filled = fill(formatter, format, size);
                    if (size > suffix.size()) {
                        EXPECT_EQ(status_name(filled.status), "NUMERIC_INVALID_ARGUMENT");
                        EXPECT_EQ(filled.buffer, at_the_end(suffix, size));
                    } else {
                        EXPECT_EQ(status_name(filled.status), "NUMERIC_BUFFER_TOO_SMALL");
                        EXPECT_EQ(filled.buffer, size == 0 ? "" : last(suffix, size - 1) + '\0');
                    }
                }
            }
        }
    }
}

// Texts of gigabytes in a few bytes: only the tail that fits is ever written.
struct TailRow {
    const char* name;
    const char* value;
    std::int32_t scale;
    std::int32_t exponent_shift;
    std::int32_t output_scale;
    const char* plain;
    const char* grouped;
};

constexpr TailRow kTailRows[] = {
    {"zeros of the largest shift", "7", 0, INT32_MAX, 0, "00000000E-2147483647", ",000,000E-2147483647"},
    {"zeros of the largest shift behind dropped tens", "-12345", 0, INT32_MAX, -1, "00000000E-2147483647",
     ",000,000E-2147483647"},
    {"a fraction of the smallest shift", "5", 0, INT32_MIN, 0, "00000005E+2147483648", "00000005E+2147483648"},
    {"zero with that fraction", "0", 0, INT32_MIN, 0, "00000000E+2147483648", "00000000E+2147483648"},
    {"all digits of that fraction", "2^127-1", 0, INT32_MIN, 0, "84105727E+2147483648", "84105727E+2147483648"},
    {"an overflow with that fraction", "2^127-1", 0, INT32_MIN, 1, "84105728E+2147483648", "84105728E+2147483648"},
    {"the longest fraction there is", "-5", INT32_MAX, INT32_MIN, INT32_MAX, "00000005E+2147483648",
     "00000005E+2147483648"},
    {"the fraction of the largest scale", "1234567890123456789012", INT32_MAX, 0, INT32_MAX, "34567890123456789012",
     "34567890123456789012"},
    {"inner zeros of a long exponent", "-3", 0, -10000, 0, "0000000000003E+10000", "0000000000003E+10000"},
    {"five exponent digits", "-3", 0, -12345, 0, "0000000000003E+12345", "0000000000003E+12345"},
    {"eight zeros in the exponent", "3", 0, -100000000, 0, "0000000003E+100000000", "0000000003E+100000000"},
};

TEST(FormatBuffer, HoldsTheTailOfATextTooLongForAnyMemory) {
    for (const TailRow& row : kTailRows) {
        for (const Formatter formatter : kFormatters) {
            const std::string tail = formatter == QV8NumericNum2Str ? row.plain : row.grouped;
            const Format format = {num(row.value), {row.scale, kDown}, row.exponent_shift, row.output_scale};
            for (std::size_t size = 1; size <= tail.size() + 1; ++size) {
                SCOPED_TRACE(std::string(row.name) + ", " + std::to_string(size) + " bytes");
                const Filled filled = fill(formatter, format, size);
                EXPECT_EQ(status_name(filled.status), "NUMERIC_BUFFER_TOO_SMALL");
                EXPECT_EQ(filled.buffer, last(tail, size - 1) + '\0');
            }
        }
    }
}

TEST(FormatBuffer, WritesAMegabyteOfZeros) {
    constexpr std::int32_t kZeros = 1'000'000;
    const Filled appended = fill(QV8NumericNum2Str, {num("-12"), {0, kHalfEven}, kZeros, 0}, kZeros + 100);
    EXPECT_EQ(status_name(appended.status), "NUMERIC_OK");
    EXPECT_TRUE(appended.text() == "-12" + std::string(kZeros, '0') + "E-1000000");

    const Filled fraction = fill(QV8NumericNum2Dgstr, {num("-12"), {0, kHalfEven}, -kZeros, 0}, kZeros + 100);
    EXPECT_EQ(status_name(fraction.status), "NUMERIC_OK");
    EXPECT_TRUE(fraction.text() == "-0." + std::string(kZeros - 2, '0') + "12E+1000000");
}

// Value and descriptor in the last bytes of the buffer, which are the first ones written.
TEST(FormatBuffer, MayLieOverTheValueAndItsDescriptor) {
    struct Operands {
        Numeric value;
        NumericInfo info;
    };
    for (const Formatter formatter : kFormatters) {
        alignas(Operands) char buffer[64] = {};
        auto* const operands = new (buffer + sizeof buffer - sizeof(Operands)) Operands{num("-5"), {1, kHalfUp}};
        EXPECT_EQ(status_name(formatter(&operands->value, &operands->info, 3, 0, buffer, sizeof buffer)),
                  "NUMERIC_INEXACT");
        EXPECT_EQ(std::string(buffer), formatter == QV8NumericNum2Dgstr ? "-1,000E-3" : "-1000E-3");
    }
}

}  // namespace
}  // namespace qv8numeric_tests
