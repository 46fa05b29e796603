// SPDX-License-Identifier: Apache-2.0
// The simple dialog on a terminal.
#pragma once

#include "component/objects/services/iguisimpledlg.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace host {

/// Notices are printed and need no answer. A question is answered by the answer given beforehand,
/// else by the line that a terminal gives, where "y" and "yes" mean yes, else it is declined.
class SimpleDialog : public IGuiSimpleDlg {
public:
    /// `terminal` is null when there is none. Both streams outlive the dialog.
    SimpleDialog(std::optional<bool> answer, std::istream* terminal, std::ostream& out)
        : answer_(answer), terminal_(terminal), out_(out) {}

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "SimpleDialog"; }
    std::int32_t show(std::int32_t kind, const KorString& text, const KorString& title,
                      bool reserved1, bool reserved2, bool reserved3) override;

    /// The texts of all notices so far.
    const std::vector<std::string>& notices() const { return notices_; }

private:
    bool ask(const std::string& text);

    std::optional<bool> answer_;
    std::istream* terminal_;
    std::ostream& out_;
    std::vector<std::string> notices_;
};

} // namespace host
