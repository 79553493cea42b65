// SPDX-License-Identifier: MIT
#include "text_at_page_end.h"

#include <algorithm>
#include <stdexcept>
#include <system_error>

#if __has_include(<sys/mman.h>) && __has_include(<unistd.h>)
#  include <sys/mman.h>
#  include <unistd.h>

#  include <cerrno>

namespace qv8numeric_tests {

TextAtPageEnd::TextAtPageEnd() : page_(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))) {
    void* const mapped = mmap(nullptr, kRoom + page_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "mmap");
    memory_ = static_cast<char*>(mapped);
    if (mprotect(memory_ + kRoom, page_, PROT_NONE) != 0) {
        throw std::system_error(errno, std::generic_category(), "mprotect");
    }
}

TextAtPageEnd::~TextAtPageEnd() { munmap(memory_, kRoom + page_); }

}  // namespace qv8numeric_tests
#else

namespace qv8numeric_tests {

TextAtPageEnd::TextAtPageEnd() : memory_(new char[kRoom]), page_(0) {}

TextAtPageEnd::~TextAtPageEnd() { delete[] memory_; }

}  // namespace qv8numeric_tests
#endif

namespace qv8numeric_tests {

const char* TextAtPageEnd::place(std::string_view text) {
    if (text.size() >= kRoom) throw std::length_error("no room for the text");
    char* const start = memory_ + kRoom - 1 - text.size();
    *std::copy(text.begin(), text.end(), start) = '\0';
    return start;
}

}  // namespace qv8numeric_tests
