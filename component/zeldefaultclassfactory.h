// SPDX-License-Identifier: Apache-2.0
// The module's class table. It is filled during static initialisation, on one thread, and only
// read afterwards; it is never torn down, so that late callers find it.
#pragma once

#include "component/izelclassfactory.h"

#include <vector>

class ZelItemFactory;

class ZelDefaultClassFactory : public IZelClassFactory {
public:
    std::int32_t createInstance(const ZelGuid& id, IZelUnknown** out) override;
    std::int32_t classCount() override;
    bool firstClass(ZelGuid* out) override;
    bool nextClass(ZelGuid* out) override;
    const char* className(const ZelGuid& id) override;
    /// Appends the identifiers whose second name is `name`.
    void classesInCategory(const char* name, std::vector<ZelGuid>& out);
};

/// Made, with its table, at the first call.
ZelDefaultClassFactory* zelClassFactory();

/// Offers a class under the item's identifier, in place of any offered before. The item must live
/// as long as the module; null is ignored.
void zelRegisterClass(ZelItemFactory* item);
