// SPDX-License-Identifier: Apache-2.0
// Reads the command line, word by word.
#include "server/options.h"

#include "server/failure.h"

namespace server {
namespace {

/// Of seconds or megabytes.
constexpr std::uint32_t greatestNumber = 100'000'000;

class WordReader {
public:
    explicit WordReader(const QStringList& words) : words_(words) {}

    bool atEnd() const { return next_ >= words_.size(); }
    QString take() { return words_.at(next_++); }

    QString valueOf(const QString& word) {
        if (atEnd()) throw Failure(ExitCode::wrongUse, word.toStdString() + " lacks its value");
        return take();
    }

    bool switchOf(const QString& word) {
        const QString value = valueOf(word);
        if (value == QLatin1String("on")) return true;
        if (value == QLatin1String("off")) return false;
        throw Failure(ExitCode::wrongUse, word.toStdString() +
                                              " is followed by on or off, not by " +
                                              value.toStdString());
    }

    std::uint32_t numberOf(const QString& word) {
        const QString value = valueOf(word);
        bool isNumber = false;
        const auto number = value.toUInt(&isNumber);
        if (isNumber && number <= greatestNumber) return number;
        throw Failure(ExitCode::wrongUse, word.toStdString() +
                                              " is followed by a whole number, not by " +
                                              value.toStdString());
    }

    void skip(int count) {
        for (int i = 0; i < count && !atEnd(); ++i) take();
    }

private:
    const QStringList& words_;
    decltype(words_.size()) next_ = 0;
};

/// Words of the conversation between client and server that a file-to-file run doesn't need: how
/// many values follow each, or -1 for a word that isn't one of them.
int valuesOfIgnored(const QString& word) {
    const QStringList none{"-Batch", "-Interactive", "-Passive"};
    const QStringList one{"-ResultFile"};
    if (none.contains(word)) return 0;
    if (one.contains(word)) return 1;
    return word == "-DataSocket" ? 2 : -1;
}

/// A client on another machine, or a port that is none, means no conversation.
std::uint16_t controlPortOf(const QString& host, const QString& port) {
    const QStringList ownNames{"127.0.0.1", "localhost"};
    return ownNames.contains(host) ? port.toUShort() : std::uint16_t{0};
}

void takeWord(const QString& word, WordReader& reader, Options& options) {
    if (word == "-InputFile") {
        options.inputFile = reader.valueOf(word);
    } else if (word == "-OutputBaseName") {
        options.outputBaseName = reader.valueOf(word);
    } else if (word == "-igs") {
        options.igs = reader.switchOf(word);
    } else if (word == "-sat") {
        options.sat = reader.switchOf(word);
    } else if (word == "-BodiesOnly") {
        options.bodiesOnly = reader.switchOf(word);
    } else if (word == "-Compare") {
        options.compare = reader.switchOf(word);
    } else if (word == "-TimeLimit") {
        options.timeLimitSeconds = reader.numberOf(word);
    } else if (word == "-MemoryLimit") {
        options.memoryLimitMegabytes = reader.numberOf(word);
    } else if (word == "-ControlSocket") {
        const QString host = reader.valueOf(word);
        options.controlPort = controlPortOf(host, reader.valueOf(word));
    } else if (word == "--help" || word == "-h") {
        options.help = true;
    } else if (word == "--version") {
        options.version = true;
    } else if (const int values = valuesOfIgnored(word); values >= 0) {
        reader.skip(values);
    } else {
        options.unknown << word;
    }
}

} // namespace

void takeWords(const QStringList& words, Options& options) {
    WordReader reader(words);
    while (!reader.atEnd()) takeWord(reader.take(), reader, options);
}

Options parseOptions(const QStringList& words) {
    Options options;
    takeWords(words, options);
    if (options.help || options.version) return options;
    if (options.inputFile.isEmpty()) {
        throw Failure(ExitCode::wrongUse, "no -InputFile; see --help");
    }
    if (options.outputBaseName.isEmpty()) {
        throw Failure(ExitCode::wrongUse, "no -OutputBaseName; see --help");
    }
    return options;
}

QString helpText() {
    return QStringLiteral(
        R"(Usage: cad-importer-server -InputFile FILE -OutputBaseName BASE [OPTION]...

Reads a CAD file and leaves its solids and surfaces as BASE.direct, for the
import client, with a report of what was read, converted and dropped in
BASE.report.json. The format follows from the extension: STEP (.step, .stp),
IGES (.iges, .igs), BREP (.brep, .brp).

  -InputFile FILE        the file to read
  -OutputBaseName BASE   the results' path without extension
  -igs on|off            also write BASE.igs (default: off)
  -sat on|off            accepted; SAT is not offered, which the report says
  -BodiesOnly on|off     leave out surfaces that belong to no solid
                         (default: off)
  -Compare on|off        measure every face and body that is written and report
                         the figures, so that a host can compare (default: on)
  -TimeLimit SECONDS     processor time that the run may use (default: 120, and
                         30 more for each megabyte of the file; 0: no limit)
  -MemoryLimit MEGABYTES
                         memory that the process may have, its code included
                         (default: 0, no limit)
  -Batch, -Interactive, -Passive
                         accepted; the server never asks anything
  -ControlSocket HOST PORT
                         waits 5 seconds for a client at this port of 127.0.0.1
                         and imports when it asks; without one, or with another
                         host, imports at once
  -DataSocket HOST PORT, -ResultFile FILE
                         accepted; not used
  -h, --help             show this text
  --version              show the version

Progress goes to standard error in lines like "progress 40 % writing faces".
When nothing has moved for 10 seconds, a line says so.

Exit status:
  0   the model was written
  2   the command line is wrong
  3   the input is missing or can't be read
  4   the input's format is not supported
  5   the file was read but holds no shape
  6   the geometry kernel gave up, or the run failed otherwise
  7   the output can't be written
  8   the geometry kernel crashed
  9   stopped on request
  10  the process that started the server has gone
  11  the processor time is used up
  12  there is no more memory
)");
}

} // namespace server
