// SPDX-License-Identifier: Apache-2.0
// Bringing text to the normal form on its way into a path.
#include "zelbasictypes/files/zelpath.h"

#include "zelbasictypes/files/pathoperations.h"

ZelPath::ZelPath(const KorString& source) : KorString(source) { normalize(*this); }

ZelPath::ZelPath(const char* source) : KorString(source) { normalize(*this); }

ZelPath::ZelPath(const KorString& directory, const KorString& name) : KorString(directory) {
    join(*this, name);
}

ZelPath& ZelPath::operator=(const KorString& source) {
    KorString::operator=(source);
    normalize(*this);
    return *this;
}

ZelPath& ZelPath::operator=(const char* source) { return *this = KorString(source); }
