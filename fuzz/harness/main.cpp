// SPDX-License-Identifier: MIT
// A target as an ordinary program.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "batch.h"
#include "campaign.h"

namespace qv8numeric_fuzz {
namespace {

constexpr std::uint64_t kCallsThatShowEverything = 1'000'000;

constexpr const char* kUsage =
    "usage: %s [--replay PATH...] [--random CALLS [--seed SEED] [--part I/N] [--state FILE]]\n"
    "       %s --print FILE...\n"
    "\n"
    "  --replay PATH...  compare the calls of these inputs: files, or all files of these folders\n"
    "  --random CALLS    compare at least so many random calls\n"
    "  --seed SEED       where they start (1)\n"
    "  --part I/N        of N processes this is the one with number I, 0 to N - 1; CALLS is its own share\n"
    "  --state FILE      save now and then how far it is, and go on from there if the file exists\n"
    "  --print FILE...   write the calls of these inputs as C, with what is expected of each\n"
    "\n"
    "Both print how often each function returned each status. A status that is possible and was not seen in a million\n"
    "random calls or more is an error, as every difference is: that ends the program at once, with the call as C.\n";

struct Options {
    std::vector<std::string> replay;
    std::vector<std::string> print;
    Campaign campaign;
};

std::uint64_t number(const std::string& text) {
    std::size_t end = 0;
    const std::uint64_t value = std::stoull(text, &end);
    if (end != text.size()) throw std::invalid_argument(text + " is no number");
    return value;
}

Options parsed(const std::vector<std::string>& arguments) {
    Options options;
    std::vector<std::string>* paths = nullptr;
    for (auto it = arguments.begin(); it != arguments.end(); ++it) {
        const auto value = [&it, &arguments]() -> const std::string& {
            if (std::next(it) == arguments.end()) throw std::invalid_argument(*it + " needs a value");
            return *++it;
        };
        if (*it == "--replay") {
            paths = &options.replay;
        } else if (*it == "--print") {
            paths = &options.print;
        } else if (*it == "--random") {
            options.campaign.calls = number(value());
        } else if (*it == "--seed") {
            options.campaign.seed = number(value());
        } else if (*it == "--state") {
            options.campaign.state_file = value();
        } else if (*it == "--part") {
            const std::string& part = value();
            const std::size_t slash = part.find('/');
            if (slash == std::string::npos) throw std::invalid_argument("--part takes I/N");
            options.campaign.part = number(part.substr(0, slash));
            options.campaign.parts = number(part.substr(slash + 1));
        } else if (paths != nullptr && !it->starts_with("--")) {
            paths->push_back(*it);
        } else {
            throw std::invalid_argument("not understood: " + *it);
        }
    }
    if (options.campaign.part >= options.campaign.parts) throw std::invalid_argument("--part I/N needs I below N");
    return options;
}

std::vector<std::uint8_t> contents(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + path.string());
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<std::filesystem::path> files(const std::vector<std::string>& paths) {
    std::vector<std::filesystem::path> result;
    for (const std::string& path : paths) {
        if (std::filesystem::is_directory(path)) {
            for (const auto& entry : std::filesystem::directory_iterator(path)) result.push_back(entry.path());
        } else {
            result.emplace_back(path);
        }
    }
    std::sort(result.begin(), result.end());
    return result;
}

[[noreturn]] void end_with(const std::string& report) {
    std::cerr << report;
    std::abort();
}

void replay(const std::vector<std::string>& paths) {
    const std::vector<std::filesystem::path> inputs = files(paths);
    if (inputs.empty()) throw std::runtime_error("nothing to replay");
    Tally tally;
    for (const std::filesystem::path& path : inputs) {
        if (const auto difference = run_batch(contents(path), tally)) {
            end_with(difference->report + "in " + path.string() + "\n");
        }
    }
    std::cout << inputs.size() << " inputs replayed\n";
    tally.print(std::cout);
}

int random_calls(const Campaign& campaign) {
    Tally tally;
    if (const auto report = run_campaign(campaign, tally)) end_with(*report);
    tally.print(std::cout);
    const std::string unseen = tally.unseen();
    if (campaign.calls < kCallsThatShowEverything || unseen.empty()) return EXIT_SUCCESS;
    std::cerr << unseen;
    return EXIT_FAILURE;
}

int run(const Options& options) {
    for (const std::string& path : options.print) print_batch(contents(path), std::cout);
#if !defined(QV8NUMERIC_FUZZ_SANITIZED)  // a sanitizer has reports of its own
    report_crashes();
#endif
    if (!options.replay.empty()) replay(options.replay);
    return options.campaign.calls > 0 ? random_calls(options.campaign) : EXIT_SUCCESS;
}

}  // namespace
}  // namespace qv8numeric_fuzz

int main(int argc, char** argv) {
    try {
        const std::vector<std::string> arguments(argv + 1, argv + argc);
        if (arguments.empty()) {
            std::fprintf(stderr, qv8numeric_fuzz::kUsage, argv[0], argv[0]);
            return 2;
        }
        return qv8numeric_fuzz::run(qv8numeric_fuzz::parsed(arguments));
    } catch (const std::exception& error) {
        std::cerr << argv[0] << ": " << error.what() << "\n";
        return 2;
    }
}
