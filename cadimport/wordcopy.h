// SPDX-License-Identifier: Apache-2.0
/// @file
/// Copies runs of numbers between the wire's byte order and the machine's.
#pragma once

#include <QtGlobal>

namespace CADImport {

/// Copies `count` big-endian numbers from `from` to `to`, which must not overlap and need no
/// alignment. With AVX2 this is as fast as copying the bytes.
/// @{
void copyWords(const uchar* from, qsizetype count, quint64* to);
void copyWords(const uchar* from, qsizetype count, quint32* to);
/// @}

} // namespace CADImport
