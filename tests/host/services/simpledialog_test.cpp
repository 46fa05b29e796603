// SPDX-License-Identifier: Apache-2.0
// How the dialog answers, with and without somebody at the terminal.
#include "host/services/simpledialog.h"

#include "tests/host/hosttest.h"

#include <sstream>

namespace host {
namespace {

class SimpleDialogTest : public HostTest {
protected:
    std::int32_t ask(std::optional<bool> answer, LineReader terminal) {
        const IPtr<SimpleDialog> dialog(new SimpleDialog(answer, std::move(terminal), out));
        return dialog->show(3, text("Go on?"), text(" "), false, false, false);
    }
    std::ostringstream out;
};

TEST_F(SimpleDialogTest, TakesTheAnswerGivenBeforehandAndAsksNobody) {
    EXPECT_EQ(ask(true, nullptr), 1);
    EXPECT_EQ(ask(false, [] { return "yes"; }), 0);
    EXPECT_EQ(out.str(), "");
}

TEST_F(SimpleDialogTest, DeclinesWithoutATerminal) { EXPECT_EQ(ask({}, nullptr), 0); }

TEST_F(SimpleDialogTest, AsksTheTerminal) {
    const std::pair<const char*, std::int32_t> lines[] = {{"y", 1}, {" YES ", 1}, {"yes\r", 1},
                                                          {"n", 0}, {"", 0},      {"yesterday", 0}};
    for (const auto& [line, expected] : lines)
        EXPECT_EQ(ask({}, [line = line] { return line; }), expected) << line;
    EXPECT_EQ(ask({}, [] { return std::nullopt; }), 0);
    EXPECT_EQ(out.str().substr(0, 13), "Go on? [y/N] ");
}

TEST_F(SimpleDialogTest, PrintsAndKeepsNotices) {
    const IPtr<SimpleDialog> dialog(new SimpleDialog({}, nullptr, out));
    dialog->show(1, text("It fa\xC3\xAFled"), text(" "), false, false, false);
    EXPECT_EQ(out.str(), "It fa\xC3\xAFled\n");
    EXPECT_EQ(dialog->notices(), std::vector<std::string>{"It fa\xC3\xAFled"});
}

} // namespace
} // namespace host
