// SPDX-License-Identifier: MIT
#include "parsing.h"

#include <gtest/gtest.h>

#include <cstring>

#include "calls.h"
#include "modes.h"
#include "text_at_page_end.h"

namespace qv8numeric_tests {
namespace {

void expect_parsed(Parser parser, std::string_view text, const NumericInfo& info, const Outcome& expected,
                   std::ptrdiff_t end) {
    const Parsed parsed = parse(parser, text, info);
    EXPECT_EQ(status_name(parsed.outcome.status), status_name(expected.status)) << text;
    EXPECT_EQ(parsed.outcome.value, expected.value) << text;
    EXPECT_EQ(parsed.end, end == kWholeText ? static_cast<std::ptrdiff_t>(text.size()) : end) << text;
}

}  // namespace

Parsed parse(Parser parser, std::string_view text, const NumericInfo& info) {
    static TextAtPageEnd room;
    static char untouched;
    const char* const start = room.place(text);
    const NumericInfo before = info;
    GuardedNumeric result, result_without_end;
    char* end = &untouched;
    const NumericStatus status = parser(start, &info, &result.value, &end);
    const NumericStatus status_without_end = parser(start, &info, &result_without_end.value, nullptr);
    if (status_without_end != status || !(result_without_end.value == result.value)) {
        ADD_FAILURE() << "a null end pointer changed the outcome of '" << text << "'";
    }
    if (!result.guards_intact() || !result_without_end.guards_intact()) ADD_FAILURE() << "wrote beside the result";
    if (!(info == before)) ADD_FAILURE() << "the descriptor changed";
    if (std::memcmp(start, text.data(), text.size()) != 0) ADD_FAILURE() << "the text changed";
    return {{status, result.value}, end == &untouched ? kEndUntouched : end - start};
}

void expect_rows(Parser parser, std::span<const ParseRow> rows) {
    for (const ParseRow& row : rows) {
        SCOPED_TRACE(row.name);
        expect_parsed(parser, row.text, {row.scale, row.mode}, outcome(row.status, row.value), row.end);
    }
}

void expect_rows_of_both(std::span<const ParseRow> rows) {
    for (const Parser parser : kParsers) {
        SCOPED_TRACE(parser == kPlain ? "plain" : "grouped");
        expect_rows(parser, rows);
    }
}

void expect_rows(Parser parser, std::span<const ParseModesRow> rows) {
    for (const ParseModesRow& row : rows) {
        for (const std::uint32_t mode : kModes) {
            SCOPED_TRACE(std::string(row.name) + ", " + mode_name(mode));
            expect_parsed(parser, row.text, {row.scale, mode}, outcome(row.status, in_mode(row.values, mode)),
                          kWholeText);
        }
    }
}

}  // namespace qv8numeric_tests
