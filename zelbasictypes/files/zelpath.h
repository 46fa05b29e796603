// SPDX-License-Identifier: Apache-2.0
// A wide text that is kept in the normal form of paths.
#pragma once

#include "zelbasictypes/text/korstring.h"

/// The normal form has backslashes only, none at the end (unless it is all there is), and a drive
/// as "c:", also where it was written "//c/". Every constructor and assignment that takes text
/// brings it to this form; a path that is changed through its KorString operations isn't watched.
class ZelPath : public KorString {
public:
    ZelPath() = default;
    explicit ZelPath(const KorString& source);
    explicit ZelPath(const char* source);
    /// `name` below `directory`; just `name` when `directory` is empty.
    ZelPath(const KorString& directory, const KorString& name);

    ZelPath& operator=(const KorString& source);
    ZelPath& operator=(const char* source);
};
