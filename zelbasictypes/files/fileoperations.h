// SPDX-License-Identifier: Apache-2.0
// Opening, copying and naming files.
#pragma once

#include "zelbasictypes/text/korstring.h"

#include <cstdio>

/// A stream of the runtime library, with `mode` as of fopen, at most 255 characters. Null for an
/// empty path and on failure. The caller closes it.
std::FILE* zelOpenFile(const KorString& path, const char* mode);

/// False only when one of the files can't be opened; a disk that is full doesn't show. A file
/// copied onto itself stays as it is.
bool copyFile(const KorString& from, const KorString& to);
/// Here also false for a null or empty path.
bool copyFile(const char* from, const char* to);

/// A path for a file that the caller then makes: in the directory that the settings name
/// ("Directories/Temp Directory"), else in the host's "temp" directory. Each call makes a new name
/// from the process and a counter; nothing looks whether it is free. Always true.
bool makeTempName(KorString& out);
