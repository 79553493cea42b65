// SPDX-License-Identifier: MIT
#include "debugging.h"

#include <cstddef>
#include <string>

#include "numconv/literal.h"
#include "short_roads/draw.h"
#include "short_roads/operands.h"

namespace machines {
namespace {

using short_roads::Random;

constexpr std::uint64_t kTextSeed = 20260201;
constexpr std::uint64_t kDumpSeed = 20260202;
constexpr std::uint64_t kDumps = 64;
constexpr int kMostTokens = 16;

NumberParseState state_at(const std::string& text, std::uint64_t number) {
    NumberParseState state{};
    state.token_start = state.cursor = text.c_str();
    state.mode = number % 4 == 0 ? qv8numeric::format_plain : qv8numeric::format_grouped;
    return state;
}

void add_state(const NumberParseState& state, const std::string& text, Digest& digest) {
    digest.add_signed(state.token_start - text.c_str());
    digest.add_signed(state.cursor - text.c_str());
    digest.add_signed(state.mode);
    digest.add_signed(state.digits_held);
    digest.add_signed(state.digits_dropped);
    digest.add_signed(state.fraction_digits);
    digest.add(state.chunk);
    digest.add(state.chunk_digits);
    digest.add(state.negative);
    digest.add(state.overflow);
    for (const std::uint64_t word : state.accumulator.word) digest.add(word);
    digest.add(state.flags);
}

void parse(NumberParseState& state, const std::string& text, Digest& answers) {
    const int failed = numparse_yyparse(&state);
    answers.add_signed(failed);
    if (failed == 0) add_state(state, text, answers);
}

void read_tokens(NumberParseState& state, const std::string& text, Digest& answers) {
    for (int turn = 0; turn < kMostTokens; ++turn) {
        const int token = numparse_yylex(&state);
        answers.add_signed(token);
        add_state(state, text, answers);
        if (token == qv8numeric::TOK_END || token == qv8numeric::TOK_BAD) return;
    }
}

void report_error(NumberParseState& state, const std::string& text, Digest& answers) {
    numparse_yyerror(&state, text.c_str());
    add_state(state, text, answers);
}

// The same value in each of the three types.
void dump_all(const Numeric& value, Digest& answers) {
    const reference::Limbs limbs = reference::pattern(value);
    const auto high = static_cast<std::uint64_t>(value.high);
    const Numeric32 narrow{{limbs[0], limbs[1], limbs[2], limbs[3]}};
    const ExtendedNumeric wide{{value.low, high, ~value.low, ~high}};
    answers.add_signed(dump(&value));
    answers.add_signed(dump(&narrow));
    answers.add_signed(dump(&wide));
}

}  // namespace

void print_parser(std::uint64_t cases, Table& table) {
    static constexpr struct {
        const char* name;
        void (*call)(NumberParseState& state, const std::string& text, Digest& answers);
    } kEntryPoints[] = {
        {"numparse_yyparse", parse}, {"numparse_yylex", read_tokens}, {"numparse_yyerror", report_error}};
    for (const auto& entry_point : kEntryPoints) {
        Row row(entry_point.name);
        for (; row.calls < cases; ++row.calls) {
            Random random(kTextSeed, row.calls);
            short_roads::Call call;
            short_roads::draw_grouped_text_in(random, call);
            row.arguments.add(call.text.data(), call.text.size());
            NumberParseState state = state_at(call.text, row.calls);
            entry_point.call(state, call.text, row.answers);
        }
        table.print(row);
    }
}

void print_dumps(Table& table) {
    Row row("dump");
    for (std::uint64_t number = 0; number < kDumps; ++number) {
        Random random(kDumpSeed, number);
        const Numeric value = short_roads::shaped_coefficient(random).value;
        row.arguments.add(value);
        dump_all(value, row.answers);
        row.calls += 3;
    }
    table.print(row);
}

}  // namespace machines
