// SPDX-License-Identifier: MIT
// Makes a call twice, to the library and to the reference, each in a memory of its own, and compares what both left.
#ifndef QV8NUMERIC_TESTS_SHORT_ROADS_COMPARISON_H
#define QV8NUMERIC_TESTS_SHORT_ROADS_COMPARISON_H

#include <cstdint>
#include <string>

#include "call.h"
#include "operations.h"
#include "text_at_page_end.h"

namespace short_roads {

class Comparison {
  public:
    // True when status, outputs and everything around them are the same.
    bool agrees(const Operation& operation, const Call& call);

    std::int32_t status() const { return library_status_; }

    // The last call and both of its outcomes.
    std::string report(const Operation& operation, const Call& call) const;

  private:
    Memory library_memory_;
    Memory reference_memory_;
    std::int32_t library_status_ = 0;
    std::int32_t reference_status_ = 0;
    const char* text_ = nullptr;
    bool text_kept_ = true;
    qv8numeric_tests::TextAtPageEnd text_place_;
};

// The call alone, for one that did not return.
std::string in_words(const Operation& operation, const Call& call);

}  // namespace short_roads

#endif
