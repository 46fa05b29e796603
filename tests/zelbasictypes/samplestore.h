// SPDX-License-Identifier: Apache-2.0
// A settings store of the tests, which tells its subscribers on demand.
#pragma once

#include "component/objects/iptr.h"
#include "component/objects/services/idatastore.h"
#include "component/objects/services/izeldatareceiver.h"
#include "tests/support/service.h"
#include "zelbasictypes/text/korstring.h"

#include <map>
#include <string>

class SampleStore : public testsupport::Service<IDataStore> {
public:
    std::int32_t getBool(const char* key, std::int32_t fallback) override {
        return find(numbers, key) ? numbers[key] != 0 : fallback;
    }
    double getDouble(const char* key, double fallback) override {
        return find(numbers, key) ? numbers[key] : fallback;
    }
    const KorString* getString(const char* key, const KorString* fallback) override {
        return find(texts, key) ? &texts[key] : fallback;
    }
    void subscribe(const char* key, IZelDataReceiver* receiver) override {
        const IPtr<IZelDataReceiver> passing(receiver); // as a store that looks at it first
        receivers[key] = IPtr<IZelDataReceiver>(receiver);
    }

    void change(const std::string& key, double value) {
        numbers[key] = value;
        for (const auto& entry : receivers) entry.second->receiveDouble(key.c_str(), value);
    }

    std::map<std::string, double> numbers;
    std::map<std::string, KorString> texts;
    std::map<std::string, IPtr<IZelDataReceiver>> receivers;

private:
    template <class Map> static bool find(const Map& map, const char* key) {
        return map.find(key) != map.end();
    }
};
