// SPDX-License-Identifier: Apache-2.0
/// @file
/// The module's class table. It is filled during static initialisation, on one thread, and only
/// read afterwards. It lives until the module is unloaded, so that late callers find it.
#pragma once

#include "component/izelclassfactory.h"

#include <vector>

class ZelItemFactory;

/// The class table that item factories enter. Its enumeration has one position, for one thread at a
/// time.
class ZelDefaultClassFactory : public IZelClassFactory {
public:
    std::int32_t createInstance(const ZelGuid& id, IZelUnknown** out) override;
    std::int32_t classCount() override;
    bool firstClass(ZelGuid* out) override;
    bool nextClass(ZelGuid* out) override;
    const char* className(const ZelGuid& id) override;
    /// Appends the identifiers of the classes whose category is `name`.
    void classesInCategory(const char* name, std::vector<ZelGuid>& out);
};

/// The table, made by the first call. Never null.
ZelDefaultClassFactory* zelClassFactory();

/// Offers a class under the item's identifier and replaces an earlier one. The item must live as
/// long as the module. Null is ignored.
void zelRegisterClass(ZelItemFactory* item);
