// SPDX-License-Identifier: Apache-2.0
// The trace files of a connection.
#include "client/clientcontrolthread.h"

#include "tests/support/tracefiles.h"

#include <gtest/gtest.h>

namespace {

class MessageTraceTest : public testing::Test {
protected:
    QByteArray trace(const char* which) const { return files.content(which); }

    testsupport::TraceFiles files;
};

const char okBlock[] = "<QByteArray length=\"12\">\n"
                       "   0   0   0   8   0   0   0   4   0  4f\n"
                       "   0  4b\n"
                       "</QByteArray>\n\n";

} // namespace

TEST_F(MessageTraceTest, WritesTenBytesALineAndAppendsBlocks) {
    ClientControlThread::writeReadTrace(QByteArray("\0\0\0\x08\0\0\0\x04\0O\0K", 12));
    EXPECT_EQ(trace("Read"), okBlock);
    ClientControlThread::writeReadTrace({});
    ClientControlThread::writeReadTrace("\xff\n 3456789");
    EXPECT_EQ(trace("Read"), QByteArray(okBlock) + "<QByteArray length=\"0\">\n\n</QByteArray>\n\n"
                                                   "<QByteArray length=\"10\">\n"
                                                   "  ff   a  20  33  34  35  36  37  38  39\n"
                                                   "</QByteArray>\n\n");
    EXPECT_EQ(trace("Send"), "");
    ClientControlThread::writeSendTrace({});
    EXPECT_EQ(trace("Send"), "<QByteArray length=\"0\">\n\n</QByteArray>\n\n");
}

TEST_F(MessageTraceTest, LeavesNothingWhereTheDirectoryIsMissing) {
    if (!QDir().rmdir(files.folder)) GTEST_SKIP() << "somebody else's files are in C:\\Temp";
    ClientControlThread::writeReadTrace("x");
    EXPECT_FALSE(QDir(files.folder).exists());
}
