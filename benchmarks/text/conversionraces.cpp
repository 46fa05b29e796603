// SPDX-License-Identifier: Apache-2.0
// UTF-8 to UTF-16 and back, each with the making of its result, of ASCII and of mixed text: words
// of European and Asian scripts among ASCII.
#include "benchmarks/support/race.h"
#include "benchmarks/text/races.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

#include <QByteArray>
#include <QString>
#include <memory>
#include <random>
#include <string>

namespace {

template <std::size_t N> std::string textOf(const char* const (&words)[N], std::size_t size) {
    std::mt19937 random(11);
    std::string text;
    while (text.size() < size) text.append(words[random() % N]).append(1, ' ');
    return text;
}

void addDecoding(const std::string& job, const std::string& bytes) {
    race::add(job, "KorString::fromUtf8", [bytes](benchmark::State& state) {
        for (auto _ : state) {
            KorString text = KorString::fromUtf8(bytes.c_str());
            benchmark::DoNotOptimize(text);
        }
    });
    race::add(job, "QString::fromUtf8", [bytes](benchmark::State& state) {
        for (auto _ : state) {
            QString text = QString::fromUtf8(bytes.c_str());
            benchmark::DoNotOptimize(text);
        }
    });
}

void addEncoding(const std::string& job, const std::string& bytes) {
    race::add(job, "KorCString::takeUtf8", [bytes](benchmark::State& state) {
        const KorString text = KorString::fromUtf8(bytes.c_str());
        for (auto _ : state) {
            KorCString made;
            made.takeUtf8(text);
            benchmark::DoNotOptimize(made);
        }
    });
    race::add(job, "QString::toUtf8", [bytes](benchmark::State& state) {
        const QString text = QString::fromStdString(bytes);
        for (auto _ : state) {
            QByteArray made = text.toUtf8();
            benchmark::DoNotOptimize(made);
        }
    });
}

} // namespace

void addConversionRaces() {
    static const char* const ascii[] = {"surface", "of", "a",    "revolution",
                                        "trimmed", "by", "four", "edges"};
    static const char* const mixed[] = {
        "fl\u00e4che",          "of", "\u0444\u043b\u0430\u043d\u0435\u0446", "\u90e8\u54c1\u56f3",
        "r\u00e9vol\u00fction", "by", "\u03c4\u03bf\u03c1\u03bf\u03c2",       "edges"};
    const struct {
        const char* name;
        std::size_t size;
    } sizes[] = {{"20 bytes", 20}, {"1 kB", 1 << 10}, {"100 kB", 100 << 10}};
    for (const auto& row : sizes) {
        const std::string size = row.name;
        addDecoding("UTF-8 to UTF-16, ASCII, " + size, textOf(ascii, row.size));
        addDecoding("UTF-8 to UTF-16, mixed, " + size, textOf(mixed, row.size));
        addEncoding("UTF-16 to UTF-8, ASCII, " + size, textOf(ascii, row.size));
        addEncoding("UTF-16 to UTF-8, mixed, " + size, textOf(mixed, row.size));
    }
}
