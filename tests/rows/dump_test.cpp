// SPDX-License-Identifier: MIT
// The debug printers: one line of hexadecimal limbs on standard output, most significant limb first.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include "calls.h"

namespace qv8numeric_tests {
namespace {

// Sends standard output into a temporary file for as long as it lives.
class CapturedOutput {
  public:
    CapturedOutput() : file_(std::tmpfile()), terminal_(dup(STDOUT_FILENO)) {
        std::fflush(stdout);
        dup2(fileno(file_), STDOUT_FILENO);
    }
    ~CapturedOutput() {
        restore();
        std::fclose(file_);
    }
    CapturedOutput(const CapturedOutput&) = delete;
    CapturedOutput& operator=(const CapturedOutput&) = delete;

    // What was printed; output goes back to where it went before.
    std::string text() {
        restore();
        std::string content;
        std::rewind(file_);
        for (int c = std::fgetc(file_); c != EOF; c = std::fgetc(file_)) content.push_back(static_cast<char>(c));
        return content;
    }

  private:
    void restore() {
        if (terminal_ < 0) return;
        std::fflush(stdout);
        dup2(terminal_, STDOUT_FILENO);
        close(terminal_);
        terminal_ = -1;
    }

    std::FILE* file_;
    int terminal_;
};

struct DumpRow {
    const char* name;
    const char* value;
    const char* line;
};

constexpr DumpRow kDumpRows[] = {
    {"zero keeps eight digits per limb", "0", "(00000000,00000000,00000000,00000000)\n"},
    {"one is in the last group", "1", "(00000000,00000000,00000000,00000001)\n"},
    {"minus one is all ones, in lower case", "-1", "(ffffffff,ffffffff,ffffffff,ffffffff)\n"},
    {"NaN", "NaN", "(80000000,00000000,00000000,00000000)\n"},
    {"-2^64", "-2^64", "(ffffffff,ffffffff,00000000,00000000)\n"},
    {"2^64", "2^64", "(00000000,00000001,00000000,00000000)\n"},
    {"2^32", "2^32", "(00000000,00000000,00000001,00000000)\n"},
    {"2^96", "2^96", "(00000001,00000000,00000000,00000000)\n"},
    {"the largest value", "2^127-1", "(7fffffff,ffffffff,ffffffff,ffffffff)\n"},
    {"the smallest value", "-2^127+1", "(80000000,00000000,00000000,00000001)\n"},
    // 0x0123456789abcdeffedcba9876543210
    {"every digit in its place", "1512366075204170947332355369683137040", "(01234567,89abcdef,fedcba98,76543210)\n"},
};

TEST(Dump, ValuePrintsFourGroups) {
    for (const DumpRow& row : kDumpRows) {
        SCOPED_TRACE(row.name);
        const GuardedNumeric object{.value = num(row.value)};
        CapturedOutput output;
        const int printed = dump(&object.value);
        EXPECT_EQ(output.text(), row.line);
        EXPECT_EQ(printed, 38);
    }
}

TEST(Dump, AfterSetNan) {
    Numeric value = kPoison;
    QV8NumericSetNan(&value);
    CapturedOutput output;
    EXPECT_EQ(dump(&value), 38);
    EXPECT_EQ(output.text(), "(80000000,00000000,00000000,00000000)\n");
}

TEST(Dump, LimbsPrintLikeTheValueTheyMakeUp) {
    const Numeric32 limbs{{0x76543210U, 0xfedcba98U, 0x89abcdefU, 0x01234567U}};
    const Numeric32 nan{{0, 0, 0, 0x80000000U}};
    CapturedOutput output;
    EXPECT_EQ(dump(&limbs), 38);
    EXPECT_EQ(dump(&nan), 38);
    EXPECT_EQ(output.text(),
              "(01234567,89abcdef,fedcba98,76543210)\n"
              "(80000000,00000000,00000000,00000000)\n");
}

TEST(Dump, SharesTheStreamWithTheCaller) {
    const Numeric one = num("1");
    CapturedOutput output;
    std::printf("before ");
    dump(&one);
    std::printf("after");
    EXPECT_EQ(output.text(), "before (00000000,00000000,00000000,00000001)\nafter");
}

}  // namespace
}  // namespace qv8numeric_tests
