// SPDX-License-Identifier: MIT
// The order of the calls. A branch predictor of today remembers the outcomes of ten thousand calls that are repeated in
// one order, and programs do not repeat theirs: so the operands are taken in a drawn order that is longer than that.
#ifndef QV8NUMERIC_BENCH_ORDER_H
#define QV8NUMERIC_BENCH_ORDER_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qv8numeric_bench {

// kDrawn, or kRepeated: from first to last and again, for whoever wants to know the difference.
enum class Repetition { kDrawn, kRepeated };

// The indices, 2^17 of them, which takes a quarter of a megabyte that is only read forwards.
const std::vector<std::uint16_t>& order_of_calls();

// Before the first use.
void set_order(Repetition repetition);

class Order {
  public:
    std::size_t next() {
        at_ = (at_ + 1) & (kLength - 1);
        return indices_[at_];
    }

    static constexpr std::size_t kLength = std::size_t{1} << 17;

  private:
    const std::uint16_t* indices_ = order_of_calls().data();
    std::size_t at_ = 0;
};

}  // namespace qv8numeric_bench

#endif
