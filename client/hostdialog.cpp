// SPDX-License-Identifier: Apache-2.0
// Notices and questions over IGuiSimpleDlg.
#include "client/hostdialog.h"

#include "component/objects/services/iguisimpledlg.h"
#include "component/objects/sptr.h"
#include "zelbasictypes/text/korstring.h"
#include "zelbasictypes/text/zeltranslator.h"

namespace {

enum Kind : std::int32_t { notice = 1, question = 3 };
constexpr std::int32_t yes = 1;

std::optional<std::int32_t> show(Kind kind, const char* key) {
    const SPtr<IGuiSimpleDlg> dialog;
    if (!dialog) return {};
    return dialog->show(kind, zelTranslate(key), KorString::sharedTitle(), false, false, false);
}

} // namespace

bool showNotice(const char* key) { return show(notice, key).has_value(); }

std::optional<bool> askQuestion(const char* key) {
    const auto answer = show(question, key);
    return answer ? std::optional(*answer == yes) : std::nullopt;
}
