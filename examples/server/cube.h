// SPDX-License-Identifier: Apache-2.0
// The part that the example server sends.
#pragma once

class QIODevice;

/// Writes a model file: a cube of 20 mm about the origin, as one closed shell.
void writeCube(QIODevice& file);
