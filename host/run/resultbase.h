// SPDX-License-Identifier: Apache-2.0
// The place where a server leaves its results: for one import at a time, and without what a server
// that died left half made.
#pragma once

#include "platform/file.h"

#include <QString>

namespace host {

/// Holds an output base name for its lifetime, by a file BASE.lock that goes with it. What a
/// process that was killed held is free.
class ResultBase {
public:
    ResultBase() = default;
    ResultBase(const ResultBase&) = delete;
    ResultBase& operator=(const ResultBase&) = delete;
    ~ResultBase();

    /// Why it can't be had, in one line; empty when it is held, and also, unless `isWritten`, where
    /// nothing can be written and so nobody else holds it. Call it once.
    QString take(const QString& base, bool isWritten);

private:
    platform::Descriptor lock_ = -1;
};

/// Removes what a server writes before it gives it its name.
void removeHalfMade(const QString& base);

} // namespace host
