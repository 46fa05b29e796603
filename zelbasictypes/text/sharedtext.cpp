// SPDX-License-Identifier: Apache-2.0
// The wide strings that all share, made on first use from any thread.
#include "platform/unload.h"
#include "zelbasictypes/memory/zelnew.h"
#include "zelbasictypes/text/korstring.h"

#include <atomic>

namespace {

class Slot {
public:
    constexpr Slot(const char16_t* wideText, const char* narrowText)
        : wide(wideText), narrow(narrowText) {}

    const KorString& get() {
        KorString* current = made.load(std::memory_order_acquire);
        if (current) return *current;
        auto* fresh = zelNew<KorString>(KorString::borrow(wide, narrow));
        if (made.compare_exchange_strong(current, fresh)) return *fresh;
        delete fresh;
        return *current;
    }
    void free() { delete made.exchange(nullptr); }

private:
    std::atomic<KorString*> made = nullptr;
    const char16_t* wide;
    const char* narrow;
};

constinit Slot emptyText(u"", ""), blank(u" ", " "), title(u" ", " ");

const platform::AtUnload freeingTexts(KorString::freeShared);

} // namespace

const KorString& KorString::sharedEmpty() { return emptyText.get(); }
const KorString& KorString::sharedBlank() { return blank.get(); }
const KorString& KorString::sharedTitle() { return title.get(); }

void KorString::freeShared() {
    for (Slot* slot : {&emptyText, &blank, &title}) slot->free();
}
