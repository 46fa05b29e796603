// SPDX-License-Identifier: Apache-2.0
// The server's option list, a word a line: refused by a reason or taken the same each time, and
// what means nothing is named in order.
#include "fuzz/input.h"
#include "server/failure.h"
#include "server/options.h"

#include <optional>

namespace {

std::optional<server::Options> taken(const QStringList& words) {
    try {
        return server::parseOptions(words);
    } catch (const server::Failure& failure) {
        require(failure.code() == server::ExitCode::wrongUse && *failure.what(), "another reason");
        return std::nullopt;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    QStringList words;
    for (Input input(data, size); !input.isEmpty();) words << QString::fromStdString(input.line());
    const auto options = taken(words);
    if (!options) return 0;
    const QStringList between{"-Batch", "-Batch"}; // for a word at the end that skips two
    const auto twice = taken(words + between + words);
    require(twice && twice->unknown == options->unknown + options->unknown, "others are unknown");
    require(twice->inputFile == options->inputFile && twice->igs == options->igs &&
                twice->timeLimitSeconds == options->timeLimitSeconds &&
                twice->controlPort == options->controlPort,
            "taken otherwise");
    auto next = words.begin();
    for (const QString& word : options->unknown) {
        next = std::find(next, words.end(), word);
        require(next++ != words.end(), "a word from elsewhere");
    }
    return 0;
}
