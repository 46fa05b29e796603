// SPDX-License-Identifier: Apache-2.0
/// @file
/// Glob patterns for names, wide and narrow.
///
/// "*" matches any text, even an empty one, "?" one character, and "[abc]" or "[a-z]" one of a set;
/// every other character matches itself. There is neither negation nor an escape. A set ends at the
/// first "]" after its "[", so that an empty set matches nothing, as does a "[" without its "]".
/// Both ends of a range and the dash itself belong to the set, and a dash before the "]" makes a
/// range up to that. A "[" in the text matches a "[" of the pattern, whether it begins a set or
/// not. Narrow characters are bytes, compared as unsigned numbers.
///
/// A pattern may be used by one thread at a time, since matching uses memory of the pattern.
#pragma once

#include "zelbasictypes/files/statematcher.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

/// Whether a pattern is taken as it is, or lowered for use with `matchLowered`.
enum class ZelPatternCase { kept, lowered };

/// A pattern for wide texts.
class KorPattern {
public:
    /// Copies the pattern, lowered or not.
    explicit KorPattern(const KorString& pattern, ZelPatternCase how = ZelPatternCase::kept);

    /// Whether the pattern matches all of `other`; a null text counts as empty.
    bool match(const KorString& other) const;
    /// As `match`, after lowering `other`.
    bool matchLowered(const KorString& other) const;

private:
    KorString text;
    std::int32_t length;
    zelglob::States before;
    zelglob::States after;
};

/// A pattern for narrow texts; see KorPattern.
class KorCPattern {
public:
    /// Copies the pattern, lowered or not.
    explicit KorCPattern(const KorCString& pattern, ZelPatternCase how = ZelPatternCase::kept);

    /// As for KorPattern.
    /// @{
    bool match(const KorCString& other) const;
    bool matchLowered(const KorCString& other) const;
    /// @}

private:
    KorCString text;
    std::int32_t length;
    zelglob::States before;
    zelglob::States after;
};
