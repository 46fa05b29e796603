// SPDX-License-Identifier: Apache-2.0
/// @file
/// A wide text in the normal form of paths.
#pragma once

#include "zelbasictypes/text/korstring.h"

/// A path. The normal form has backslashes only, none at the end unless it is the whole path, and a
/// drive as "c:", even if it was written as "//c/". Every constructor and assignment that takes
/// text brings it to this form. Changes through the operations of KorString aren't normalised.
class ZelPath : public KorString {
public:
    ZelPath() = default;
    /// Normalises `source`.
    /// @{
    explicit ZelPath(const KorString& source);
    explicit ZelPath(const char* source);
    /// @}
    /// The path of `name` in `directory`; just `name` when `directory` is empty.
    ZelPath(const KorString& directory, const KorString& name);

    /// Normalises `source`.
    /// @{
    ZelPath& operator=(const KorString& source);
    ZelPath& operator=(const char* source);
    /// @}
};
