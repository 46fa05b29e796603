// SPDX-License-Identifier: Apache-2.0
// Settings from a file and from words: what was set is there, and a value that stays the same is
// told to nobody.
#include "component/manageraccess.h"
#include "fuzz/input.h"
#include "host/componentmanager.h"
#include "host/services/settingsstore.h"
#include "host/text.h"
#include "zelbasictypes/data/kordatareceiver.h"

namespace {

class Listener : public KorDataReceiver {
public:
    void receiveString(const char*, const KorString*) override { ++texts; }
    int texts = 0;
};

const InputFolder folder;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    zelSetManager(&host::rootManager());
    const std::string bytes = Input(data, size).rest();
    const IPtr<host::SettingsStore> store(new host::SettingsStore), words(new host::SettingsStore);
    const IPtr<Listener> listener(new Listener);
    require(store->load(QString::fromStdString(folder.write("file", bytes))), "not read");
    Input input(data, size);
    while (!input.isEmpty()) {
        const QString word = QString::fromStdString(input.line());
        if (!words->setFromWord(word)) continue;
        const std::string key = word.left(word.indexOf('=')).trimmed().toStdString();
        const KorString* value = words->getString(key.c_str(), nullptr);
        if (!value) continue; // a zero ends the key that is asked for
        words->subscribe(key.c_str(), listener.iface);
        const int told = listener->texts;
        words->set(key, host::toQString(*value));
        require(listener->texts == told, "told of no change");
        words->getBool(key.c_str(), 0), words->getDouble(key.c_str(), 0);
        store->getString(key.c_str(), nullptr);
    }
    return 0;
}
