// SPDX-License-Identifier: Apache-2.0
// Runs races and prints their medians as ratios.
#include "benchmarks/support/race.h"

#include <cstdio>
#include <map>
#include <utility>
#include <vector>

namespace race {

namespace {

struct Result {
    std::string peer;
    double nanoseconds;
};

/// Collects the medians of each race in the order of entry, and prints them at the end.
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
        for (const std::string& job : jobs_) print(job, results_[job]);
    }

private:
    void take(const Run& run) {
        const std::string& name = run.run_name.function_name;
        const std::size_t bar = name.rfind('|');
        const std::string job = name.substr(0, bar);
        if (!results_.count(job)) jobs_.push_back(job);
        results_[job].push_back({name.substr(bar + 1), run.GetAdjustedRealTime()});
    }

    static void print(const std::string& job, const std::vector<Result>& results) {
        std::printf("%s\n", job.c_str());
        for (const Result& result : results)
            std::printf("  %-36s %14.2f ns %8.2f\n", result.peer.c_str(), result.nanoseconds,
                        result.nanoseconds / results.front().nanoseconds);
    }

    std::vector<std::string> jobs_;
    std::map<std::string, std::vector<Result>> results_;
};

} // namespace

void add(const std::string& job, const std::string& peer,
         std::function<void(benchmark::State&)> run, int threads) {
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
