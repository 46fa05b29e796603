// SPDX-License-Identifier: Apache-2.0
// A result file that carries its name only when it is whole.
#pragma once

#include <QFile>
#include <QString>

namespace server {

/// Written as NAME.partial. commit() gives it its name, replacing what bore it; without that the
/// destructor removes it.
class PartialFile {
public:
    explicit PartialFile(const QString& name);
    ~PartialFile();
    PartialFile(const PartialFile&) = delete;
    PartialFile& operator=(const PartialFile&) = delete;

    QString partialName() const { return file_.fileName(); }
    /// For writing through Qt. Throws a Failure (unwritable).
    QFile& open();
    /// Closes the file, if it was opened here. Throws a Failure when anything didn't reach the
    /// disk.
    void commit();

    /// Removes whatever partial files there are, at the end of a process that can't unwind. Touches
    /// no lock and no heap, so that a signal handler may call it.
    static void removeAll() noexcept;

private:
    QString name_;
    QFile file_;
    int slot_;
};

} // namespace server
