// SPDX-License-Identifier: Apache-2.0
// Which visitors a message finds.
#include "cadimport/controlmessages.h"
#include "cadimport/topologymessages.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using namespace CADImport;

struct Counter : BaseVisitor, Visitor<OKMessage, void, true>, Visitor<CreateVertex, void, true> {
    int ok = 0;
    int lastVertex = -1;
    void visit(const OKMessage&) override { ++ok; }
    void visit(const CreateVertex& vertex) override { lastVertex = vertex.identifier; }
};

/// Keeps its handler elsewhere than Counter does.
struct Padded : Visitor<CreateVertex, void, true>, BaseVisitor {
    double padding[4] = {};
    int lastVertex = -1;
    void visit(const CreateVertex& vertex) override { lastVertex = vertex.identifier; }
};

/// Has Counter somewhere inside, so that the same base lies at another place.
struct Derived : Padded, Counter {};

struct Deaf : BaseVisitor {};

CreateVertex vertex(int identifier) {
    CreateVertex message;
    message.identifier = identifier;
    return message;
}

TEST(Accept, PassesAVisitorWithoutAHandler) {
    Counter counter;
    EscapeMessage().accept(counter);
    EXPECT_EQ(counter.ok, 0);
    EXPECT_EQ(counter.lastVertex, -1);
}

TEST(Accept, FindsTheHandlerInVisitorsOfChangingClasses) {
    Counter counter;
    Padded padded;
    Derived derived;
    Deaf deaf;
    for (int i = 0; i < 3; ++i) { // an invalid message first
        const Message& message = vertex(i);
        message.accept(counter);
        vertex(10 * i).accept(padded);
        vertex(100 * i).accept(deaf);
        OKMessage().accept(static_cast<Counter&>(derived));
        OKMessage().accept(counter);
        EXPECT_EQ(counter.lastVertex, i);
        EXPECT_EQ(padded.lastVertex, 10 * i);
        EXPECT_EQ(derived.ok, i + 1);
        EXPECT_EQ(counter.ok, i + 1);
    }
}

TEST(Accept, WorksOnSeveralThreadsAtOnce) {
    const auto work = [](auto visitor) {
        for (int i = 1; i <= 10000; ++i) {
            vertex(i).accept(visitor);
            ASSERT_EQ(visitor.lastVertex, i);
        }
    };
    std::thread other([&] { work(Padded()); });
    work(Counter());
    other.join();
}

} // namespace
