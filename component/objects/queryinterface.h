// SPDX-License-Identifier: Apache-2.0
/// @file
/// The answer to `qi` that every concrete class gives.
#pragma once

#include "component/objects/classwalk.h"
#include "component/objects/izelunknown.h"

#include <cstring>

/// Answers `qi` for `object`, which is known under `ownName`, "IZelUnknown" and the names of
/// `Interfaces`. With a null name it reports the class and each of these interfaces to the walk
/// that `result` points to.
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
