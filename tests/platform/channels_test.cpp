// SPDX-License-Identifier: Apache-2.0
// What is written to standard error, by this process and by those it starts.
#include "platform/channels.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <cstdio>
#include <iostream>
#include <string>

namespace platform::test {
namespace {

TEST(ErrorTap, TakesWhatChildrenSayAndLeavesThisProcessItsLastWords) {
    std::string taken;
    {
        const ErrorTap tap([&](std::string_view piece) { taken += piece; });
        std::fputs("last words\n", stderr);
        QProcess child;
        child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        child.start(QStringLiteral(CHILD_PROGRAM), {"talk", "unused"});
        ASSERT_TRUE(child.waitForFinished());
        tap.write("past the tap\n");
    }
    std::cerr << "no longer\n";
    EXPECT_EQ(taken.substr(0, 8), "wordword");
    EXPECT_EQ(taken.size(), 100u * 4);
}

} // namespace
} // namespace platform::test
