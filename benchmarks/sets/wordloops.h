// SPDX-License-Identifier: Apache-2.0
// The limits: loops over plain words by hand, compiled for the machine that runs them.
#pragma once

#include "benchmarks/sets/samples.h"

namespace wordloops {

using samples::Words;

void andWords(Words& to, const Words& from);
void orWords(Words& to, const Words& from);
void xorWords(Words& to, const Words& from);
void minusWords(Words& to, const Words& from);
bool areEqual(const Words& a, const Words& b);
/// With the machine's own count of a vector's bits, where it has one.
std::int64_t countBits(const Words& words);

} // namespace wordloops
