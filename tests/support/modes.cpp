// SPDX-License-Identifier: MIT
#include "modes.h"

#include <iterator>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace qv8numeric_tests {

std::string in_mode(const std::string& list, std::uint32_t mode) {
    std::istringstream stream(list);
    const std::vector<std::string> words{std::istream_iterator<std::string>(stream), {}};
    if (words.size() != std::size(kModes)) throw std::invalid_argument("not one word per mode: '" + list + "'");
    return words.at(mode);
}

}  // namespace qv8numeric_tests
