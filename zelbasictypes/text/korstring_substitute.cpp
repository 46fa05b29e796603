// SPDX-License-Identifier: Apache-2.0
// Filling placeholders in one pass.
#include "zelbasictypes/memory/zelnew.h"
#include "zelbasictypes/text/korstring.h"
#include "zelbasictypes/text/textbuffer.h"

namespace {

/// The argument that the unit behind a percent sign names, or -1. ":" is the digit ten.
int argumentIndex(char16_t unit) { return unit >= u'1' && unit <= u':' ? unit - u'1' : -1; }

using Pieces = ZelVector<std::u16string_view>;

/// The text as stretches and arguments in turn; a single piece when there is no placeholder.
Pieces cutAtPlaceholders(std::u16string_view text, const KorString* const* args) {
    Pieces pieces;
    std::size_t done = 0;
    for (std::size_t at = text.find(u'%'); at < text.size(); at = text.find(u'%', at + 2)) {
        const int index = at + 1 < text.size() ? argumentIndex(text[at + 1]) : -1;
        if (index < 0) continue;
        pieces.push_back(text.substr(done, at - done));
        pieces.push_back(args[index] ? args[index]->view() : std::u16string_view());
        done = at + 2;
    }
    pieces.push_back(text.substr(done));
    return pieces;
}

} // namespace

void KorString::substitute(const KorString* const* args) {
    if (!text.isOwned()) return;
    const Pieces pieces = cutAtPlaceholders(view(), args);
    if (pieces.size() == 1) return;
    const zeltext::Buffer<char16_t> filled = zeltext::compose(pieces.data(), pieces.size());
    text.release();
    text = filled;
    forgetNarrowForm();
}
