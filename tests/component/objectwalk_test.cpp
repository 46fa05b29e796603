// SPDX-License-Identifier: Apache-2.0
// What objects report about their classes and their module.
#include "component/objectwalk.h"

#include "component/manageraccess.h"
#include "component/moduleidentity.h"
#include "component/objects/queryinterface.h"
#include "component/zelbasecomponent.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

const ZelModuleIdentity identity{"walkers", ZelGuid{0xABCD, 1, 2, {}}};

/// Reports what the test says.
class Reporter : public virtual IZelUnknown {
public:
    explicit Reporter(std::function<void(ZelObjectWalk*)> report) : report_(std::move(report)) {}
    void qi(const char*, void** result, std::int32_t) override {
        report_(reinterpret_cast<ZelObjectWalk*>(result));
    }
    const char* className() override { return "Reporter"; }

private:
    std::function<void(ZelObjectWalk*)> report_;
};

/// The classes as "name<parent name<parent ...".
std::string listed(std::function<void(ZelObjectWalk*)> report) {
    Reporter object(std::move(report));
    std::vector<ZelClassRecord> classes(3);
    EXPECT_TRUE(zelListClasses(&object, classes));
    std::string text;
    for (const ZelClassRecord& record : classes) {
        text += text.empty() ? "" : " ";
        text += record.name.c_str();
        text += record.hasBases ? "+" : "";
        if (record.parent.c_str()) text += std::string("<") + record.parent.c_str();
    }
    return text;
}

TEST(ObjectWalk, ListsAClassAndTheInterfacesInIt) {
    EXPECT_EQ(listed([](ZelObjectWalk* walk) {
                  zelWalkClass("Lamp", 1, walk);
                  zelWalkClass("Socket", 1, walk);
                  zelWalkClass("IPlug", 0, walk);
                  zelLeaveClass(walk);
                  zelWalkClass("ISwitch", 0, walk);
                  zelLeaveClass(walk);
                  zelLeaveClass(walk);
                  zelWalkClass("Shade", 0, walk);
              }),
              "Lamp+ Socket+<Lamp IPlug<Socket ISwitch<Lamp Shade");
}

TEST(ObjectWalk, KeepsRepeatedClassesOnce) {
    EXPECT_EQ(listed([](ZelObjectWalk* walk) {
                  zelWalkClass("Top", 1, walk);
                  zelWalkClass("IPart", 0, walk);
                  zelWalkClass("Left", 1, walk);
                  zelWalkClass("IPart", 0, walk);
                  zelWalkClass("Top", 0, walk);
                  zelLeaveClass(walk);
                  zelWalkClass("IPart", 0, walk);
                  zelWalkClass("IPart", 0, walk);
              }),
              "Top+ IPart<Top Left+<Top IPart<Left");
}

TEST(ObjectWalk, PartsOfTheMachineryListNothing) {
    for (const char* stop : {"IZelComponent", "IZelComponentManager", "IZelComponentLoader",
                             "IZelComponentContainer", "KorComponentManager"}) {
        EXPECT_EQ(listed([stop](ZelObjectWalk* walk) {
                      zelWalkClass("Lamp", 1, walk);
                      zelWalkClass(stop, 0, walk);
                      zelWalkClass("ISwitch", 0, walk);
                      zelLeaveClass(walk);
                      zelWalkClass("IPlug", 0, walk);
                  }),
                  "")
            << stop;
    }
    EXPECT_EQ(listed([](ZelObjectWalk* walk) { zelWalkClass("IZelCompInternal", 0, walk); }),
              "IZelCompInternal");
}

TEST(ObjectWalk, NullObjectIsRefused) {
    std::vector<ZelClassRecord> classes;
    ZelComponentRecord record;
    EXPECT_FALSE(zelListClasses(nullptr, classes));
    EXPECT_FALSE(zelComponentOf(nullptr, record));
}

TEST(ObjectWalk, FirstReportedClassNamesTheModule) {
    zelSetScopeName("lab");
    Reporter object([](ZelObjectWalk* walk) {
        zelWalkClass("IZelComponent", 1, walk);
        zelSetScopeName("attic");
        zelWalkClass("IPlug", 0, walk);
        zelLeaveClass(walk);
        EXPECT_TRUE(walk->classes.empty());
    });
    ZelComponentRecord record;
    EXPECT_TRUE(zelComponentOf(&object, record));
    EXPECT_STREQ(record.moduleName, "walkers");
    EXPECT_EQ(record.componentId, identity.componentId);
    zelSetScopeName(KorCString());
}

TEST(ObjectWalk, ComponentTellsNothing) {
    ZelBaseComponent component;
    ZelComponentRecord untold;
    EXPECT_TRUE(zelComponentOf(&component, untold));
    EXPECT_EQ(untold.moduleName, nullptr);
}

} // namespace
