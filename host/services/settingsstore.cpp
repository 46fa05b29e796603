// SPDX-License-Identifier: Apache-2.0
// Reading settings and telling of their changes.
#include "host/services/settingsstore.h"

#include "component/objects/queryinterface.h"
#include "host/text.h"

#include <QFile>
#include <QTextStream>

#include <optional>

namespace host {
namespace {

std::optional<std::int32_t> asBool(const KorString& text) {
    const QString word = toQString(text).trimmed().toLower();
    for (const char* yes : {"true", "yes", "on"}) {
        if (word == QLatin1String(yes)) return 1;
    }
    for (const char* no : {"false", "no", "off"}) {
        if (word == QLatin1String(no)) return 0;
    }
    bool isNumber = false;
    const int number = word.toInt(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

std::optional<double> asDouble(const KorString& text) {
    bool isNumber = false;
    const double number = toQString(text).trimmed().toDouble(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

void tell(IZelDataReceiver& receiver, const char* key, const KorString& value) {
    receiver.receiveString(key, &value);
    if (const auto number = asBool(value)) {
        receiver.receiveBool(key, *number);
        receiver.receiveInt(key, *number);
    }
    if (const auto number = asDouble(value)) receiver.receiveDouble(key, *number);
}

} // namespace

bool SettingsStore::load(const QString& fileName) {
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) return false;
    QString section;
    for (const QString& raw : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        const QString line = raw.trimmed();
        if (line.startsWith(QLatin1Char('#')) || line.startsWith(QLatin1Char(';'))) continue;
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
            section = line.mid(1, line.size() - 2) + QLatin1Char('/');
        } else {
            setFromWord(section + line);
        }
    }
    return true;
}

bool SettingsStore::setFromWord(const QString& word) {
    const auto equals = word.indexOf(QLatin1Char('='));
    const QString key = word.left(equals).trimmed();
    if (equals < 0 || key.isEmpty()) return false;
    set(key.toStdString(), word.mid(equals + 1).trimmed());
    return true;
}

void SettingsStore::set(const std::string& key, const QString& value) {
    const KorString text = toKorString(value);
    const auto known = values_.find(key);
    if (known != values_.end() && known->second.view() == text.view()) return;
    values_[key] = text;
    const auto [first, last] = receivers_.equal_range(key);
    const decltype(receivers_) listening(first, last);
    for (const auto& entry : listening) tell(*entry.second.iface, key.c_str(), text);
}

void SettingsStore::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IDataStore>(this, className(), name, result);
}

std::int32_t SettingsStore::getBool(const char* key, std::int32_t fallback) {
    const KorString* value = find(key);
    return value ? asBool(*value).value_or(fallback) : fallback;
}

double SettingsStore::getDouble(const char* key, double fallback) {
    const KorString* value = find(key);
    return value ? asDouble(*value).value_or(fallback) : fallback;
}

const KorString* SettingsStore::getString(const char* key, const KorString* fallback) {
    const KorString* value = find(key);
    return value ? value : fallback;
}

void SettingsStore::subscribe(const char* key, IZelDataReceiver* receiver) {
    if (key && receiver) receivers_.emplace(key, receiver);
}

const KorString* SettingsStore::find(const char* key) const {
    const auto found = key ? values_.find(key) : values_.end();
    return found == values_.end() ? nullptr : &found->second;
}

} // namespace host
