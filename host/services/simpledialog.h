// SPDX-License-Identifier: Apache-2.0
// The simple dialog on a terminal.
#pragma once

#include "component/objects/services/iguisimpledlg.h"

#include <atomic>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace host {

/// Waits for a line of the user's; nothing when none comes any more.
using LineReader = std::function<std::optional<std::string>()>;

/// Notices are printed and need no answer. A question is answered by the answer given beforehand,
/// else by the line that a terminal gives, where "y" and "yes" mean yes, else it is declined.
class SimpleDialog : public IGuiSimpleDlg {
public:
    /// `terminal` is null when there is none. `out` outlives the dialog.
    SimpleDialog(std::optional<bool> answer, LineReader terminal, std::ostream& out)
        : answer_(answer), terminal_(std::move(terminal)), out_(out) {}

    void qi(const char* name, void** result, std::int32_t reserved = 0) override;
    const char* className() override { return "SimpleDialog"; }
    std::int32_t show(std::int32_t kind, const KorString& text, const KorString& title,
                      bool reserved1, bool reserved2, bool reserved3) override;

    /// Whether a question is open on the terminal. May be asked on any thread.
    bool isAsking() const { return isAsking_; }
    /// The texts of all notices so far.
    const std::vector<std::string>& notices() const { return notices_; }

private:
    bool ask(const std::string& text);

    std::optional<bool> answer_;
    LineReader terminal_;
    std::ostream& out_;
    std::atomic<bool> isAsking_ = false;
    std::vector<std::string> notices_;
};

} // namespace host
