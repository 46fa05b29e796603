// SPDX-License-Identifier: Apache-2.0
/// @file
/// Fills the placeholders %1 and up of a text with narrow arguments.
#pragma once

#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

#include <concepts>

/// Replaces %n to %1, the highest first, each in the result of the previous step, so that a
/// placeholder inside a higher argument is filled too. The placeholder of a null argument stays.
KorString zelFormatDescending(const char* text, std::int32_t n, const KorCString* const* args);

/// The same with one to six arguments written out.
template <class... Args>
requires(sizeof...(Args) >= 1 && sizeof...(Args) <= 6 &&
         (std::convertible_to<const Args&, const KorCString&> && ...)) KorString
    zelFormat(const char* text, const Args&... args) {
    const auto fill = [text](const auto&... texts) {
        const KorCString* const pointers[] = {&texts...};
        return zelFormatDescending(text, static_cast<std::int32_t>(sizeof...(texts)), pointers);
    };
    return fill(static_cast<const KorCString&>(args)...);
}

/// Replaces %1 to %n in rising order, so that with ten or more arguments %1 is also filled at the
/// start of %10.
KorString zelFormat(const char* text, std::int32_t n, const KorCString* args);
