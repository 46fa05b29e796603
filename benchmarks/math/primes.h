// SPDX-License-Identifier: Apache-2.0
// The race of the prime search.
#pragma once

/// Enters the search against the same wheel without counters.
void addPrimes();
