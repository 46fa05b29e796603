// SPDX-License-Identifier: Apache-2.0
// The words of the server's command line.
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace server {

/// Whoever starts the server may pass words that are meant for others; those are accepted and not
/// acted upon.
struct Options {
    QString inputFile;
    QString outputBaseName;
    bool igs = false;        ///< leave BASE.igs too
    bool sat = false;        ///< asked for, but there is none
    bool bodiesOnly = false; ///< solids only
    bool compare = true;     ///< measure what is written, so that a host can compare
    std::optional<std::uint32_t> timeLimitSeconds; ///< of the processor; 0: none
    std::uint32_t memoryLimitMegabytes = 0;        ///< 0: none
    std::uint16_t controlPort = 0; ///< where to listen, on this machine alone; 0: nowhere
    bool help = false;
    bool version = false;
    QStringList unknown; ///< words that mean nothing here, in order
};

/// `words` without the program's name. Throws a Failure (wrong use) when a word lacks its value or
/// has one that it can't have, or when input or output isn't named.
Options parseOptions(const QStringList& words);

/// Takes further words, such as a client sends, into options that are complete. Throws likewise,
/// and then some may have been taken.
void takeWords(const QStringList& words, Options& options);

/// The text of --help.
QString helpText();

} // namespace server
