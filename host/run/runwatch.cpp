// SPDX-License-Identifier: Apache-2.0
// The watching thread.
#include "host/run/runwatch.h"

#include "host/run/interrupts.h"

#include <new>

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr auto turn = 50ms;
constexpr auto patience = 2s; ///< between asking processes to stop and killing them
constexpr auto shortPatience = 500ms;

} // namespace

/// The display speaks through the tap, but not before it is told to.
RunWatch::RunWatch(const Services& services, const std::string& what, ProgressStyle style)
    : busyState_(services.busyState), dialog_(services.dialog),
      display_(style, what, platform::errorColumns(),
               [this](std::string_view text) { tap_.write(text); }),
      tap_([this](std::string_view piece) { display_.take(piece); }) {
    thread_ = std::thread([this] { watch(); });
}

RunWatch::~RunWatch() {
    endProcesses();
    {
        const std::lock_guard lock(mutex_);
        isOver_ = true;
    }
    ending_.notify_one();
    thread_.join();
    tap_.close();
    display_.finish();
}

std::string RunWatch::lastWords() {
    std::this_thread::sleep_for(turn); // what was said last is still on its way
    return display_.lastWords();
}

void RunWatch::watch() {
    do {
        try {
            passInterruptsOn();
            display_.tick(dialog_->isAsking());
        } catch (const std::bad_alloc&) { // the next turn may have more
        }
    } while (!isOverAfterTurn());
}

/// Returns early when the end comes within the turn.
bool RunWatch::isOverAfterTurn() {
    std::unique_lock lock(mutex_);
    return ending_.wait_for(lock, turn, [this] { return isOver_; });
}

/// Repeated at every turn, so that a server which starts after the interrupt is stopped as well.
/// Who was asked isn't asked again: that would interrupt the tidying up.
void RunWatch::passInterruptsOn() {
    const int count = interruptCount();
    if (count == 0) return;
    if (!busyState_->isCancelled()) askedToStop_ = Clock::now();
    busyState_->cancel();
    const auto waited = Clock::now() - askedToStop_;
    const bool isUp = waited > (count > 1 ? shortPatience : patience);
    for (const std::uint32_t id : offspring_.running()) {
        if (asked_.insert(id).second || isUp) platform::endProcess(id, isUp);
    }
}

} // namespace host
