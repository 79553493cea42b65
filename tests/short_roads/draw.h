// SPDX-License-Identifier: MIT
// Draws the calls of each kind of operation. Whatever is drawn is a legal call.
#ifndef QV8NUMERIC_TESTS_SHORT_ROADS_DRAW_H
#define QV8NUMERIC_TESTS_SHORT_ROADS_DRAW_H

#include "call.h"
#include "random.h"

namespace short_roads {

using Draw = void (*)(Random& random, Call& call);

// draw_one_scale.cpp
void draw_one_operand(Random& random, Call& call);
void draw_operand_and_flag(Random& random, Call& call);
void draw_sum(Random& random, Call& call);
void draw_order(Random& random, Call& call);
void draw_truncation(Random& random, Call& call);
void draw_factor(Random& random, Call& call);
void draw_divisor(Random& random, Call& call);
void draw_rescale(Random& random, Call& call);

// draw_rescaling.cpp
void draw_rescaling_sum(Random& random, Call& call);
void draw_rescaling_order(Random& random, Call& call);
void draw_rescaling_product(Random& random, Call& call);
void draw_rescaling_quotient(Random& random, Call& call);

// draw_text.cpp
void draw_text_out(Random& random, Call& call);
void draw_text_in(Random& random, Call& call);
void draw_grouped_text_in(Random& random, Call& call);

// draw_machine_numbers.cpp
void draw_from_int64(Random& random, Call& call);
void draw_from_int32(Random& random, Call& call);
void draw_to_integer(Random& random, Call& call);
void draw_from_double(Random& random, Call& call);
void draw_to_double(Random& random, Call& call);

// Shared by the drawing functions: which of the objects of the call are one.
void draw_aliases(Random& random, Call& call);

}  // namespace short_roads

#endif
