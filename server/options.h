// SPDX-License-Identifier: Apache-2.0
// The words of the server's command line.
#pragma once

#include <QString>
#include <QStringList>

namespace server {

/// Whoever starts the server may pass words that are meant for others; those are accepted and not
/// acted upon.
struct Options {
    QString inputFile;
    QString outputBaseName;
    bool igs = false;        ///< leave BASE.igs too
    bool sat = false;        ///< asked for, but there is none
    bool bodiesOnly = false; ///< solids only
    bool help = false;
    bool version = false;
    QStringList unknown; ///< words that mean nothing here, in order
};

/// `words` without the program's name. Throws a Failure (wrong use) when a word lacks its value or
/// has one that it can't have, or when input or output isn't named.
Options parseOptions(const QStringList& words);

/// The text of --help.
QString helpText();

} // namespace server
