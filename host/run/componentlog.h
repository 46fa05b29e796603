// SPDX-License-Identifier: Apache-2.0
// What the component says in the log while it runs, kept for the report.
#pragma once

#include <string>
#include <vector>

namespace host {

/// While one lives, warnings of the log categories "brix.*" are kept instead of printed; everything
/// else takes its usual way. One at a time, made and destroyed on the same thread; the component
/// may log on any thread.
class ComponentLog {
public:
    ComponentLog();
    ~ComponentLog();
    ComponentLog(const ComponentLog&) = delete;
    ComponentLog& operator=(const ComponentLog&) = delete;

    /// The lines so far, oldest first, in UTF-8.
    std::vector<std::string> lines() const;
};

} // namespace host
