// SPDX-License-Identifier: Apache-2.0
// Where the run is: lines "progress 40 % writing faces" for whoever started the server, and the
// name of the phase for the line that a crash leaves.
#pragma once

#include <Message_ProgressIndicator.hxx>

#include <mutex>
#include <ostream>
#include <string>

namespace server {

/// One per process: the phase's name is kept where a signal handler can read it.
class Progress {
public:
    /// Nothing is written when `out` is null.
    explicit Progress(std::ostream* out) : out_(out) {}

    /// Enters a phase that takes the percents from `from` to `to`. `name` is a literal.
    void enter(const char* name, int from, int to);
    /// `share` of the phase, 0 to 1, is done. Writes only when the whole percents change.
    void reach(double share);
    /// Says that nothing has moved for so long. Any thread may call this and moves().
    void sayStandstill(int seconds);
    /// Grows whenever the run gets on.
    int moves() const;

    /// The name of the phase that the process is in. Safe in a signal handler.
    static const char* phase();

private:
    void print(const std::string& addition = {});

    std::ostream* out_;
    mutable std::mutex lock_; ///< guards what follows, and the stream
    int from_ = 0, to_ = 0, percent_ = 0, moves_ = 0;
    double share_ = 0.0;
};

/// Lets the kernel's own algorithms report into the present phase.
class KernelProgress : public Message_ProgressIndicator {
public:
    explicit KernelProgress(Progress& progress) : progress_(progress) {}
    void Show(const Message_ProgressScope& scope, const Standard_Boolean isForce) override;

private:
    Progress& progress_;
};

} // namespace server
