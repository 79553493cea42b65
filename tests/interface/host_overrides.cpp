// SPDX-License-Identifier: MIT
// A host that defines the library's debugging names itself, to the letter. With the shared library the dynamic linker
// prefers the host's for every call through such a name, so the library must not make one; with the static library none
// of the objects that define them may be needed.
#define QV8NUMERIC_NO_DEBUG
#include "qv8numeric.h"

static int calls = 0;

extern "C" {
int dump(const Numeric*);
int numparse_yylex(void*);
int numparse_yyparse(void*);

int dump(const Numeric*) { return ++calls; }
int numparse_yylex(void*) { return ++calls; }
int numparse_yyparse(void*) { return ++calls; }
}

int32_t get_truncated_part(const Numeric&, uint32_t&);
int32_t get_truncated_part(const Numeric&, uint32_t&) { return ++calls; }

// 1 + 10^-60, rounded up to 2: what is cut off b decides.
static bool adds() {
    const NumericInfo a_info{0, NUMERIC_ROUND_UP}, b_info{60, NUMERIC_ROUND_UP};
    const Numeric one{1, 0};
    Numeric sum{0, 0};
    return QV8NumericRescalingAdd(&a_info, &b_info, &a_info, &one, &one, &sum) == NUMERIC_INEXACT && sum.low == 2;
}

static bool parses() {
    const NumericInfo info{1, NUMERIC_ROUND_UP};
    Numeric value{0, 0};
    char* end = nullptr;
    return QV8NumericStr2Num("1.2", &info, &value, &end) == NUMERIC_OK && value.low == 12 && *end == '\0';
}

int main() { return adds() && parses() && calls == 0 ? 0 : 1; }
