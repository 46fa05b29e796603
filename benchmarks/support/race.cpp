// SPDX-License-Identifier: Apache-2.0
// Runs races and prints their medians as ratios.
#include "benchmarks/support/race.h"

#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

namespace race {

namespace {

/// Medians, in nanoseconds; none while the peer hasn't run.
struct Result {
    std::string peer;
    double passed = 0;
    double busy = 0;
};

struct Race {
    std::string job;
    std::vector<Result> results;
};

/// In the order of entry; repetitions are interleaved, so that they end in any order.
std::vector<Race>& races() {
    static std::vector<Race> all;
    return all;
}

template <class Items, class Name>
auto& findOrAdd(Items& items, Name member, const std::string& name) {
    const auto found = std::find_if(items.begin(), items.end(),
                                    [&](const auto& item) { return item.*member == name; });
    if (found != items.end()) return *found;
    items.emplace_back().*member = name;
    return items.back();
}

Result& resultOf(const std::string& job, const std::string& peer) {
    return findOrAdd(findOrAdd(races(), &Race::job, job).results, &Result::peer, peer);
}

/// Collects the medians, and prints them at the end.
class Ratios : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.error_occurred)
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(),
                             run.error_message.c_str());
            else if (run.aggregate_name == "median")
                take(run);
        }
    }

    void Finalize() override {
        for (Race& race : races()) print(race);
    }

private:
    static void take(const Run& run) {
        const std::string& name = run.run_name.function_name;
        const std::size_t bar = name.rfind('|');
        Result& result = resultOf(name.substr(0, bar), name.substr(bar + 1));
        result.passed = run.GetAdjustedRealTime();
        result.busy = run.GetAdjustedCPUTime();
    }

    static void print(Race& race) {
        std::erase_if(race.results, [](const Result& result) { return result.passed == 0; });
        if (race.results.empty()) return;
        const Result& first = race.results.front();
        std::printf("%-38s %14s %8s %14s %8s\n", race.job.c_str(), "passed", "", "busy", "");
        for (const Result& result : race.results)
            std::printf("  %-36s %11.2f ns %8.2f %11.2f ns %8.2f\n", result.peer.c_str(),
                        result.passed, result.passed / first.passed, result.busy,
                        result.busy / first.busy);
    }
};

} // namespace

void add(const std::string& job, const std::string& peer,
         std::function<void(benchmark::State&)> run, int threads) {
    resultOf(job, peer);
    benchmark::RegisterBenchmark((job + "|" + peer).c_str(), std::move(run))
        ->Threads(threads)
        ->UseRealTime()
        ->Unit(benchmark::kNanosecond);
}

int run(int argc, char** argv) {
    std::vector<std::string> words = {argv[0], "--benchmark_repetitions=9",
                                      "--benchmark_min_time=0.02",
                                      "--benchmark_enable_random_interleaving=true"};
    words.insert(words.end(), argv + 1, argv + argc);
    std::vector<char*> pointers;
    for (std::string& word : words) pointers.push_back(word.data());
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(count, pointers.data())) return 2;
    Ratios ratios;
    return benchmark::RunSpecifiedBenchmarks(&ratios) ? 0 : 1;
}

} // namespace race
