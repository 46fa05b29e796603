// SPDX-License-Identifier: Apache-2.0
// Showing and asking.
#include "host/services/simpledialog.h"

#include "component/objects/queryinterface.h"
#include "host/text.h"

#include <ostream>

namespace host {
namespace {

constexpr std::int32_t questionKind = 3;

} // namespace

void SimpleDialog::qi(const char* name, void** result, std::int32_t) {
    zelAnswerQuery<IGuiSimpleDlg>(this, className(), name, result);
}

std::int32_t SimpleDialog::show(std::int32_t kind, const KorString& text, const KorString&, bool,
                                bool, bool) {
    const std::string shown = toUtf8(text);
    if (kind == questionKind) return ask(shown) ? 1 : 0;
    out_ << shown << std::endl;
    notices_.push_back(shown);
    return 1;
}

bool SimpleDialog::ask(const std::string& text) {
    if (answer_) return *answer_;
    if (!terminal_) return false;
    isAsking_ = true;
    out_ << text << " [y/N] " << std::flush;
    const std::optional<std::string> line = terminal_();
    if (!line) out_ << std::endl;
    isAsking_ = false;
    const QString word = QString::fromStdString(line.value_or("")).trimmed().toLower();
    return word == QLatin1String("y") || word == QLatin1String("yes");
}

} // namespace host
