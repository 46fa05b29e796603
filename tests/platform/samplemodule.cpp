// SPDX-License-Identifier: Apache-2.0
// A module with one entry.

extern "C" int sampleAnswer();
extern "C" int sampleAnswer() { return 42; }
