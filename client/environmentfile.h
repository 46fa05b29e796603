// SPDX-License-Identifier: Apache-2.0
// The environment file: what a host adds to the process environment for the time of a run.
//
// Lines are NAME=VALUE, narrow text, of which only ASCII reaches the server as it was. NAME is all
// before the first "=", VALUE all behind it up to the end of the line. A line that starts with "#",
// has no "=" or no name changes nothing; neither does an empty VALUE. A longer line than 4999 bytes
// is taken in pieces of that length, each a line of its own.
#pragma once

#include "zelbasictypes/text/korstring.h"

#include <map>

/// The changed variables with the values from before the first change. A variable that was not set
/// has the empty text.
using SavedEnvironment = std::map<KorString, KorString>;

/// Applies the file and fills `saved` anew. True for an empty path, which changes nothing; false
/// when the file cannot be read, and then nothing has changed. Not safe against other threads that
/// use the environment.
bool loadEnvironmentFile(const KorString& path, SavedEnvironment& saved);

/// Puts the saved values back, in ascending order of name, and empties `saved`.
void restoreEnvironment(SavedEnvironment& saved);

/// Restores at its end, however that comes.
class EnvironmentLoan {
public:
    explicit EnvironmentLoan(SavedEnvironment& saved) : saved_(saved) {}
    EnvironmentLoan(const EnvironmentLoan&) = delete;
    EnvironmentLoan& operator=(const EnvironmentLoan&) = delete;
    ~EnvironmentLoan() { restoreEnvironment(saved_); }

private:
    SavedEnvironment& saved_;
};
