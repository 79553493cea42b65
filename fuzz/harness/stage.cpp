// SPDX-License-Identifier: MIT
#include "stage.h"

#include <cstring>
#include <type_traits>

#include "show.h"

namespace qv8numeric_fuzz {
namespace {

static_assert(std::is_trivially_copyable_v<Stage> && sizeof(Number) == 8);
static_assert(sizeof(Stage) == 12 * sizeof(std::uint64_t) + 3 * sizeof(Numeric) + 8 + 3 * sizeof(NumericInfo));

std::string shown(const std::uint64_t (&guard)[2]) { return hexadecimal(guard[0]) + ", " + hexadecimal(guard[1]); }
std::string shown(const Numeric& value) { return initializer(value) + " /* " + decimal(value) + " */"; }
std::string shown(const Number& number) { return hexadecimal(number.bits); }
std::string shown(const NumericInfo (&infos)[3]) {
    return initializer(infos[0]) + ", " + initializer(infos[1]) + ", " + initializer(infos[2]);
}

template <typename Field>
void compare(const char* what, const Field& expected, const Field& found, Differences& differences) {
    if (std::memcmp(&expected, &found, sizeof(Field)) != 0) differences.add(what, shown(expected), shown(found));
}

}  // namespace

void compare(const Stage& expected, const Stage& found, Differences& differences) {
    if (std::memcmp(&expected, &found, sizeof(Stage)) == 0) return;
    compare("bytes before a", expected.before_a, found.before_a, differences);
    compare("a", expected.a, found.a, differences);
    compare("bytes behind a", expected.before_b, found.before_b, differences);
    compare("b", expected.b, found.b, differences);
    compare("bytes before the result", expected.before_result, found.before_result, differences);
    compare("result", expected.result, found.result, differences);
    compare("bytes behind the result", expected.before_number, found.before_number, differences);
    compare("number", expected.number, found.number, differences);
    compare("bytes behind the number", expected.before_info, found.before_info, differences);
    compare("descriptors", expected.info, found.info, differences);
    compare("bytes behind the descriptors", expected.behind, found.behind, differences);
}

std::string expectation(const Outcome& outcome) {
    const std::string output = outcome.written ? decimal(outcome.value) : "untouched";
    return "/* " + status_name(outcome.status) + ", " + output + " */\n";
}

}  // namespace qv8numeric_fuzz
