// SPDX-License-Identifier: Apache-2.0
// A folder for what lives as long as a run, and the removal of those whose process was killed.
#pragma once

#include "platform/file.h"

#include <QString>
#include <QTemporaryDir>

namespace host {

/// A new folder of this user's alone, named by its process, which goes with this object. Making one
/// removes those that processes of this user have left: whose process is gone, and that nobody
/// holds, as a process that isn't visible from here may.
class TemporaryFolder {
public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    /// Why there is none; empty when there is one.
    QString problem() const;
    QString path() const { return folder_.path(); }
    QString filePath(const QString& name) const { return folder_.filePath(name); }

private:
    QTemporaryDir folder_;
    platform::Descriptor hold_ = -1; ///< of a file in it
};

} // namespace host
