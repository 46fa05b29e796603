// SPDX-License-Identifier: Apache-2.0
// Finding a part in prose: words of a small vocabulary, and at the very end the one word that is
// looked for. Its first character is among the frequent ones, as it is in real text. The strings
// of the library don't know their lengths, so that measuring the text is part of their search.
#include "benchmarks/support/race.h"
#include "benchmarks/text/races.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

#include <QString>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <string_view>

namespace {

constexpr char part[] = "tessellation";

std::string proseOf(std::size_t size) {
    static const char* const words[] = {"the",  "surface", "of",   "a",     "solid", "tolerance",
                                        "edge", "that",    "this", "trims", "is",    "taken"};
    std::mt19937 random(5);
    std::string text;
    while (text.size() < size) text.append(words[random() % std::size(words)]).append(1, ' ');
    text.resize(size - sizeof part);
    return text + ' ' + part;
}

template <class Search> void addSearch(const std::string& job, const char* peer, Search search) {
    race::add(job, peer, [search](benchmark::State& state) {
        for (auto _ : state) benchmark::DoNotOptimize(search());
    });
}

void addNarrowSearches(const std::string& size, const std::string& prose) {
    const auto text = std::make_shared<KorCString>(prose.c_str());
    const auto plain = std::make_shared<std::string>(prose);
    const std::string job = "find in narrow text of " + size;
    addSearch(job, "KorCString::find", [text] { return text->find(part); });
    addSearch(job, "std::string_view::find",
              [plain] { return std::string_view(*plain).find(part); });
    addSearch(job, "strstr", [plain] { return std::strstr(plain->c_str(), part); });
    addSearch(job, "memmem",
              [plain] { return memmem(plain->data(), plain->size(), part, sizeof part - 1); });
}

void addWideSearches(const std::string& size, const std::string& prose) {
    const auto text = std::make_shared<KorString>(prose.c_str());
    const auto plain = std::make_shared<std::u16string>(prose.begin(), prose.end());
    const auto qt = std::make_shared<QString>(QString::fromStdString(prose));
    const KorString wanted(part);
    const std::string job = "find in wide text of " + size;
    addSearch(job, "KorString::find", [text, wanted] { return text->find(wanted); });
    addSearch(job, "std::u16string_view::find",
              [plain, wanted] { return std::u16string_view(*plain).find(wanted.view()); });
    addSearch(job, "QString::indexOf",
              [qt, wantedQt = QString(part)] { return qt->indexOf(wantedQt); });
}

} // namespace

void addSearchRaces() {
    const struct {
        const char* name;
        std::size_t size;
    } sizes[] = {{"1 MB", 1 << 20}, {"1 kB", 1 << 10}};
    for (const auto& row : sizes) {
        addNarrowSearches(row.name, proseOf(row.size));
        addWideSearches(row.name, proseOf(row.size));
    }
}
