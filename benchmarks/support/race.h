// SPDX-License-Identifier: Apache-2.0
// Races on Google Benchmark: peers of one job run in one program, their repetitions in random
// order, and what is printed is the median of each as a multiple of the first peer's: of the time
// that passed, and of the time that the processor was busy with it, which neighbours on the
// machine hardly touch. Where peers wait for a disk or for each other, only the first tells.
//
//     race::add("find in 1 MB", "limit", [](benchmark::State& state) { ... });
//     race::add("find in 1 MB", "KorCString", ...);
//     int main(int argc, char** argv) { return race::run(argc, argv); }
//
// Seeds are fixed by the one who writes a race. The program takes Google Benchmark's options, such
// as --benchmark_filter=REGEX and --benchmark_repetitions=N.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

namespace race {

/// Enters a peer into the race of that name; the first one entered is what the others are measured
/// by. Peers with several threads take part by the time that passes.
void add(const std::string& job, const std::string& peer,
         std::function<void(benchmark::State&)> run, int threads = 1);

/// Runs all races and prints their tables to standard output. Returns the program's exit status.
int run(int argc, char** argv);

} // namespace race
