// SPDX-License-Identifier: Apache-2.0
// The services together: each can be found, each can be left out, and the library uses them.
#include "host/services/services.h"

#include "component/objects/services/iguibusystate.h"
#include "component/objects/services/imacromgr.h"
#include "component/objects/services/izelasserthandlercb.h"
#include "component/objects/services/izelerrorservice.h"
#include "component/objects/services/izelrandom.h"
#include "host/services/translatorservice.h"
#include "tests/host/hosttest.h"
#include "zelbasictypes/diagnostics/zelassert.h"
#include "zelbasictypes/text/zeltranslator.h"

#include <QTemporaryFile>

#include <sstream>

namespace host {
namespace {

const char* const allServices[] = {
    "IDataStore",     "IGuiSimpleDlg",     "IGuiBusyState",         "IMacroMgr",
    "IZelDirService", "IZelErrorService",  "IZelAssertHandlerCB",   "IGfxRenderer",
    "IMemChecker",    "IZelStrSupport",    "IZelProgress",          "IZelRandom",
    "IZelMManager",   "IBucketMemoryPool", "IZelTranslatorService", "IZelTranslator"};

class ServicesTest : public HostTest {
protected:
    Services offer() { return offerServices(rootManager(), {out, nullptr, {}, settings}); }

    IPtr<SettingsStore> settings{new SettingsStore};
    std::ostringstream out;
};

TEST_F(ServicesTest, EachIsFoundUnderItsNameAndCanBeLeftOut) {
    offer();
    for (const char* name : allServices) {
        void* found = nullptr;
        EXPECT_EQ(zelGetService(name, &found), 1) << name;
        EXPECT_NE(found, nullptr) << name;
        EXPECT_TRUE(rootManager().withdraw(name)) << name;
        EXPECT_NE(zelGetService(name, &found), 1) << name;
    }
}

TEST_F(ServicesTest, ErrorsAndFailedAssertionsAreTold) {
    offer();
    const std::int32_t kind = 1;
    find<IZelErrorService>()->report(text("no room"), &kind, "realloc");
    find<IZelErrorService>()->report(text("no room"), &kind, KorCString());
    zelAssertFail("start >= 0", "some.cpp", 12);
    EXPECT_EQ(out.str(), "error: realloc: no room\nerror: no room\n"
                         "assertion failed: start >= 0 (some.cpp:12)\n");
}

TEST_F(ServicesTest, AWishToStopStays) {
    const Services services = offer();
    EXPECT_FALSE(find<IGuiBusyState>()->isCancelled());
    services.busyState->cancel();
    EXPECT_TRUE(find<IGuiBusyState>()->isCancelled());
}

TEST_F(ServicesTest, AMacroRunsWhenTheSettingSaysSo) {
    offer();
    EXPECT_FALSE(find<IMacroMgr>()->query(true));
    settings->set("Host/Macro Running", QStringLiteral("1"));
    offer();
    EXPECT_TRUE(find<IMacroMgr>()->query(true));
}

TEST_F(ServicesTest, DirectoriesAreThoseThatWereSet) {
    const Services services = offer();
    services.directories->setDirectory("temp", text("/t"));
    EXPECT_EQ(toUtf8(services.directories->directory("temp")), "/t");
    EXPECT_TRUE(services.directories->directory("other").isEmpty());
    EXPECT_TRUE(services.directories->directory(nullptr).isEmpty());
}

TEST_F(ServicesTest, RandomNumbersRepeatWithTheSeedAndStayBelowTheLimit) {
    offer();
    auto& random = *find<IZelRandom>();
    const auto draw = [&](std::int32_t seed) {
        random.seed(seed);
        std::vector<std::int32_t> numbers;
        for (int i = 0; i < 200; ++i) numbers.push_back(random.below(7));
        return numbers;
    };
    const auto numbers = draw(412);
    EXPECT_EQ(draw(412), numbers);
    EXPECT_NE(draw(413), numbers);
    for (int value = 0; value < 7; ++value) {
        EXPECT_NE(std::count(numbers.begin(), numbers.end(), value), 0) << value;
    }
    EXPECT_EQ(*std::max_element(numbers.begin(), numbers.end()), 6);
    EXPECT_EQ(random.below(0), 0);
}

TEST_F(ServicesTest, TextsAreTranslatedFromTheFileAndFilled) {
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write("# key, tab, translation\nIt failed to start\tEs startet nicht\n"
               "%1 of %2\tvon %2:\\n%1\nno tab here\n");
    file.flush();
    settings->set("Host/Translations", file.fileName());
    offer();
    IZelTranslator* translator = find<IZelTranslatorService>()->translatorFor(nullptr);
    ASSERT_NE(translator, nullptr);
    EXPECT_EQ(toUtf8(translator->translate("It failed to start")), "Es startet nicht");
    EXPECT_EQ(toUtf8(translator->translate("%1 of %2", text("a"), text("%1"))), "von %1:\na");
    EXPECT_EQ(toUtf8(translator->translate("%1.direct", text("base"))), "base.direct");
    EXPECT_EQ(find<IZelTranslator>(), translator) << "by its own name too";
}

TEST_F(ServicesTest, WithoutAFileEveryKeyIsItsOwnTextAndABadFileIsTold) {
    offer();
    EXPECT_EQ(find<IZelTranslatorService>()->translatorFor(nullptr), nullptr);
    settings->set("Host/Translations", QStringLiteral("no such file"));
    offer();
    EXPECT_EQ(out.str(), "the translations can't be read: no such file\n");
}

} // namespace
} // namespace host
