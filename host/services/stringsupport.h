// SPDX-License-Identifier: Apache-2.0
// Text operations that know Unicode and the user's language. The narrow form is UTF-8.
#pragma once

#include "component/objects/services/izelstrsupport.h"

#include <QCollator>

#include <mutex>

namespace host {

/// For any thread. Units outside the first 65536 code points are taken in pairs.
class StringSupport : public IZelStrSupport {
public:
    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "StringSupport"; }

    void toNarrow(KorCString& out, const KorString& text) override;
    /// The language's order; texts that it holds for equal come in the order of their units.
    std::int32_t compare(const KorString& a, const KorString& b) override;
    bool isSpace(char16_t c) override;
    bool isDigit(char16_t c) override;
    bool contains(const KorString& text, const KorString& part, bool caseSensitive) override;
    void stripSpace(char16_t* text) override;
    void simplify(char16_t* text) override;
    /// A character whose other case is longer stays as it is.
    void toLower(char16_t* text) override;
    void toUpper(char16_t* text) override;

private:
    std::mutex mutex_;
    QCollator collator_; ///< used under the lock: it readies itself at its first comparison
};

} // namespace host
