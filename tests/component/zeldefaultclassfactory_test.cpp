// SPDX-License-Identifier: Apache-2.0
// Offering classes by identifier. The table is the process's own, so each test uses identifiers of
// its own.
#include "component/zeldefaultclassfactory.h"

#include "component/itemfactory.h"
#include "component/objects/queryinterface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

namespace {

class Thing : public virtual IZelUnknown {
public:
    Thing() { ++made; }
    void qi(const char* name, void** result, std::int32_t) override {
        zelAnswerQuery<>(this, className(), name, result);
    }
    const char* className() override { return "Thing"; }

    static inline int made = 0;
};

ZelGuid idOf(std::uint32_t number, std::uint8_t last = 0) {
    return {number, 0x1234, 0, {0, 0, 0, 0, 0, 0, 0, last}};
}

ZelTClassItemFactory<Thing> plain{"Plain", "garden", idOf(1)};
ZelSingletonTClassItemFactory<Thing> single{"Single", nullptr, idOf(2)};
ZelTClassItemFactory<Thing> older{"Older", "garden", idOf(3)};
ZelTClassItemFactory<Thing> newer{"Newer", "house", idOf(3)};

std::vector<ZelGuid> enumerated() {
    std::vector<ZelGuid> ids;
    ZelGuid id;
    for (bool more = zelClassFactory()->firstClass(&id); more;
         more = zelClassFactory()->nextClass(&id)) {
        ids.push_back(id);
    }
    return ids;
}

TEST(ClassFactory, MakesANewObjectEachTime) {
    IZelUnknown* first = nullptr;
    IZelUnknown* second = nullptr;
    EXPECT_EQ(zelClassFactory()->createInstance(idOf(1), &first), 1);
    EXPECT_EQ(zelClassFactory()->createInstance(idOf(1), &second), 1);
    const std::unique_ptr<IZelUnknown> owners[] = {std::unique_ptr<IZelUnknown>(first),
                                                   std::unique_ptr<IZelUnknown>(second)};
    ASSERT_TRUE(first && second);
    EXPECT_NE(first, second);
    EXPECT_EQ(first->refCount(), 0);
    EXPECT_STREQ(first->className(), "Thing");
}

TEST(ClassFactory, SharesTheOneObjectOfASingletonClass) {
    IZelUnknown* first = nullptr;
    IZelUnknown* second = nullptr;
    const int before = Thing::made;
    EXPECT_EQ(zelClassFactory()->createInstance(idOf(2), &first), 2);
    EXPECT_EQ(zelClassFactory()->createInstance(idOf(2), &second), 2);
    EXPECT_EQ(first, second);
    EXPECT_EQ(first->refCount(), 1);
    EXPECT_EQ(Thing::made, before + 1);
}

TEST(ClassFactory, LeavesUnknownIdentifiersAlone) {
    auto* const untouched = reinterpret_cast<IZelUnknown*>(&plain);
    IZelUnknown* out = untouched;
    // The same bucket as a class that is there, but another identifier.
    EXPECT_EQ(zelClassFactory()->createInstance(idOf(1, 9), &out), 0);
    EXPECT_EQ(out, untouched);
    EXPECT_EQ(zelClassFactory()->className(idOf(1, 9)), nullptr);
    zelRegisterClass(nullptr);
}

TEST(ClassFactory, LaterClassReplacesTheEarlierUnderOneIdentifier) {
    EXPECT_STREQ(zelClassFactory()->className(idOf(1)), "Plain");
    EXPECT_STREQ(zelClassFactory()->className(idOf(3)), "Newer");
    const auto ids = enumerated();
    EXPECT_EQ(std::count(ids.begin(), ids.end(), idOf(3)), 1);
}

TEST(ClassFactory, GathersClassesByCategory) {
    std::vector<ZelGuid> out = {idOf(99)};
    zelClassFactory()->classesInCategory("garden", out);
    EXPECT_EQ(out, (std::vector<ZelGuid>{idOf(99), idOf(1)}));
    zelClassFactory()->classesInCategory("attic", out);
    zelClassFactory()->classesInCategory(nullptr, out);
    EXPECT_EQ(out.size(), 2u);
}

TEST(ClassFactory, ListsEachClassOnceAndThenNoMore) {
    auto ids = enumerated();
    EXPECT_EQ(static_cast<std::int32_t>(ids.size()), zelClassFactory()->classCount());
    for (const ZelGuid& id : ids) EXPECT_NE(zelClassFactory()->className(id), nullptr);
    std::sort(ids.begin(), ids.end(), ZelGuidLess());
    EXPECT_EQ(std::adjacent_find(ids.begin(), ids.end()), ids.end());
    ZelGuid id = idOf(99);
    EXPECT_FALSE(zelClassFactory()->nextClass(&id));
    EXPECT_EQ(id, idOf(99));
}

} // namespace
