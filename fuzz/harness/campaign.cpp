// SPDX-License-Identifier: MIT
#include "campaign.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <iostream>
#include <random>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace qv8numeric_fuzz {
namespace {

constexpr std::size_t kInputSize = 32768;

void fill(std::vector<std::uint8_t>& input, std::uint64_t seed, std::uint64_t number) {
    std::seed_seq sequence{seed & 0xffffffff, seed >> 32, number & 0xffffffff, number >> 32};
    std::mt19937_64 generator(sequence);
    for (std::size_t i = 0; i < input.size(); i += 8) {
        const std::uint64_t word = generator();
        for (std::size_t j = 0; j < 8; ++j) input[i + j] = static_cast<std::uint8_t>(word >> (8 * j));
    }
}

// The state of a campaign belongs to its target, seed and part; another one's is refused.
std::string identity(const Campaign& campaign) {
    std::ostringstream text;
    text << target_name() << " seed " << campaign.seed << " part " << campaign.part << "/" << campaign.parts;
    return text.str();
}

void save(const Campaign& campaign, std::uint64_t next, const Tally& tally) {
    const std::string unfinished = campaign.state_file + ".new";
    std::ofstream out(unfinished);
    out << identity(campaign) << "\n" << next << "\n";
    tally.save(out);
    out.close();
    if (!out || std::rename(unfinished.c_str(), campaign.state_file.c_str()) != 0) {
        throw std::runtime_error("cannot write " + campaign.state_file);
    }
}

// The number of the next input.
std::uint64_t load(const Campaign& campaign, Tally& tally) {
    std::ifstream in(campaign.state_file);
    if (campaign.state_file.empty() || !in) return campaign.part;
    std::string whose;
    std::getline(in, whose);
    if (whose != identity(campaign)) throw std::runtime_error(campaign.state_file + " is of another campaign");
    std::uint64_t next = 0;
    in >> next;
    tally.load(in);
    if (!in) throw std::runtime_error(campaign.state_file + " is incomplete");
    return next;
}

std::string report(const Difference& difference, std::uint64_t number) {
    const std::string file = "difference-" + std::string(target_name()) + "-" + std::to_string(number);
    std::ofstream out(file, std::ios::binary);
    for (const std::uint8_t byte : difference.record) out.put(static_cast<char>(byte));
    return difference.report + "input " + std::to_string(number) + "; the call alone is in the file " + file + "\n";
}

}  // namespace

std::optional<std::string> run_campaign(const Campaign& campaign, Tally& tally) {
    using Clock = std::chrono::steady_clock;
    constexpr auto kBetweenSaves = std::chrono::seconds(10);
    std::vector<std::uint8_t> input(kInputSize);
    std::uint64_t number = load(campaign, tally);
    auto saved = Clock::now();
    const std::uint64_t before = tally.calls();
    for (; tally.calls() < campaign.calls; number += campaign.parts) {
        fill(input, campaign.seed, number);
        if (const auto difference = run_batch(input, tally)) return report(*difference, number);
        if (!campaign.state_file.empty() && Clock::now() - saved > kBetweenSaves) {
            save(campaign, number + campaign.parts, tally);
            saved = Clock::now();
        }
    }
    if (!campaign.state_file.empty()) save(campaign, number, tally);
    const double seconds = static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
    std::cout << identity(campaign) << ": " << std::llround(static_cast<double>(tally.calls() - before) / seconds)
              << " calls per second of processor time\n";
    return std::nullopt;
}

}  // namespace qv8numeric_fuzz
