// SPDX-License-Identifier: Apache-2.0
// The races of the text benchmark, by what they are about.
#pragma once

void addSearchRaces();
void addConversionRaces();
void addTableRaces();
