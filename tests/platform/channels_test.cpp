// SPDX-License-Identifier: Apache-2.0
// What is written to standard error, by this process and by those it starts.
#include "platform/channels.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace platform::test {
namespace {

TEST(ErrorTap, TakesWhatThisProcessAndItsChildrenSayAndNothingAfterwards) {
    std::string taken;
    {
        const ErrorTap tap([&](std::string_view piece) { taken += piece; });
        std::fputs("from here\n", stderr);
        QProcess child;
        child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        child.start(QStringLiteral(CHILD_PROGRAM), {"talk", "unused"});
        ASSERT_TRUE(child.waitForFinished());
        tap.write("past the tap\n");
    }
    std::fputs("no longer\n", stderr);
    EXPECT_EQ(taken.substr(0, 14), "from here\nword");
    EXPECT_EQ(taken.size(), 10u + 100 * 4);
}

} // namespace
} // namespace platform::test
