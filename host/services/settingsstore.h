// SPDX-License-Identifier: Apache-2.0
// The settings store: texts by key, from an INI file and from the command line.
//
// Keys are "Section/Name", compared exactly. Every value is a text; who asks for a number gets what
// the text says in digits with a point, and the fall-back for a text that is none.
#pragma once

#include "component/objects/iptr.h"
#include "component/objects/services/idatastore.h"
#include "component/objects/services/izeldatareceiver.h"
#include "zelbasictypes/text/korstring.h"

#include <QString>

#include <map>
#include <string>

namespace host {

class SettingsStore : public IDataStore {
public:
    /// Sets the keys of a UTF-8 file with "[Section]" lines, "Name=value" lines and comments behind
    /// "#" or ";" at the start of a line. False when it can't be read.
    ///
    /// Keys and values are what the file says, letter by letter. QSettings would change them: it
    /// drops the section "General", decodes "%" and backslashes, ends a value at ";", makes a list
    /// of one with commas, and with Qt 5 takes keys for Latin-1.
    bool load(const QString& fileName);
    /// Takes "Section/Name=value"; false for a word without "=" or without a key.
    bool setFromWord(const QString& word);
    /// Subscribers hear of a value that differs from the old one, in every form that its text has:
    /// as a text, and as a bool, an int and a double where it reads as such.
    void set(const std::string& key, const QString& value);

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "SettingsStore"; }

    /// True, yes and on are 1, false, no and off are 0, whatever their case; numbers are numbers.
    std::int32_t getBool(const char* key, std::int32_t fallback) override;
    double getDouble(const char* key, double fallback) override;
    const KorString* getString(const char* key, const KorString* fallback) override;
    void subscribe(const char* key, IZelDataReceiver* receiver) override;

private:
    const KorString* find(const char* key) const;

    std::map<std::string, KorString, std::less<>> values_;
    std::multimap<std::string, IPtr<IZelDataReceiver>, std::less<>> receivers_;
};

} // namespace host
