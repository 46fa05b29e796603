// SPDX-License-Identifier: Apache-2.0
// Where the other parts of the system lie: beside the running program, as in the build, or in the
// folders of an installation.
#pragma once

#include <QString>

namespace host {

/// Each is empty when the file is in none of the places.
QString defaultModule();
QString defaultServer();

/// Why a program cannot be started, in a few words; empty when nothing speaks against it. A name
/// without a folder is looked for in PATH.
QString startProblem(const QString& program);

} // namespace host
