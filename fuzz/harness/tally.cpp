// SPDX-License-Identifier: MIT
#include "tally.h"

#include <iomanip>

namespace qv8numeric_fuzz {
namespace {

template <typename Visit>
void for_each_status(Visit visit) {
    for (std::int32_t status = kLowestStatus; status <= kHighestStatus; ++status) visit(status);
}

std::size_t column(std::int32_t status) { return static_cast<std::size_t>(status - kLowestStatus); }

}  // namespace

void Tally::print(std::ostream& out) const {
    out << std::left << std::setw(26) << target_name() << std::right;
    for_each_status([&out](std::int32_t status) { out << std::setw(13) << status; });
    out << "\n";
    for (std::size_t i = 0; i < counts_.size(); ++i) {
        const Operation& operation = *target_operations()[i];
        out << std::left << std::setw(26) << operation.name() << std::right;
        for_each_status([&](std::int32_t status) {
            out << std::setw(13);
            if (operation.possible().contains(status)) {
                out << counts_[i][column(status)];
            } else {
                out << "-";
            }
        });
        out << "\n";
    }
    out << calls_ << " calls compared\n";
}

std::string Tally::unseen() const {
    std::string pairs;
    for (std::size_t i = 0; i < counts_.size(); ++i) {
        const Operation& operation = *target_operations()[i];
        for_each_status([&](std::int32_t status) {
            if (operation.possible().contains(status) && counts_[i][column(status)] == 0) {
                pairs.append(operation.name()).append(" never returned ").append(std::to_string(status)).append("\n");
            }
        });
    }
    return pairs;
}

void Tally::save(std::ostream& out) const {
    out << calls_ << "\n";
    for (const Counts& counts : counts_) {
        for (const std::uint64_t count : counts) out << count << " ";
        out << "\n";
    }
}

void Tally::load(std::istream& in) {
    in >> calls_;
    for (Counts& counts : counts_) {
        for (std::uint64_t& count : counts) in >> count;
    }
}

}  // namespace qv8numeric_fuzz
