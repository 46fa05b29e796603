// SPDX-License-Identifier: Apache-2.0
/// @file
/// The module's translator, through which every text for the user goes.
///
/// The translator in use is the one that the host's translator service has for this component, else
/// the host's service "IZelTranslator", else a trivial one for which the key is its own text. While
/// the host has no translator service, each call asks for it again. There is no lock: two threads
/// must not translate the first text at once.
#pragma once

#include "component/objects/services/izeltranslator.h"
#include "zelbasictypes/text/korstring.h"

/// The translator in use, borrowed, never null.
IZelTranslator* getTranslator();
/// Changes the translator in use, unless it came from the translator service; null makes the next
/// getTranslator find one anew. Takes a reference.
void setTranslator(IZelTranslator* translator);

/// The translation of `key`, with the placeholders %1 and up filled by up to six arguments, whose
/// own text isn't searched. A null key gives a null text.
template <class... Args> KorString zelTranslate(const char* key, const Args&... args) {
    static_assert(sizeof...(Args) <= 6);
    return getTranslator()->translate(key, args...);
}
/// The same for `count` arguments in an array. Here each placeholder, in rising order, is filled
/// only where it occurs first, even inside an argument filled in before; %1 also matches the start
/// of %10. A placeholder that the text doesn't have is passed over.
inline KorString zelTranslateList(const char* key, std::int32_t count, const KorString* args) {
    return getTranslator()->translateList(key, count, args);
}
