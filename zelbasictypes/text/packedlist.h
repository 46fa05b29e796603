// SPDX-License-Identifier: Apache-2.0
/// @file
/// Lists of strings packed into one text: for each entry its length, one blank, and the text.
#pragma once

#include "zelbasictypes/text/korstring.h"

#include <vector>

/// Appends the entries to `out`.
void zelPackStrings(KorString& out, const std::vector<KorString>& list);

/// Appends the entries of `text` to `list`. A length that is missing, negative or 0 means that the
/// text wasn't packed: all of it becomes one entry, and the unpacking ends. An empty entry
/// therefore doesn't survive packing. A length past the end takes what is there. A text without any
/// blank adds nothing.
void zelUnpackStrings(const KorString& text, std::vector<KorString>& list);
