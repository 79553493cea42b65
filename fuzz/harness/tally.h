// SPDX-License-Identifier: MIT
// How often each function returned what.
#ifndef QV8NUMERIC_FUZZ_TALLY_H
#define QV8NUMERIC_FUZZ_TALLY_H

#include <array>
#include <cstdint>
#include <istream>
#include <ostream>
#include <string>
#include <vector>

#include "operation.h"

namespace qv8numeric_fuzz {

class Tally {
  public:
    Tally() : counts_(target_operations().size()) {}

    std::uint64_t calls() const { return calls_; }
    void count(std::size_t operation, std::int32_t status) {
        ++counts_[operation][static_cast<std::size_t>(status - kLowestStatus)];
        ++calls_;
    }

    // One line per function and one column per status; "-" where the function cannot return it.
    void print(std::ostream& out) const;

    // The pairs of function and status that are possible and have not been seen, one per line.
    std::string unseen() const;

    // As numbers, for a campaign that is to be continued.
    void save(std::ostream& out) const;
    void load(std::istream& in);

  private:
    using Counts = std::array<std::uint64_t, kHighestStatus - kLowestStatus + 1>;
    std::vector<Counts> counts_;
    std::uint64_t calls_ = 0;
};

}  // namespace qv8numeric_fuzz

#endif
