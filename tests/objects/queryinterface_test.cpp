// SPDX-License-Identifier: Apache-2.0
// Asking an object for its interfaces by name.
#include "component/objects/queryinterface.h"

#include <gtest/gtest.h>

namespace {

class IFront : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IFront";
    virtual int front() = 0;
};

class IBack : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IBack";
    virtual int back() = 0;
};

class IElsewhere : public virtual IZelUnknown {
public:
    static constexpr const char* interfaceName = "IElsewhere";
};

class TwoSided : public IFront, public IBack {
public:
    void qi(const char* name, void** result, std::int32_t = 0) override {
        zelAnswerQuery<IFront, IBack>(this, className(), name, result);
    }
    const char* className() override { return "TwoSided"; }
    int front() override { return 1; }
    int back() override { return 2; }
};

class QueryTest : public testing::Test {
protected:
    void* ask(const char* name) {
        void* result = this;
        object.qi(name, &result);
        return result;
    }
    TwoSided object;
};

TEST_F(QueryTest, GivesEachInterfaceAdjustedToItself) {
    EXPECT_EQ(ask("TwoSided"), &object);
    EXPECT_EQ(static_cast<IFront*>(ask("IFront"))->front(), 1);
    EXPECT_EQ(static_cast<IBack*>(ask("IBack"))->back(), 2);
    EXPECT_EQ(object.refCount(), 0);
}

TEST_F(QueryTest, RootIsTheSameFromEveryInterface) {
    auto* root = static_cast<IZelUnknown*>(ask("IZelUnknown"));
    EXPECT_EQ(zelQuery<IZelUnknown>(static_cast<IFront*>(&object)), root);
    EXPECT_EQ(zelQuery<IZelUnknown>(static_cast<IBack*>(&object)), root);
    EXPECT_EQ(zelQuery<IBack>(zelQuery<IFront>(root)), &object);
}

TEST_F(QueryTest, UnknownNamesGiveNull) {
    for (const char* name : {"", "ifront", "IFron", "IFront ", "ITwoSided"}) {
        EXPECT_EQ(ask(name), nullptr) << name;
    }
    EXPECT_EQ(zelQuery<IElsewhere>(&object), nullptr);
    EXPECT_EQ(zelQuery<IFront>(nullptr), nullptr);
}

} // namespace
