// SPDX-License-Identifier: MIT
// Text in, plain and grouped. The last byte that may be read is the NUL, mostly that of the text itself.
#include <cstring>

#include "fields.h"
#include "literals.h"
#include "model.h"
#include "operation.h"
#include "show.h"
#include "stage.h"
#include "text_at_page_end.h"

namespace qv8numeric_fuzz {
namespace {

using Function = NumericStatus (*)(const char*, const NumericInfo*, Numeric*, char**);

qv8numeric_tests::TextAtPageEnd& texts() {
    static qv8numeric_tests::TextAtPageEnd room;
    return room;
}

class Parse : public Operation {
  public:
    // NUMERIC_NAN is not possible: the empty text, which is read as NaN, is NUMERIC_OK.
    Parse(const char* name, Function function, bool grouped)
        : Operation(name, {NUMERIC_OK, NUMERIC_INEXACT, NUMERIC_OVERFLOW, NUMERIC_UNDERFLOW, NUMERIC_SYNTAX_ERROR,
                           NUMERIC_INVALID_ARGUMENT}),
          function_(function),
          grouped_(grouped) {}

    void draw(Source& source) override {
        const std::uint8_t choice = source.byte();
        info_ = descriptor(source);
        takes_end_ = choice % 8 != 0;
        text_ = number_text(source);
        // What lies behind the text must not matter; but first of all it must not be read.
        if (choice < 192) text_.resize(std::strlen(text_.c_str()));
    }

    std::int32_t check(Differences& differences) override {
        Stage stage;
        stage.info[0] = info_;
        Stage expected = stage;
        const char* const text = texts().place(text_);
        char ends[3] = {};
        char* end[3] = {&ends[0], &ends[1], &ends[2]};

        const model::TextIn outcome = model::text_in(text_.c_str(), info_, grouped_);
        const NumericStatus status = function_(text, stage.info, &stage.result, takes_end_ ? &end[1] : nullptr);
        differences.status(outcome.outcome.status, status);
        if (outcome.outcome.written) expected.result = outcome.outcome.value;
        compare(expected, stage, differences);

        const char* const expected_end = takes_end_ && outcome.end_written ? text + outcome.end : &ends[1];
        if (end[1] != expected_end) {
            const auto shown = [text, &ends](const char* position) {
                return position == &ends[1] ? "untouched" : "text + " + std::to_string(position - text);
            };
            differences.add("*end", shown(expected_end), shown(end[1]));
        }
        if (end[0] != &ends[0] || end[2] != &ends[2]) differences.add("beside end", "untouched", "written");
        if (std::memcmp(text, text_.c_str(), text_.size() + 1) != 0) differences.add("text", "untouched", "written");
        return outcome.outcome.status;
    }

    void print(std::ostream& out) override {
        const model::TextIn outcome = model::text_in(text_.c_str(), info_, grouped_);
        out << "{\n    const char* text = " << literal(text_) << ";\n    NumericInfo info = " << initializer(info_)
            << ";\n    Numeric result;\n    char* end;\n    " << name() << "(text, &info, &result, "
            << (takes_end_ ? "&end" : "NULL") << "); /* end "
            << (outcome.end_written ? "text + " + std::to_string(outcome.end) : "untouched") << " */ "
            << expectation(outcome.outcome) << "}\n";
    }

  private:
    Function function_;
    bool grouped_;
    bool takes_end_ = false;
    NumericInfo info_{};
    std::string text_;
};

Parse plain("QV8NumericStr2Num", QV8NumericStr2Num, false);
Parse grouped("QV8NumericDgstr2Num", QV8NumericDgstr2Num, true);

Operation* const kOperations[] = {&plain, &grouped};

}  // namespace

std::string_view target_name() { return "text_in"; }
std::span<Operation* const> target_operations() { return kOperations; }

}  // namespace qv8numeric_fuzz
