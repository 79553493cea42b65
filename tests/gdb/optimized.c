/* SPDX-License-Identifier: MIT */
/* Compiled with optimization: a value that the compiler computes nowhere is still known to a debugger, by name alone.
 */
#include <qv8numeric.h>

__attribute__((noinline)) void look(Numeric* out) { QV8NumericSetZero(out); }

static uint64_t unknown(uint64_t x) { return x * 31 + 7; }

int main(int count, char** names) {
    Numeric kept = {(uint64_t)count, 0};
    Numeric gone = {unknown((uint64_t)count), (int64_t)unknown((uint64_t) * *names)};
    Numeric half = {5, (int64_t)unknown((uint64_t) * *names)};
    NumericInfo gone_info = {(int32_t)unknown((uint64_t)count), (uint32_t)unknown((uint64_t) * *names)};
    NumericStatus gone_status = (NumericStatus)unknown((uint64_t)count);
    (void)gone;
    (void)half;
    (void)gone_info;
    (void)gone_status;
    look(&kept);
    return (int)kept.low;
}
