// SPDX-License-Identifier: Apache-2.0
// An item factory enters the class table when it is made.
#include "component/itemfactory.h"

#include "component/zeldefaultclassfactory.h"

ZelItemFactory::ZelItemFactory(const char* className, const char* category, const ZelGuid& id)
    : className_(className), category_(category), classId(id) {
    zelRegisterClass(this);
}
