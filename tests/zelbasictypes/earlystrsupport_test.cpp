// SPDX-License-Identifier: Apache-2.0
// A string that asks for the host's text operations before the host is there. A program of its own,
// since a process looks for them only once.
#include "component/objects/services/izelstrsupport.h"
#include "tests/support/fakemanager.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"
#include "zelbasictypes/text/strsupport.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

/// Must not be asked.
class UnusedSupport : public virtual IZelStrSupport {
public:
    void qi(const char* name, void** result, std::int32_t) override {
        zelAnswerQuery<IZelStrSupport>(this, className(), name, result);
    }
    const char* className() override { return "UnusedSupport"; }

    void toNarrow(KorCString&, const KorString&) override { note(); }
    std::int32_t compare(const KorString&, const KorString&) override { return note(); }
    bool isSpace(char16_t) override { return note() != 0; }
    bool isDigit(char16_t) override { return note() != 0; }
    bool contains(const KorString&, const KorString&, bool) override { return note() != 0; }
    void stripSpace(char16_t*) override { note(); }
    void simplify(char16_t*) override { note(); }
    void toLower(char16_t*) override { note(); }
    void toUpper(char16_t*) override { note(); }

    int asked = 0;

private:
    int note() { return ++asked; }
};

TEST(EarlyStrSupport, LeavesThePlainFormsInForceOnceItWasMissed) {
    EXPECT_FALSE(KorString("b") < KorString("a"));
    testsupport::FakeManager manager;
    auto* const service = new UnusedSupport; // the manager's
    manager.offer(IZelStrSupport::interfaceName, service);
    const KorString text(u"A b\u00e97");
    EXPECT_EQ(zelStrSupport(), nullptr);
    EXPECT_STREQ(text.toNarrow(), "A b7");
    EXPECT_EQ(text.compare("B"), -1);
    EXPECT_TRUE(text.isSpaceAt(1) && text.isDigitAt(4));
    EXPECT_TRUE(text.contains("a B", false));
    EXPECT_EQ(text.stripSpace(), KorString(u"Ab\u00e97"));
    EXPECT_EQ(text.simplify(u'_'), text);
    EXPECT_EQ(text.toLower(), KorString(u"a b\u00e97"));
    EXPECT_EQ(text.toUpper(), KorString(u"A B\u00e97"));
    EXPECT_EQ(service->asked, 0);
    EXPECT_EQ(std::count(manager.lookups.begin(), manager.lookups.end(), "IZelStrSupport"), 0);
}

} // namespace
