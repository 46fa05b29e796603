// SPDX-License-Identifier: Apache-2.0
// How fast strings are handed around, searched and converted, and keys are found in hash tables,
// against the standard library, the C library and Qt in the same program. The seeds are fixed;
// everything a race touches is in cache as far as it fits, and nothing is read from disk.
#include "benchmarks/support/race.h"
#include "benchmarks/text/races.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

#include <QString>
#include <string>

namespace {

/// Makes a string from a literal, copies it and destroys both.
template <class Make> void addLiteralRace(const char* peer, Make make) {
    race::add("make, copy and destroy a literal's string", peer, [make](benchmark::State& state) {
        for (auto _ : state) {
            auto first = make();
            benchmark::DoNotOptimize(first);
            auto second = first;
            benchmark::DoNotOptimize(second);
        }
    });
}

void addLiteralRaces() {
    addLiteralRace("KorCString::borrow",
                   [] { return KorCString::borrow("IZelTranslatorService"); });
    addLiteralRace("KorString::borrow", [] { return KorString::borrow(u"IZelTranslatorService"); });
    addLiteralRace("std::string", [] { return std::string("IZelTranslatorService"); });
    addLiteralRace("QStringLiteral", [] { return QStringLiteral("IZelTranslatorService"); });
    addLiteralRace("KorCString, owned", [] { return KorCString("IZelTranslatorService"); });
}

} // namespace

int main(int argc, char** argv) {
    addLiteralRaces();
    addSearchRaces();
    addConversionRaces();
    addTableRaces();
    return race::run(argc, argv);
}
