/* SPDX-License-Identifier: MIT */
/* A program with uses of its own for the names that QV8NUMERIC_NO_DEBUG leaves out. C99 and C++ alike. */
#include "qv8numeric.h"

double dump(double x, int y);
double dump(double x, int y) { return x + y; }

struct get_truncated_part {
    int member;
};
char get_truncated_part(struct get_truncated_part* self);
char get_truncated_part(struct get_truncated_part* self) { return self->member ? 'y' : 'n'; }

enum { numparse_yylex = 1, numparse_yyparse = 2 };
typedef Numeric numparse_yyerror[2];
