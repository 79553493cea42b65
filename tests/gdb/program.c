/* SPDX-License-Identifier: MIT */
/* Values for a debugger to look at, all alive at the breakpoint `look`. */
#include <qv8numeric.h>
#include <stddef.h>

struct ExtendedNumeric {
    uint64_t word[4];
};

typedef Numeric Price;
typedef NumericStatus Answer;

struct entry {
    int line;
    Price price;
    NumericInfo info;
    NumericStatus status;
    struct entry* next;
};

Numeric zero = {0, 0};
Numeric minus_one = {UINT64_MAX, -1};
Numeric price = {12345, 0};
Numeric negative = {UINT64_C(0) - 12345, -1};
Numeric word_end = {UINT64_MAX, 0};
Numeric below_word = {0, -1};
Numeric not_a_number = {0, INT64_MIN};
Numeric largest = {UINT64_MAX, INT64_MAX};
Numeric smallest = {1, INT64_MIN};

Numeric ledger[] = {{12345, 0}, {UINT64_MAX, -1}, {0, INT64_MIN}};
Numeric table[2][2] = {{{1, 0}, {2, 0}}, {{3, 0}, {4, 0}}};
Numeric many[300];

NumericInfo money = {2, NUMERIC_ROUND_HALF_EVEN};
NumericInfo thousands = {-3, NUMERIC_ROUND_UP};
NumericInfo no_mode = {0, 7};
NumericInfo extreme = {INT32_MIN, NUMERIC_ROUND_FLOOR};

struct ExtendedNumeric wide = {{1, 0, 0, 1}}; /* 2^192 + 1 */

NumericStatus statuses[] = {0, 1, 2, 3, 4, -1, -2, -3, 5, -4};
Answer answer = NUMERIC_OVERFLOW;

struct entry last = {8, {500, 0}, {2, NUMERIC_ROUND_DOWN}, NUMERIC_OK, NULL};
struct entry first = {7, {UINT64_MAX, -1}, {-3, NUMERIC_ROUND_HALF_UP}, NUMERIC_INEXACT, &last};

const Price* price_pointer = &price;
const Price* null_pointer = NULL;
const Price* wild_pointer = (const Price*)16;
const NumericInfo* info_pointer = &money;
const NumericInfo* null_info = NULL;
int number = 12345;
double ratio = 0.5;

void look(const Numeric* argument, Numeric copy) { QV8NumericAdd(argument, &copy, &copy); }

int main(void) {
    look(&price, price);
    return 0;
}
