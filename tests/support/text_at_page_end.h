// SPDX-License-Identifier: MIT
// Texts behind whose NUL there is nothing to read.
#ifndef QV8NUMERIC_TESTS_TEXT_AT_PAGE_END_H
#define QV8NUMERIC_TESTS_TEXT_AT_PAGE_END_H

#include <cstddef>
#include <string_view>

namespace qv8numeric_tests {

// Room for one text of up to four megabytes, followed by a page that may not be touched. Where pages cannot be
// protected it is ordinary memory, and the texts are checked for their values only.
class TextAtPageEnd {
  public:
    TextAtPageEnd();
    ~TextAtPageEnd();
    TextAtPageEnd(const TextAtPageEnd&) = delete;
    TextAtPageEnd& operator=(const TextAtPageEnd&) = delete;

    // A copy of the text whose NUL is the last byte that can be read. It lasts until the next call.
    const char* place(std::string_view text);

  private:
    static constexpr std::size_t kRoom = std::size_t{4} << 20;
    char* memory_;
    std::size_t page_;
};

}  // namespace qv8numeric_tests

#endif
