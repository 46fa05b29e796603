// SPDX-License-Identifier: Apache-2.0
// Glob patterns for names, wide and narrow.
//
// "*" stands for any text, also none, "?" for one character, "[abc]" and "[a-z]" for one of a set;
// everything else stands for itself. There is no negation and no escape. A set ends at the first
// "]" behind its "[", so that an empty one matches nothing, and so does a "[" without its "]". Both
// ends of a range and the dash itself belong to the set, a dash in front of the "]" makes a range
// up to that, and a "[" of the text matches a "[" of the pattern, set or not. Narrow characters are
// bytes and compare as unsigned numbers.
//
// A pattern belongs to one thread at a time: matching uses memory of its own.
#pragma once

#include "zelbasictypes/files/statematcher.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

/// Whether a pattern is taken as it stands or lowered first, which then goes with `matchLowered`.
enum class ZelPatternCase { kept, lowered };

class KorPattern {
public:
    explicit KorPattern(const KorString& pattern, ZelPatternCase how = ZelPatternCase::kept);

    /// Whether the pattern matches all of `other`; a null text counts as an empty one.
    bool match(const KorString& other) const;
    /// The same after lowering `other`.
    bool matchLowered(const KorString& other) const;

private:
    KorString text;
    std::int32_t length;
    zelglob::States before;
    zelglob::States after;
};

class KorCPattern {
public:
    explicit KorCPattern(const KorCString& pattern, ZelPatternCase how = ZelPatternCase::kept);

    bool match(const KorCString& other) const;
    bool matchLowered(const KorCString& other) const;

private:
    KorCString text;
    std::int32_t length;
    zelglob::States before;
    zelglob::States after;
};
