// SPDX-License-Identifier: Apache-2.0
// direct-dump: looks into a model file, the records that a server left.
#include "apps/messagejson.h"
#include "cadimport/recordreader.h"
#include "platform/channels.h"

#include <CLI/CLI.hpp>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <functional>
#include <iomanip>
#include <iostream>
#include <map>

namespace {

using CADImport::Message;

enum Status { sound = 0, unusable = 1, wrongUse = 2, damaged = 3 };

constexpr const char* exitStatusHelp =
    "Exit status: 0 the file is sound, 1 it can't be read or something can't be written,\n"
    "2 wrong use, 3 it holds something that is no message, or ends within one; what stands\n"
    "before that is shown.";

struct Options {
    std::string file, rewrite;
    bool validOnly = false, count = false, json = false;
};

Status complain(const std::string& problem, Status status) {
    std::cerr << "direct-dump: " << problem << std::endl;
    return status;
}

/// Shows messages in one of the forms, as they come.
class Output {
public:
    virtual ~Output() = default;
    virtual void add(const Message& message, qint64 offset) = 0;
    virtual void finish() {}
};

class TextOutput : public Output {
    void add(const Message& message, qint64) override {
        QString text;
        QTextStream stream(&text);
        stream << message;
        std::cout << text.toStdString();
    }
};

/// An array, an element a line.
class JsonOutput : public Output {
    void add(const Message& message, qint64 offset) override {
        auto json = apps::messageJson(message);
        json["offset"] = offset;
        std::cout << (first_ ? "[\n" : ",\n")
                  << json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
        first_ = false;
    }
    void finish() override { std::cout << (first_ ? "[]\n" : "\n]\n"); }

    bool first_ = true;
};

class CountOutput : public Output {
    struct Count {
        qint64 all = 0, valid = 0;
    };

    void add(const Message& message, qint64) override {
        Count& count = counts_[message.name().toStdString()];
        ++count.all;
        count.valid += message.isValid();
    }
    static void line(const std::string& name, const Count& count) {
        std::cout << std::left << std::setw(24) << name << std::right << std::setw(12) << count.all
                  << std::setw(12) << count.valid << "\n";
    }
    void finish() override {
        std::cout << std::left << std::setw(24) << "message" << std::right << std::setw(12)
                  << "count" << std::setw(12) << "valid"
                  << "\n";
        Count total;
        for (const auto& [name, count] : counts_) {
            line(name, count);
            total.all += count.all;
            total.valid += count.valid;
        }
        line("total", total);
    }

    std::map<std::string, Count> counts_;
};

/// Writes the messages as records into another file, which appears when all is written.
class Rewriting : public Output {
public:
    explicit Rewriting(const std::string& fileName) : file_(QString::fromStdString(fileName)) {
        const QFileInfo target(file_.fileName());
        const bool isPlace = target.isFile() || !target.exists();
        if (isPlace && file_.open(QIODevice::WriteOnly)) stream_.setDevice(&file_);
        stream_.setVersion(CADImport::streamVersion);
    }
    bool isOpen() const { return file_.isOpen(); }
    std::string problem() const {
        return isOpen() || file_.error() != QFileDevice::NoError ? file_.errorString().toStdString()
                                                                 : "it is no file";
    }
    void add(const Message& message, qint64) override {
        stream_ << message.name();
        message.write(stream_);
    }
    bool commit() { return stream_.status() == QDataStream::Ok && file_.commit(); }

private:
    QSaveFile file_;
    QDataStream stream_;
};

std::unique_ptr<Output> outputFor(const Options& options) {
    if (options.json) return std::make_unique<JsonOutput>();
    if (options.count) return std::make_unique<CountOutput>();
    return std::make_unique<TextOutput>();
}

/// Hands the messages on until one isn't whole.
Status read(QFile& file, const Options& options,
            const std::function<void(const Message&, qint64)>& use) {
    CADImport::RecordReader records(file);
    while (!records.atEnd()) {
        const qint64 offset = records.position();
        const Message* message = records.look();
        const std::string place = " at byte " + std::to_string(offset) + " of " + options.file;
        if (!message) return complain("no message begins" + place, damaged);
        if (records.ranOut()) return complain("the message" + place + " is cut", damaged);
        if (!options.validOnly || message->isValid()) use(*message, offset);
    }
    return file.error() == QFileDevice::NoError
               ? sound
               : complain(options.file + ": " + file.errorString().toStdString(), unusable);
}

Status show(QFile& file, const Options& options) {
    const auto output = outputFor(options);
    const Status status = read(file, options, [&](const Message& m, qint64 offset) {
        if (std::cout.good()) output->add(m, offset);
    });
    output->finish();
    std::cout << std::flush;
    const bool isLost = !std::cout.good() && platform::isOutputRead();
    return isLost ? complain("the output can't be written", unusable) : status;
}

Status rewrite(QFile& file, const Options& options) {
    Rewriting output(options.rewrite);
    const auto failure = [&] {
        return complain("can't write " + options.rewrite + ": " + output.problem(), unusable);
    };
    if (!output.isOpen()) return failure();
    const Status status =
        read(file, options, [&](const Message& m, qint64 offset) { output.add(m, offset); });
    file.close(); // a file that is open can't be replaced on every system
    return output.commit() ? status : failure();
}

Status run(const Options& options) {
    QFile file(QString::fromStdString(options.file));
    if (!file.open(QIODevice::ReadOnly)) {
        return complain("can't read " + options.file + ": " + file.errorString().toStdString(),
                        unusable);
    }
    return options.rewrite.empty() ? show(file, options) : rewrite(file, options);
}

} // namespace

int main(int argc, char** argv) {
    platform::prepareChannels();
    const QCoreApplication application(argc, argv);
    CLI::App parser("Shows the messages of a model file, a .direct file.", "direct-dump");
    parser.set_version_flag("--version", "direct-dump " BRIX_VERSION);
    parser.footer(exitStatusHelp);
    Options options;
    parser.add_option("FILE", options.file, "the model file")->required();
    parser.add_flag("--valid-only", options.validOnly, "leaves out messages that aren't valid");
    auto* count = parser.add_flag("--count", options.count, "a table of how many of which kind");
    auto* json = parser.add_flag("--json", options.json, "a JSON array instead of text");
    auto* rewriting = parser.add_option("--rewrite", options.rewrite,
                                        "shows nothing; writes the messages to another file, "
                                        "byte for byte the same if all is well");
    rewriting->type_name("FILE")->excludes(count)->excludes(json);
    count->excludes(json);

    std::vector<std::string> words;
    for (const QString& word : QCoreApplication::arguments()) {
        words.insert(words.begin(), word.toStdString());
    }
    words.pop_back(); // the program's name
    try {
        parser.parse(words);
    } catch (const CLI::ParseError& error) {
        return parser.exit(error) == 0 ? sound : wrongUse;
    }
    return run(options);
}
