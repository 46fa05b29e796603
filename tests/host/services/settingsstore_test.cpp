// SPDX-License-Identifier: Apache-2.0
// Settings from a file and from words, and who hears of their changes.
#include "host/services/settingsstore.h"

#include "component/objects/queryinterface.h"
#include "tests/host/hosttest.h"
#include "zelbasictypes/data/kordatareceiver.h"

#include <QTemporaryFile>

namespace host {
namespace {

class Listener : public KorDataReceiver {
public:
    void receiveBool(const char* key, std::int32_t value) override {
        heard += QStringLiteral("%1 bool %2;").arg(QLatin1String(key)).arg(value);
    }
    void receiveDouble(const char* key, double value) override {
        heard += QStringLiteral("%1 double %2;").arg(QLatin1String(key)).arg(value);
    }
    void receiveString(const char* key, const KorString* value) override {
        heard += QStringLiteral("%1 text %2;").arg(QLatin1String(key), toQString(*value));
    }
    QString heard;
};

class SettingsStoreTest : public HostTest {
protected:
    IPtr<SettingsStore> store{new SettingsStore};
};

TEST_F(SettingsStoreTest, ReadsSectionsNamesAndCommentsOfAFile) {
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write("; a comment\n[General]\r\nShow Batch Processing = yes\r\n"
               "[Memory]\n# another\nMemLimit=4294967296.5\n[Directories]\nLogs "
               "Directory=/l\xC3\xB6g=s\n");
    file.flush();
    ASSERT_TRUE(store->load(file.fileName()));
    EXPECT_EQ(store->getBool("General/Show Batch Processing", 0), 1);
    EXPECT_EQ(store->getDouble("Memory/MemLimit", 0), 4294967296.5);
    const KorString* path = store->getString("Directories/Logs Directory", nullptr);
    ASSERT_NE(path, nullptr);
    EXPECT_EQ(toUtf8(*path), "/l\xC3\xB6g=s");
    EXPECT_FALSE(store->load(QStringLiteral("no such file")));
}

TEST_F(SettingsStoreTest, FallsBackForMissingKeysAndTextsThatAreNoNumbers) {
    ASSERT_TRUE(store->setFromWord(QStringLiteral("A/text=words")));
    EXPECT_FALSE(store->setFromWord(QStringLiteral("no equals sign")));
    EXPECT_FALSE(store->setFromWord(QStringLiteral("=no key")));
    const KorString fallback = text("f");
    EXPECT_EQ(store->getBool("A/text", 7), 7);
    EXPECT_EQ(store->getDouble("A/text", 2.5), 2.5);
    EXPECT_EQ(store->getBool("A/missing", 7), 7);
    EXPECT_EQ(store->getString("A/missing", &fallback), &fallback);
    EXPECT_EQ(store->getString(nullptr, &fallback), &fallback);
}

TEST_F(SettingsStoreTest, KnowsTheWordsForOnAndOff) {
    const std::pair<const char*, std::int32_t> cases[] = {
        {"1", 1}, {"true", 1}, {"YES", 1}, {"on", 1}, {"0", 0}, {"No", 0}, {"off", 0}, {"3", 3}};
    for (const auto& [word, expected] : cases) {
        store->set("key", QString::fromLatin1(word));
        EXPECT_EQ(store->getBool("key", -1), expected) << word;
    }
}

TEST_F(SettingsStoreTest, TellsSubscribersOfChangesOnlyInEachFormThatTheTextHas) {
    const IPtr<Listener> listener(new Listener);
    store->set("key", QStringLiteral("5"));
    store->subscribe("key", listener.iface);
    store->set("key", QStringLiteral("5"));
    store->set("other", QStringLiteral("1"));
    EXPECT_EQ(listener->heard.toStdString(), "");
    store->set("key", QStringLiteral("2.5"));
    EXPECT_EQ(listener->heard.toStdString(), "key text 2.5;key double 2.5;");
    listener->heard.clear();
    store->set("key", QStringLiteral("off"));
    EXPECT_EQ(listener->heard.toStdString(), "key text off;key bool 0;");
    store = nullptr;
    EXPECT_EQ(listener->refCount(), 1);
}

} // namespace
} // namespace host
