/* SPDX-License-Identifier: MIT */
/* A host with its own `dump`, `power_of_ten` and `preprocess`: it links beside the library and gets its own. */
#define QV8NUMERIC_NO_DEBUG
#include "every_function.h"
#include "qv8numeric.h"

const char* dump(const char* text);
const char* dump(const char* text) { return text; }

extern const double power_of_ten[2];
const double power_of_ten[2] = {1.0, 10.0};

int preprocess(int x, int y);
int preprocess(int x, int y) { return x * y; }

int main(void) {
    const char* mine = "mine";
    const int own = dump(mine) == mine && (int)power_of_ten[1] == 10 && preprocess(6, 7) == 42;
    return own && call_every_function() == NULL ? 0 : 1;
}
