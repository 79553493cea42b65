// SPDX-License-Identifier: MIT
#include "results.h"

namespace qv8numeric_bench {
namespace {

// Names here hold no control characters.
std::string quoted(const std::string& text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') result += '\\';
        result += c;
    }
    return result + '"';
}

template <typename Items, typename Write>
void write_list(std::ostream& out, const Items& items, const char* separator, Write write) {
    out << '[';
    const char* before = "";
    for (const auto& item : items) {
        out << before;
        write(item);
        before = separator;
    }
    out << ']';
}

void write_numbers(std::ostream& out, const std::vector<double>& numbers) {
    write_list(out, numbers, ", ", [&](double number) { out << number; });
}

void write_times(std::ostream& out, const Times& times) {
    out << "\n   {\"name\": " << quoted(times.contender) << ", \"lacking\": " << quoted(times.lacking)
        << ",\n    \"throughput\": ";
    write_numbers(out, times.throughput);
    out << ",\n    \"latency\": ";
    write_numbers(out, times.latency);
    out << '}';
}

void write_row(std::ostream& out, const Row& row) {
    out << "\n  {\"group\": " << quoted(row.group) << ", \"name\": " << quoted(row.name)
        << ", \"operands\": " << quoted(row.operands) << ", \"reach\": " << row.reach << ", \"contenders\": ";
    write_list(out, row.times, ",", [&](const Times& times) { write_times(out, times); });
    out << '}';
}

}  // namespace

void write_json(std::ostream& out, const std::vector<std::string>& libraries, const std::vector<Row>& rows) {
    out << "{\"compiler\": " << quoted(__VERSION__) << ",\n \"flags\": " << quoted(QV8NUMERIC_BENCH_FLAGS)
        << ",\n \"calls\": " << kCalls << ",\n \"libraries\": ";
    write_list(out, libraries, ", ", [&](const std::string& name) { out << quoted(name); });
    out << ",\n \"rows\": ";
    write_list(out, rows, ",", [&](const Row& row) { write_row(out, row); });
    out << "}\n";
}

}  // namespace qv8numeric_bench
