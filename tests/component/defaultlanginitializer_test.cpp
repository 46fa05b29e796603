// SPDX-License-Identifier: Apache-2.0
// The language hook hands the host's translator to the module.
#include "component/defaultlanginitializer.h"

#include "component/objects/iptr.h"
#include "tests/support/fakemanager.h"
#include "zelbasictypes/text/zeltranslator.h"
#include "zelbasictypes/text/zeltrivialtranslator.h"

#include <gtest/gtest.h>

namespace {

TEST(DefaultLangInitializer, FollowsTheHostsTranslator) {
    const IPtr<DefaultLangInitializer> hook(new DefaultLangInitializer);
    testsupport::FakeManager manager;
    auto* translator = new ZelTrivialTranslator;
    manager.offer("IZelTranslator", translator);
    EXPECT_TRUE(hook->initialize());
    EXPECT_EQ(getTranslator(), translator);
    EXPECT_EQ(translator->refCount(), 2);

    manager.withdraw("IZelTranslator");
    EXPECT_TRUE(hook->initialize());
    EXPECT_EQ(translator->refCount(), 1);
    EXPECT_NE(getTranslator(), translator);
}

} // namespace
