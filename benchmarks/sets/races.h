// SPDX-License-Identifier: Apache-2.0
// The races of the sets benchmark, by what they are about.
#pragma once

void addAlgebraRaces();
void addBlockRaces();
void addWalkRaces();
