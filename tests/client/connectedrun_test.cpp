// SPDX-License-Identifier: Apache-2.0
// Runs with a control thread, and servers that talk as the test says.
#include "client/clientcontrolthread.h"
#include "client/ilivecontrol.h"
#include "client/tessoracadimporterclient.h"
#include "host/modelling/modellingcomponent.h"
#include "platform/clock.h"
#include "tests/support/fakemanager.h"
#include "tests/support/folder.h"
#include "tests/support/loopback.h"
#include "tests/support/wishtostop.h"

#include <QElapsedTimer>

#include <thread>

namespace {

using testsupport::WishToStop;
using Words = std::list<KorString>;

class ConnectedRunTest : public testing::Test {
protected:
    ConnectedRunTest() {
        void* found = nullptr;
        client->qi(ILiveControl::interfaceName, &found);
        live = static_cast<ILiveControl*>(found)->attachControlThread(false);
    }
    ~ConnectedRunTest() override {
        live = nullptr;
        client = nullptr;
        host::rootManager().clear();
    }

    /// A run whose server does what the words say. "REPORT" stands for a file that it leaves when
    /// it has come that far.
    bool run(std::initializer_list<const char*> deeds) {
        Words words{"-ControlSocket", "127.0.0.1", KorString(static_cast<int>(port)),
                    "-OutputBaseName", KorString(folder.path("part").toUtf8().constData())};
        for (const char* deed : deeds) {
            const bool isReport = std::strcmp(deed, "REPORT") == 0;
            words.emplace_back(isReport ? folder.path("report").toUtf8().constData() : deed);
        }
        QElapsedTimer timer;
        timer.start();
        exported.clear();
        const bool result = client->importModel({}, FAKE_SERVER, words, modelling.importTarget(),
                                                nullptr, nullptr, exported);
        elapsedMs = timer.elapsed();
        return result;
    }

    testsupport::FakeManager manager;
    host::ModellingComponent modelling{host::rootManager()};
    testsupport::Folder folder;
    /// Below 32768, which is where a port of the option list must be.
    const std::uint16_t port = [] {
        static std::uint16_t next =
            static_cast<std::uint16_t>(20000 + platform::processId() % 10000);
        while (platform::Socket probe = platform::createSocket()) {
            const bool isFree = platform::bindSocket(probe, {platform::loopbackHost, ++next}) == 0;
            platform::closeSocket(probe);
            if (isFree) break;
        }
        return next;
    }();
    IPtr<TessoraCADImporterClient> client{new TessoraCADImporterClient};
    IPtr<IZelUnknown> live;
    Words exported;
    qint64 elapsedMs = 0;
};

} // namespace

TEST_F(ConnectedRunTest, AsksForAModelAndTakesTheFilesThatTheServerNames) {
    folder.write("part.direct");
    folder.write("part.igs");
    const bool anyModels = run({"-TalkListen",
                                "-TalkAwait",
                                "OK",
                                "-TalkAwait",
                                "SendNextModel",
                                "-TalkSend",
                                "OK",
                                "-TalkResult",
                                "one",
                                "-TalkSend",
                                "Nonsense",
                                "-TalkSend",
                                "",
                                "-TalkResult",
                                "two",
                                "-TalkSend",
                                "Finish",
                                "-TalkAwait",
                                "Finish",
                                "-FakeReport",
                                "REPORT"});
    EXPECT_FALSE(anyModels);
    EXPECT_EQ(exported, (Words{"one", "two"}));
    EXPECT_TRUE(folder.has("report")) << "the server was told to go";
    EXPECT_TRUE(folder.has("part.direct")) << "no model file is read";
}

TEST_F(ConnectedRunTest, WaitsForAServerThatIsSlowToListen) {
    run({"-FakeSleep", "700", "-TalkListen", "-TalkAwait", "SendNextModel", "-TalkResult", "late",
         "-TalkSend", "Escape", "-TalkAwait", "Finish"});
    EXPECT_EQ(exported, Words{"late"});
}

TEST_F(ConnectedRunTest, ReadsToTheEndWhatAServerSaidThatDidNotWait) {
    run({"-TalkListen", "-TalkAwait", "SendNextModel", "-TalkResult", "a", "-TalkResult", "b"});
    EXPECT_EQ(exported, (Words{"a", "b"}));
}

TEST_F(ConnectedRunTest, EndsSoonAfterAServerThatDiesOrFallsSilent) {
    const std::initializer_list<const char*> ends[] = {
        {"-TalkListen", "-FakeCrash"},
        {"-TalkListen", "-TalkAwait", "SendNextModel", "-TalkHalf", "-FakeCrash"},
        {"-FakeExit", "3"},
        {"-TalkListen", "-TalkClose", "-FakeSleep", "60000"},
        {"-TalkListen", "-TalkNoise", "-FakeSleep", "60000"},
        {"-TalkListen", "-TalkSend", "Finish", "-FakeSleep", "60000"},
    };
    for (const auto& deeds : ends) {
        SCOPED_TRACE(*(deeds.end() - 2));
        live = nullptr;
        client = new TessoraCADImporterClient;
        live = client->attachControlThread(false);
        EXPECT_FALSE(run(deeds));
        EXPECT_TRUE(exported.empty());
        EXPECT_LT(elapsedMs, 5000) << "half a second to look for a server, one for it to go";
    }
}

TEST_F(ConnectedRunTest, NotesAWishToStopAndGoesOn) {
    const IPtr<WishToStop> busy(new WishToStop);
    manager.offer("IGuiBusyState", busy.iface);
    run({"-TalkListen", "-TalkAwait", "SendNextModel", "-FakeSleep", "1300", "-TalkResult", "kept",
         "-TalkSend", "Finish", "-TalkAwait", "Finish"});
    EXPECT_GE(busy->questions, 2);
    EXPECT_LE(busy->questions, 4);
    EXPECT_EQ(exported, Words{"kept"});
}

TEST_F(ConnectedRunTest, AsksTheUserAlsoWhileTheServerDoesNotListen) {
    const IPtr<WishToStop> busy(new WishToStop);
    manager.offer("IGuiBusyState", busy.iface);
    EXPECT_FALSE(run({"-FakeSleep", "2300"}));
    EXPECT_GE(busy->questions, 3);
    EXPECT_LE(busy->questions, 5);
}

TEST_F(ConnectedRunTest, TakesAServerThatListensAlreadyAsItIs) {
    const loopback::Listener listener(5, port);
    EXPECT_FALSE(run({"-FakeReport", "REPORT"}));
    EXPECT_FALSE(folder.has("report")) << "none was started";
    EXPECT_LT(elapsedMs, 3000);
    loopback::Peer visitor = listener.accept();
    EXPECT_EQ(visitor.receive(12).size(), 12u);
    live = nullptr;
    EXPECT_TRUE(visitor.seesOrderlyEnd());
}

TEST_F(ConnectedRunTest, IsServedAgainByAServerOfItsOwnThatStayed) {
    live = nullptr;
    auto thread = std::make_unique<ClientControlThread>();
    client = new TessoraCADImporterClient(thread.get());
    run({"-TalkListen", "-TalkAwait", "SendNextModel", "-TalkResult",   "first",
         "-TalkSend",   "Finish",     "-TalkAwait",    "SetParameters", "-TalkClose",
         "-TalkListen", "-TalkAwait", "SendNextModel", "-TalkResult",   "second",
         "-TalkSend",   "Finish",     "-TalkAwait",    "Finish",        "-FakeReport",
         "REPORT"});
    EXPECT_EQ(exported, Words{"first"});
    EXPECT_FALSE(folder.has("report"));
    client->setParameters({"-Words", "for the server"});
    ASSERT_TRUE(thread->wait(10'000));
    run({});
    EXPECT_EQ(exported, Words{"second"});
    EXPECT_TRUE(folder.has("report"));
    thread.reset();
}

TEST_F(ConnectedRunTest, HasOneControlThreadAtATimeAndNoneOnceItIsGone) {
    EXPECT_EQ(client->attachControlThread(false), nullptr);
    live = nullptr;
    folder.write("part.igs");
    EXPECT_TRUE(run({})) << "a direct run again";
    live = client->attachControlThread(false);
    EXPECT_TRUE(live);
}
