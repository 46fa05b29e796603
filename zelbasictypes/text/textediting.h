// SPDX-License-Identifier: Apache-2.0
/// @file
/// Changes that both string classes make in the same way.
#pragma once

#include "zelbasictypes/memory/zelnew.h"
#include "zelbasictypes/text/textbuffer.h"
#include "zelbasictypes/text/textscan.h"

#include <algorithm>

namespace zeltext {

/// Copies a borrowed text, which is `text`, into a block of the pool.
template <class Unit> void detach(Buffer<Unit>& buffer, std::basic_string_view<Unit> text) {
    if (buffer.isBorrowed()) buffer = compose({text});
}

/// Replaces every `from` (not empty) in `text`, which is the buffer's; without one nothing changes.
template <class Unit>
void replaceAll(Buffer<Unit>& buffer, std::basic_string_view<Unit> text,
                std::basic_string_view<Unit> from, std::basic_string_view<Unit> to) {
    ZelVector<std::basic_string_view<Unit>> pieces;
    for (std::int64_t hit; (hit = findIn(text, from)) >= 0;) {
        pieces.push_back(text.substr(0, static_cast<std::size_t>(hit)));
        pieces.push_back(to);
        text.remove_prefix(static_cast<std::size_t>(hit) + from.size());
    }
    if (pieces.empty()) return;
    pieces.push_back(text);
    const Buffer<Unit> result = compose(pieces.data(), pieces.size());
    buffer.release();
    buffer = result;
}

/// Where a text that is too long is cut.
enum class FitMode : std::int32_t { cutEnd, cutFront, cutMiddle };
/// Whether a number stands for one of the modes.
inline bool isFitMode(std::int32_t mode) { return mode >= 0 && mode <= 2; }

/// What `fit` makes of a text longer than `width`. `dots` is not negative.
template <class Unit>
Buffer<Unit> fitted(std::basic_string_view<Unit> text, std::int32_t width, FitMode mode,
                    std::int32_t dots) {
    const auto kept = static_cast<std::size_t>(width - dots);
    const ZelText<Unit> stops(static_cast<std::size_t>(dots), Unit('.'));
    const std::size_t head = mode == FitMode::cutEnd     ? kept
                             : mode == FitMode::cutFront ? 0
                                                         : kept / 2;
    return compose<Unit>({text.substr(0, head), stops, text.substr(text.size() - (kept - head))});
}

/// A text of `width` full stops, at most as many as a text may be long.
template <class Unit> Buffer<Unit> onlyStops(std::int32_t width) {
    const std::int64_t count = std::clamp<std::int64_t>(width, 0, longestText<Unit>);
    Buffer<Unit> result = makeRoom<Unit>(count);
    std::fill_n(result.data, count, Unit('.'));
    return result;
}

} // namespace zeltext
