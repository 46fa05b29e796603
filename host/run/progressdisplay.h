// SPDX-License-Identifier: Apache-2.0
// How far a run is, in one line that is rewritten on a terminal, or in a line now and then.
#pragma once

#include <chrono>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace host {

enum class ProgressStyle {
    none,
    lines,     ///< a line when something changed, at most one a second; or when time went by
    rewritten, ///< one line, which goes when other things are shown and at the end
};

/// Any thread. What a server says passes through here too: its lines "progress 40 % writing faces"
/// are taken for the display, everything else is shown as it is.
class ProgressDisplay {
public:
    using Clock = std::chrono::steady_clock;
    /// Where text goes; what it is given ends a line or not.
    using Put = std::function<void(std::string_view)>;

    /// `columns` is the width of the terminal; longer lines are cut.
    ProgressDisplay(ProgressStyle style, const std::string& what, int columns, Put put);
    ProgressDisplay(const ProgressDisplay&) = delete;
    ProgressDisplay& operator=(const ProgressDisplay&) = delete;

    /// What the run is at, and how much of it is done.
    void enter(const std::string& phase, std::optional<int> percent = {});
    /// Pieces, up to 4096 bytes, of what a server or anybody else says. An empty piece says that
    /// nothing came for a while, so that what has no end yet, such as a question, is shown.
    void take(std::string_view piece);
    /// Time has passed. While `isHeld`, as during a question, the display keeps still.
    void tick(bool isHeld);
    /// The rewritten line goes; what was said without a line's end is shown.
    void finish();
    /// The last whole lines that were passed on, three at most, in one.
    std::string lastWords();

private:
    void takeLine(std::string_view line);
    void show();
    void clear();
    void pass(std::string_view text);
    void rewrite();
    void addLine();
    std::string state() const;
    std::string withTime(const std::string& state) const;

    const ProgressStyle style_;
    const std::string what_;
    const std::size_t width_;
    const std::string blank_; ///< clears the line
    const Put put_;
    const Clock::time_point start_ = Clock::now();

    std::mutex lock_;
    std::string phase_;
    std::optional<int> percent_;
    std::string tail_;  ///< of a line that isn't whole yet
    std::string shown_; ///< what the display showed last
    std::string said_;  ///< the end of what was passed on
    Clock::time_point lineTime_ = start_;
    bool isHeld_ = false;
    bool isOnLine_ = false;  ///< whether the display's own line stands at the cursor
    bool isMidLine_ = false; ///< whether somebody else's does
};

} // namespace host
