// SPDX-License-Identifier: Apache-2.0
// The way of every text to the user: a key in plain words goes through the module's one translator.
//
// The translator in use is the one that the host's translator service gives this component, else
// the host's service "IZelTranslator", else a trivial one for which the key is its own text. As
// long as the host has no translator service, each call asks for it again. The translator itself
// carries no lock: the first text must not be asked for by two threads at once.
#pragma once

#include "component/objects/services/izeltranslator.h"
#include "zelbasictypes/text/korstring.h"

/// The translator in use, borrowed, never null.
IZelTranslator* getTranslator();
/// Changes the translator in use, unless it came from the translator service; null makes the next
/// getTranslator find one anew. Takes a reference.
void setTranslator(IZelTranslator* translator);

/// The translation with %1 and up filled by the arguments, whose own text is not searched. A null
/// key gives a null text. The exact set of argument counts is that of IZelTranslator, 0 to 6.
template <class... Args> KorString zelTranslate(const char* key, const Args&... args) {
    static_assert(sizeof...(Args) <= 6);
    return getTranslator()->translate(key, args...);
}
/// The same for `count` arguments in an array. Here each marker, in rising order, is filled at its
/// first place only, also where that lies in an argument filled in before; %1 also stands at the
/// start of %10. A marker that the text doesn't have is passed over.
inline KorString zelTranslateList(const char* key, std::int32_t count, const KorString* args) {
    return getTranslator()->translateList(key, count, args);
}
