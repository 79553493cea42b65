// SPDX-License-Identifier: MIT
#include "workload.h"

namespace qv8numeric_bench {
std::vector<Workload> cliff_workloads() { return {}; }
std::vector<Workload> distance_workloads() { return {}; }
}  // namespace qv8numeric_bench
