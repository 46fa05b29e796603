// SPDX-License-Identifier: Apache-2.0
// Every kind of message against the files in golden/: its bytes, and its text letter by letter.
#include "tests/cadimport/samplemessages.h"

#include <QFile>

#include <gtest/gtest.h>

namespace {

using namespace CADImport;

QString dump(const Message& message) {
    QString text;
    QTextStream stream(&text);
    stream << message;
    return text;
}

QByteArray golden(const char* name) {
    QFile file(QStringLiteral(GOLDEN_DIRECTORY "/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return file.readAll();
}

/// Every flag is drawn both ways, and every list is empty once.
TEST(Messages, HaveTheBytesAndTheTextOfOldFiles) {
    sample::Random random(17);
    QByteArray records;
    QString text;
    for (const int length : {0, 1, 2, 3, 0, 1, 2}) {
        for (const auto& message : sample::oneOfEach(random, length)) {
            records += sample::record(*message);
            text += dump(*message);
        }
    }
    EXPECT_TRUE(records == golden("messages.direct"));
    const QList<QByteArray> expected = golden("messages.txt").split('\n');
    const QList<QByteArray> lines = text.toUtf8().split('\n');
    ASSERT_EQ(lines.size(), expected.size());
    for (int i = 0; i < lines.size(); ++i) ASSERT_EQ(lines[i], expected[i]) << "line " << i + 1;
}

TEST(Dump, OfWordsDoesntEscapeThem) {
    EXPECT_EQ(dump(SetParameterMessage({"say \"<>\""})),
              "<SetParameters>\n\t\"say \"<>\"\"\n</SetParameters>\n");
}

TEST(Dump, OfANurbsSurfaceCountsEveryRowByTheFirst) {
    CreateNURBSSurface surface;
    surface.controlPoints = {{{1, 2, 3, 4}}, {{5, 6, 7, 8}, {9, 9, 9, 9}}, {}};
    EXPECT_TRUE(dump(surface).endsWith("\tcontrolPoints=( number=3\n"
                                       "\t( number=1\n\t\t( 1 2 3 4)\n\t)\n"
                                       "\t( number=1\n\t\t( 5 6 7 8)\n\t)\n"
                                       "\t( number=1\n\t)\n"
                                       "\t)\n</CreateNURBSSurface>\n"));
}

} // namespace
