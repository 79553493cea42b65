// SPDX-License-Identifier: MIT
// The exported names of lexer and grammar. In a file of their own so that a host linking the static library may define
// those names itself.
#include "numconv/literal.h"

using namespace qv8numeric;

extern "C" int numparse_yylex(NumberParseState* state) noexcept { return next_token(*state); }

// Nothing is done with it: the result of numparse_yyparse says all.
extern "C" void numparse_yyerror(NumberParseState*, const char*) noexcept {}

// 0 for a number, 1 for anything else. (2 would be an exhausted stack, and there is none.)
extern "C" int numparse_yyparse(NumberParseState* state) noexcept {
    if (read_literal(*state)) return 0;
    numparse_yyerror(state, "syntax error");
    return 1;
}
