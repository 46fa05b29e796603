// SPDX-License-Identifier: Apache-2.0
/// @file
/// Runs of numbers between the wire's byte order and the machine's.
#pragma once

#include <QtGlobal>

namespace CADImport {

/// Copies `count` big-endian numbers from `from` to `to`, which don't overlap and need not be
/// aligned. Where the processor has AVX2, it costs what copying the bytes costs.
void copyWords(const uchar* from, qsizetype count, quint64* to);
void copyWords(const uchar* from, qsizetype count, quint32* to);

} // namespace CADImport
