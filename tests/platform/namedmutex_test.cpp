// SPDX-License-Identifier: Apache-2.0
// Mutexes that processes share.
#include "platform/clock.h"
#include "platform/sync.h"
#include "tests/platform/childprocess.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

namespace platform::test {
namespace {

class NamedMutex : public testing::Test {
protected:
    bool canTakeOnAnotherThread() const {
        bool taken = false;
        std::thread([&] {
            const auto mutex = openNamedMutex(name.c_str());
            taken = mutex && mutex->wait(0);
        }).join();
        return taken;
    }

    const std::string name = "zel test/\xc3\xa4 " + std::to_string(processId());
};

TEST_F(NamedMutex, IsOneForAllWhoOpenIt) {
    EXPECT_EQ(openNamedMutex(name.c_str()), nullptr) << "nobody has made it";
    auto first = createNamedMutex(name.c_str());
    ASSERT_NE(first, nullptr);
    EXPECT_NE(createNamedMutex(name.c_str()), nullptr) << "made already is good too";
    EXPECT_TRUE(canTakeOnAnotherThread());
    EXPECT_TRUE(first->wait(0) && first->wait(0));
    EXPECT_FALSE(canTakeOnAnotherThread());
    EXPECT_TRUE(first->signal());
    EXPECT_FALSE(canTakeOnAnotherThread());
    EXPECT_TRUE(first->signal());
    EXPECT_FALSE(first->signal());
    EXPECT_TRUE(canTakeOnAnotherThread());

    const auto other = createNamedMutex((name + "2").c_str());
    EXPECT_TRUE(first->wait(0));
    EXPECT_TRUE(other->wait(0)) << "another name is another mutex";
}

TEST_F(NamedMutex, LosesItsNameWithItsLastUser) {
    auto first = createNamedMutex(name.c_str());
    auto second = openNamedMutex(name.c_str());
    first.reset();
    EXPECT_NE(openNamedMutex(name.c_str()), nullptr);
    EXPECT_TRUE(second->wait(0));
    second.reset();
    EXPECT_EQ(openNamedMutex(name.c_str()), nullptr);
    auto fresh = createNamedMutex(name.c_str());
    EXPECT_TRUE(canTakeOnAnotherThread()) << "let go by its destruction";
}

TEST_F(NamedMutex, PassesOnWhenItsHolderIsKilled) {
    const auto mutex = createNamedMutex(name.c_str());
    ChildProcess child({"hold", QString::fromLocal8Bit(name.c_str())});
    ASSERT_EQ(child.line(), "held");
    EXPECT_FALSE(mutex->wait(0));
    EXPECT_FALSE(mutex->wait(30));
    child.kill();
    EXPECT_TRUE(mutex->wait(5000));
    EXPECT_TRUE(mutex->signal());
    EXPECT_TRUE(canTakeOnAnotherThread()) << "sound again afterwards";
}

TEST_F(NamedMutex, LeavesNoNameBehindWhenItsLastUserIsKilled) {
    ChildProcess child({"hold", QString::fromLocal8Bit(name.c_str())});
    ASSERT_EQ(child.line(), "held");
    EXPECT_NE(openNamedMutex(name.c_str()), nullptr);
    child.kill();
    EXPECT_EQ(openNamedMutex(name.c_str()), nullptr);
    const auto fresh = createNamedMutex(name.c_str());
    ASSERT_NE(fresh, nullptr);
    EXPECT_TRUE(fresh->wait(0));
}

} // namespace
} // namespace platform::test
