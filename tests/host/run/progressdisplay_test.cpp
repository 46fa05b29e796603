// SPDX-License-Identifier: Apache-2.0
// What a terminal shows of a run, and what a file gets of it.
#include "host/run/progressdisplay.h"

#include <gtest/gtest.h>

namespace host {
namespace {

/// A terminal of one line, as far as it goes: what a carriage return goes back over is written
/// over.
class Screen {
public:
    void put(std::string_view text) {
        for (const char c : text) {
            if (c == '\r') {
                column_ = 0;
            } else if (c == '\n') {
                above += line() + '\n';
                line_.clear();
                column_ = 0;
            } else {
                line_.resize(std::max(line_.size(), column_ + 1), ' ');
                line_[column_++] = c;
            }
        }
    }
    std::string line() const { return line_.substr(0, line_.find_last_not_of(' ') + 1); }

    std::string above; ///< the lines that have scrolled up

private:
    std::string line_;
    std::size_t column_ = 0;
};

class ProgressDisplayTest : public testing::Test {
protected:
    ProgressDisplay make(ProgressStyle style, const char* what = "part", int columns = 60) {
        return {style, what, columns, [this](std::string_view text) { screen.put(text); }};
    }
    Screen screen;
};

TEST_F(ProgressDisplayTest, RewritesOneLineAndKeepsWhatOthersSay) {
    ProgressDisplay display = make(ProgressStyle::rewritten);
    display.tick(false);
    EXPECT_EQ(screen.line(), "importing part");
    display.enter("rebuilding faces", 40);
    display.tick(false);
    EXPECT_EQ(screen.line(), "importing part: rebuilding faces, 40 %");
    display.enter("drawing");
    display.tick(false);
    EXPECT_EQ(screen.line(), "importing part: drawing");
    display.take("a warn");
    display.take("ing\nprogress 7 % reading\r\n");
    EXPECT_EQ(screen.above, "a warning\n");
    display.tick(false);
    EXPECT_EQ(screen.line(), "importing part: reading, 7 %");
    display.finish();
    EXPECT_EQ(screen.line(), "");
    EXPECT_EQ(screen.above, "a warning\n");
}

TEST_F(ProgressDisplayTest, KeepsStillWhileAQuestionIsOpen) {
    ProgressDisplay display = make(ProgressStyle::rewritten);
    display.tick(false);
    display.take("Go on? ");
    display.take({});
    EXPECT_EQ(screen.line(), "Go on?");
    display.enter("drawing");
    display.tick(true);
    EXPECT_EQ(screen.line(), "Go on?");
    screen.put("y\n");
    display.tick(false);
    EXPECT_EQ(screen.line(), "importing part: drawing");
}

TEST_F(ProgressDisplayTest, FitsTheTerminalWhateverTheName) {
    const std::string name = std::string(10, 'a') + "\x1b[2J" + "ä" + std::string(40, 'b');
    ProgressDisplay display = make(ProgressStyle::rewritten, name.c_str(), 26);
    display.tick(false);
    EXPECT_EQ(screen.line(), "importing aaaaaaaaaa?[2Jä");
}

TEST_F(ProgressDisplayTest, WritesFewLinesToAFileAndNoneWhenQuiet) {
    ProgressDisplay display = make(ProgressStyle::lines), silent = make(ProgressStyle::none);
    for (int percent = 0; percent < 100; ++percent) {
        const std::string line = "progress " + std::to_string(percent) + " % reading\n";
        display.take(line), silent.take(line);
        display.tick(false), silent.tick(false);
    }
    EXPECT_EQ(screen.above, "importing part: reading, 0 %\n");
    silent.take("progress of another kind\n");
    silent.take("progress 5 % cut");
    silent.finish();
    EXPECT_EQ(screen.above, "importing part: reading, 0 %\nprogress of another kind\n");
    EXPECT_EQ(screen.line(), "progress 5 % cut");
}

} // namespace
} // namespace host
