// SPDX-License-Identifier: MIT
// How the lists of workloads are written.
#ifndef QV8NUMERIC_BENCH_ROWS_H
#define QV8NUMERIC_BENCH_ROWS_H

#include <string>
#include <utility>
#include <vector>

#include "inputs.h"
#include "workload.h"

namespace qv8numeric_bench {

constexpr NumericInfo at(int scale) { return {scale, NUMERIC_ROUND_HALF_EVEN}; }

// The two classes of operands.
inline ValueDraw small() { return signed_bits(10, 60); }
inline ValueDraw wide() { return signed_bits(90, 126); }

class Rows {
  public:
    // The workload on these operands. `reach` is the ratio it is to show, if one is set.
    void add(Workload workload, const std::string& operands, const Fill& fill, double reach = 0) {
        workload.operands = operands;
        workload.fill = fill;
        workload.reach = reach;
        rows_.push_back(std::move(workload));
    }

    std::vector<Workload> take() { return std::move(rows_); }

  private:
    std::vector<Workload> rows_;
};

}  // namespace qv8numeric_bench

#endif
