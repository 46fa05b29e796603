// SPDX-License-Identifier: Apache-2.0
// How the server ends, and the exception by which any step ends it.
#pragma once

#include <stdexcept>
#include <string>

namespace server {

/// The process's exit codes.
enum class ExitCode {
    ok = 0,
    wrongUse = 2,
    unreadable = 3,    ///< the input is missing or can't be read
    unsupported = 4,   ///< the input's format isn't one of ours
    noShape = 5,       ///< the file was read but holds no shape
    kernelFailed = 6,  ///< the geometry kernel threw
    unwritable = 7,    ///< the output can't be written
    kernelCrashed = 8, ///< a signal from within the geometry kernel
    stopped = 9,       ///< asked to stop
    parentGone = 10,   ///< whoever started the server has died
    timeLimit = 11,    ///< the processor time is used up
    memoryLimit = 12,  ///< there is no more memory
};

/// Ends the run; what() is the line that the user gets.
class Failure : public std::runtime_error {
public:
    Failure(ExitCode code, const std::string& reason) : std::runtime_error(reason), code_(code) {}
    ExitCode code() const { return code_; }

private:
    ExitCode code_;
};

} // namespace server
