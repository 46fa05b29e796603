// SPDX-License-Identifier: Apache-2.0
// One line and whoever else writes.
#include "host/run/progressdisplay.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr auto linePause = 1s;
constexpr auto silentPause = 5s; ///< between lines that only tell the time
constexpr std::size_t longestTail = 4096;
constexpr std::size_t wordsKept = 1024;
constexpr int linesQuoted = 3;
constexpr std::string_view progressWord = "progress ";

/// A name may hold what a terminal obeys.
std::string printable(std::string text) {
    std::replace_if(
        text.begin(), text.end(),
        [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, '?');
    return text;
}

bool continuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

std::size_t lengthOf(const std::string& text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return !continuesCharacter(c); }));
}

/// Cut or filled up with blanks.
std::string fitted(std::string text, std::size_t width) {
    while (lengthOf(text) > width) text.pop_back();
    return text + std::string(width - lengthOf(text), ' ');
}

struct ServerProgress {
    int percent = 0;
    std::string phase;
};

std::optional<ServerProgress> parseProgress(const std::string& line) {
    ServerProgress found;
    int at = 0;
    const int read = std::sscanf(line.c_str(), "progress %3d %%%n", &found.percent, &at);
    if (read != 1 || at == 0 || found.percent < 0 || found.percent > 100) return {};
    const std::size_t begin = line.find_first_not_of(' ', static_cast<std::size_t>(at));
    const std::size_t end = line.find_last_not_of("\r\n") + 1;
    if (begin < end) found.phase = printable(line.substr(begin, end - begin));
    return found;
}

bool mayBecomeProgress(const std::string& tail) {
    return tail.size() < longestTail &&
           std::string_view(tail).substr(0, progressWord.size()) ==
               progressWord.substr(0, std::min(tail.size(), progressWord.size()));
}

} // namespace

ProgressDisplay::ProgressDisplay(ProgressStyle style, const std::string& what, int columns, Put put)
    : style_(style), what_(printable(what)),
      width_(static_cast<std::size_t>(std::max(columns, 20) - 1)),
      blank_('\r' + std::string(width_, ' ') + '\r'), put_(std::move(put)) {
    tail_.reserve(2 * longestTail);
    said_.reserve(wordsKept);
}

void ProgressDisplay::finish() {
    const std::lock_guard hold(lock_);
    if (!tail_.empty()) pass(std::exchange(tail_, {}));
    clear();
}

void ProgressDisplay::enter(const std::string& phase, std::optional<int> percent) {
    const std::lock_guard hold(lock_);
    phase_ = phase;
    percent_ = percent;
}

void ProgressDisplay::tick(bool isHeld) {
    const std::lock_guard hold(lock_);
    // The end of an answer's line is the terminal's, not ours.
    if (isHeld_ && !isHeld) isMidLine_ = false;
    isHeld_ = isHeld;
    show();
}

/// Asks for no memory, so that the last words of a process that has none get through.
void ProgressDisplay::take(std::string_view piece) {
    const std::lock_guard hold(lock_);
    tail_ += piece;
    std::size_t begin = 0, end = 0;
    while ((end = tail_.find('\n', begin)) != tail_.npos) {
        takeLine(std::string_view(tail_).substr(begin, end + 1 - begin));
        begin = end + 1;
    }
    tail_.erase(0, begin);
    const bool isDue = piece.empty() || tail_.size() >= longestTail;
    if (!isDue || tail_.empty() || mayBecomeProgress(tail_)) return;
    pass(tail_);
    tail_.clear();
}

void ProgressDisplay::takeLine(std::string_view line) {
    if (isMidLine_ || line.substr(0, progressWord.size()) != progressWord) return pass(line);
    const auto progress = parseProgress(std::string(line));
    if (!progress) return pass(line);
    const bool isServerDone = progress->percent == 100;
    phase_ = isServerDone ? "taking the model in" : progress->phase;
    percent_ = isServerDone ? std::nullopt : std::optional(progress->percent);
}

void ProgressDisplay::pass(std::string_view text) {
    clear();
    put_(text);
    isMidLine_ = text.back() != '\n';
    text = text.substr(text.size() - std::min(text.size(), wordsKept));
    said_.erase(0, said_.size() - std::min(said_.size(), wordsKept - text.size()));
    said_ += text;
}

std::string ProgressDisplay::lastWords() {
    const std::lock_guard hold(lock_);
    std::string words;
    std::size_t end = said_.rfind('\n');
    for (int i = 0; i < linesQuoted && end != said_.npos; ++i) {
        const std::size_t before = end > 0 ? said_.rfind('\n', end - 1) : said_.npos;
        const std::size_t begin = before == said_.npos ? 0 : before + 1;
        const std::string line = printable(said_.substr(begin, end - begin));
        words = words.empty() ? line : line + "; " + words;
        end = before;
    }
    return words;
}

void ProgressDisplay::clear() {
    if (!isOnLine_) return;
    put_(blank_);
    isOnLine_ = false;
}

/// "importing part.step: writing faces, 40 %".
std::string ProgressDisplay::state() const {
    std::string result = "importing " + what_;
    if (!phase_.empty()) result += ": " + phase_;
    if (percent_) result += ", " + std::to_string(*percent_) + " %";
    return result;
}

std::string ProgressDisplay::withTime(const std::string& state) const {
    const auto elapsed = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - start_);
    return elapsed.count() > 0 ? state + ", " + std::to_string(elapsed.count()) + " s" : state;
}

void ProgressDisplay::show() {
    if (isHeld_ || isMidLine_) return;
    if (style_ == ProgressStyle::rewritten) rewrite();
    if (style_ == ProgressStyle::lines) addLine();
}

void ProgressDisplay::rewrite() {
    const std::string now = withTime(state());
    if (isOnLine_ && now == shown_) return;
    put_('\r' + fitted(now, width_));
    shown_ = now;
    isOnLine_ = true;
}

void ProgressDisplay::addLine() {
    const std::string now = state();
    const auto pause = now == shown_ ? silentPause : linePause;
    if (!shown_.empty() && Clock::now() - lineTime_ < pause) return;
    put_(withTime(now) + '\n');
    shown_ = now;
    lineTime_ = Clock::now();
}

} // namespace host
