// SPDX-License-Identifier: Apache-2.0
/// @file
/// Which instructions the processor offers beyond the SSE2 that every x86-64 has.
#pragma once

namespace zeltext {

/// Whether AVX2 may be used. Any thread may ask.
inline bool machineHasAvx2() {
    static const bool has = [] {
        __builtin_cpu_init();
        return __builtin_cpu_supports("avx2") != 0;
    }();
    return has;
}

} // namespace zeltext
