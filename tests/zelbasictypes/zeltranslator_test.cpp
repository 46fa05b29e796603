// SPDX-License-Identifier: Apache-2.0
// Texts without a language, and which translator is in use.
#include "zelbasictypes/text/zeltranslator.h"

#include "component/objects/moduleidentity.h"
#include "component/objects/services/izeltranslatorservice.h"
#include "tests/support/fakemanager.h"
#include "tests/support/service.h"
#include "zelbasictypes/text/zeltrivialtranslator.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

/// Puts its mark in front of every key.
class Marking : public ZelTrivialTranslator {
public:
    explicit Marking(const char* mark) : mark_(mark) {}
    bool lookup(const char* key, KorString& out) override {
        out = KorString(mark_);
        out.append(KorString(key));
        return false;
    }

private:
    const char* mark_;
};

class Translators : public testsupport::Service<IZelTranslatorService> {
public:
    IZelTranslator* translatorFor(const ZelGuid* componentId) override {
        EXPECT_EQ(componentId, zelComponentId());
        ++asked;
        return answer;
    }
    IZelTranslator* answer = nullptr;
    int asked = 0;
};

/// Runs the checks in a process of their own: the translator in use is the process's.
template <class Checks> void inFreshProcess(Checks checks) {
    const auto run = [&checks] {
        checks();
        std::exit(testing::Test::HasFailure() ? 1 : 0);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
}

TEST(TrivialTranslator, FillsPlaceholdersInOnePass) {
    ZelTrivialTranslator trivial;
    IZelTranslator& t = trivial;
    EXPECT_EQ(t.translate("%1.direct", "part"), "part.direct");
    EXPECT_EQ(t.translate("%1 %2", "%2", "x"), "%2 x");
    EXPECT_EQ(t.translate("%3%2%1", "a", "b", "c"), "cba");
    EXPECT_EQ(t.translate("%4%3%2%1", "a", "b", "c", "d"), "dcba");
    EXPECT_EQ(t.translate("%5%4%3%2%1", "a", "b", "c", "d", "e"), "edcba");
    EXPECT_EQ(t.translate("%6%5%4%3%2%1", "a", "b", "c", "d", "e", "f"), "fedcba");
}

TEST(TrivialTranslator, NullKeyGivesANullText) {
    ZelTrivialTranslator trivial;
    IZelTranslator& t = trivial;
    const KorString argument("a");
    EXPECT_FALSE(t.query());
    EXPECT_TRUE(t.translate(nullptr).isNull());
    EXPECT_TRUE(t.translate(nullptr, "a").isNull());
    EXPECT_TRUE(t.translateList(nullptr, 1, &argument).isNull());
}

TEST(TrivialTranslator, ListFillsEachMarkerOnceInRisingOrder) {
    KorString args[12];
    for (int i = 0; i < 12; ++i) args[i] = KorString(i + 100);
    args[0] = "%2";
    args[2] = "";
    struct {
        const char* key;
        std::int32_t count;
        const char* text;
    } const cases[] = {
        {"%1 and %2", 0, "%1 and %2"},  {"%1", -3, "%1"},        {"%1 %2", 1, "%2 %2"},
        {"%1 %2", 2, "101 %2"},         {"%10 %1", 1, "%20 %1"}, {"%3", 3, ""},
        {"no marker", 12, "no marker"}, {"%", 2, "%"},           {"%12%11%10", 12, "1012110109"},
    };
    ZelTrivialTranslator trivial;
    for (const auto& c : cases) {
        EXPECT_EQ(trivial.translateList(c.key, c.count, args), c.text) << c.key << c.count;
    }
}

TEST(Translate, KeyIsItsOwnTextWithoutAnyService) {
    inFreshProcess([] {
        EXPECT_EQ(zelTranslate("It failed to start"), "It failed to start");
        IZelTranslator* const trivial = getTranslator();
        EXPECT_EQ(zelTranslate("%1.direct", "part"), "part.direct");
        const KorString list[] = {"a", "b"};
        EXPECT_EQ(zelTranslateList("%2%1", 2, list), "ba");
        EXPECT_EQ(getTranslator(), trivial);
        EXPECT_EQ(trivial->refCount(), 1);
    });
}

TEST(Translate, TakesTheServicesTranslatorWhenTheServiceComesUp) {
    inFreshProcess([] {
        EXPECT_EQ(zelTranslate("x"), "x");
        testsupport::FakeManager manager;
        auto* service = new Translators;
        service->answer = new Marking("own ");
        manager.offer("IZelTranslatorService", service);
        EXPECT_EQ(zelTranslate("x"), "own x");
        EXPECT_EQ(zelTranslate("x"), "own x");
        EXPECT_EQ(service->asked, 1);
        EXPECT_EQ(service->answer->refCount(), 1);

        Marking other("other ");
        setTranslator(&other);
        EXPECT_EQ(zelTranslate("x"), "own x");
        setTranslator(nullptr);
        EXPECT_EQ(getTranslator(), service->answer);
    });
}

TEST(Translate, TakesTheTranslatorServiceWhenThereIsNoneForTheComponent) {
    inFreshProcess([] {
        testsupport::FakeManager manager;
        manager.offer("IZelTranslator", new Marking("shared "));
        EXPECT_EQ(zelTranslate("x"), "x"); // not asked for before the translator service is there
        manager.offer("IZelTranslatorService", new Translators);
        EXPECT_EQ(zelTranslate("x"), "shared x");
        Marking* other = new Marking("other ");
        setTranslator(other);
        EXPECT_EQ(zelTranslate("x"), "other x");
        EXPECT_EQ(other->refCount(), 1);
    });
}

TEST(Translate, StaysTrivialOnceTheServiceHasNothing) {
    inFreshProcess([] {
        testsupport::FakeManager manager;
        auto* service = new Translators;
        manager.offer("IZelTranslatorService", service);
        EXPECT_EQ(zelTranslate("x"), "x");
        service->answer = new Marking("late ");
        const IPtr<IZelTranslator> late(service->answer);
        EXPECT_EQ(zelTranslate("x"), "x");
        EXPECT_EQ(service->asked, 1);
    });
}

} // namespace
