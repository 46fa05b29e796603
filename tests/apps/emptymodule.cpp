// SPDX-License-Identifier: Apache-2.0
// A module that is no component.
extern "C" [[gnu::visibility("default")]] int nothingOfUse() { return 0; }
