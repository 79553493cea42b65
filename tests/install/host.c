/* SPDX-License-Identifier: MIT */
/* 2 + 3 = 5, by the library as a program of its users finds it. */
#include <qv8numeric.h>

int main(void) {
    const Numeric two = {2, 0}, three = {3, 0}, five = {5, 0};
    Numeric sum;
    return QV8NumericAdd(&two, &three, &sum) == NUMERIC_OK && QV8NumericCmp(&sum, &five) == 0 ? 0 : 1;
}
