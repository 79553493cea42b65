// SPDX-License-Identifier: MIT
// Whoever takes part: the library, one or more builds of it, and its peers.
#ifndef QV8NUMERIC_BENCH_CONTENDER_H
#define QV8NUMERIC_BENCH_CONTENDER_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "calls.h"
#include "trial.h"

namespace qv8numeric_bench {

// How a contender takes part in a workload. It does the whole job when nothing is lacking: a result checked against the
// range of its type, NaN as an operand, the rounding mode as an argument, and a status that tells exact from rounded.
struct Part {
    std::string lacking;  // "no status"; empty for the whole job
    bool checks_status;   // whether the status is compared with the exact one
};

// The ways of taking part.
inline Part whole_job() { return {"", true}; }
inline Part part_without(std::string lacking) { return {std::move(lacking), false}; }

class Contender {
  public:
    Contender() = default;
    Contender(const Contender&) = delete;
    Contender& operator=(const Contender&) = delete;
    virtual ~Contender() = default;

    virtual std::string name() const = 0;
    virtual Manners manners() const = 0;

    // Nothing when this operation, these scales or operands of so many digits are beyond it.
    virtual std::optional<Part> part_in(const Workload& workload, int digits) const = 0;

    // Null when it has no such operation.
    virtual std::unique_ptr<Trial> trial(const Workload& workload, const Inputs& inputs) const = 0;
};

// A peer from its traits: those of calls.h, and
//     Traits::kName, Traits::kManners, Traits::kernels() and Traits::part_in(const Workload&, int digits)
template <typename Traits>
class Peer : public Contender {
  public:
    std::string name() const override { return Traits::kName; }
    Manners manners() const override { return Traits::kManners; }
    std::optional<Part> part_in(const Workload& workload, int digits) const override {
        if (workload.departure) return std::nullopt;
        return Traits::part_in(workload, digits);
    }
    std::unique_ptr<Trial> trial(const Workload& workload, const Inputs& inputs) const override {
        return trial_for<Traits>(Traits::kernels(), workload, inputs);
    }
};

// A build of the library, by the path of its shared object. Throws std::runtime_error when it cannot be loaded.
std::unique_ptr<Contender> library(const std::string& name, const std::string& path);

// The peers that this program was built with.
std::vector<std::unique_ptr<Contender>> peers();

}  // namespace qv8numeric_bench

#endif
