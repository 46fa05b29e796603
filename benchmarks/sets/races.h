// SPDX-License-Identifier: Apache-2.0
// The races of the sets benchmark, by what they are about, and what all of them race.
#pragma once

#include "benchmarks/sets/samples.h"
#include "benchmarks/support/race.h"

void addAlgebraRaces();
void addBlockRaces();
void addWalkRaces();
