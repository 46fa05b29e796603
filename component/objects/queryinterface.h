// SPDX-License-Identifier: Apache-2.0
// The pattern that every concrete class follows in its `qi`, written once.
#pragma once

#include "component/objects/classwalk.h"
#include "component/objects/izelunknown.h"

#include <cstring>

/// Answers `qi` for `object`: first the class's own name, then "IZelUnknown", then the interfaces
/// in the order given. With a null name it reports the class with bases and each interface without.
template <class... Interfaces, class T>
void zelAnswerQuery(T* object, const char* ownName, const char* name, void** result) {
    if (!name) {
        auto* walk = reinterpret_cast<ZelObjectWalk*>(result);
        zelWalkClass(ownName, 1, walk);
        (zelWalkClass(Interfaces::interfaceName, 0, walk), ...);
        return;
    }
    *result = nullptr;
    if (std::strcmp(name, ownName) == 0) {
        *result = object;
    } else if (std::strcmp(name, IZelUnknown::interfaceName) == 0) {
        *result = static_cast<IZelUnknown*>(object);
    } else {
        static_cast<void>(((std::strcmp(name, Interfaces::interfaceName) == 0 &&
                            (*result = static_cast<Interfaces*>(object))) ||
                           ...));
    }
}
