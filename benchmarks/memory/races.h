// SPDX-License-Identifier: Apache-2.0
// The races of the memory benchmark, by what they are about.
#pragma once

void addBlockRaces();
void addArrayRaces();
