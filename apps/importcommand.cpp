// SPDX-License-Identifier: Apache-2.0
// Parsing the command line of brix-import.
#include "apps/importcommand.h"

#include "platform/channels.h"

#include <CLI/CLI.hpp>

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <initializer_list>

namespace apps {
namespace {

constexpr int wrongUse = 2;

/// The texts as the parser fills them.
struct Words {
    std::string model, outputBase, server, module, environment, answer, settingsFile, trace, json,
        picture, exportFile, progress = "auto";
    std::vector<std::string> arguments, settings, without;
    bool noServer = false, live = false, traceFrames = false, noCompare = false, quiet = false;
    int timeLimitSeconds = 0, memoryLimitMb = 0;
};

CLI::Option* addList(CLI::App& parser, const char* name, std::vector<std::string>& list,
                     const char* value, const char* help) {
    return parser.add_option(name, list, help)->type_name(value)->allow_extra_args(false);
}

void addInput(CLI::App& parser, Words& words) {
    parser.add_option("MODEL", words.model, "the CAD file");
    parser
        .add_option(
            "--output-base", words.outputBase,
            "output base name; default: in a temporary directory that is removed at the end")
        ->type_name("BASE");
    parser.add_flag("--no-server", words.noServer,
                    "start no server: read the BASE.direct that is there already, without MODEL");
    parser.add_flag("--live", words.live,
                    "talk with the server over a control connection, where it names its files");
    parser.add_flag("--trace-frames", words.traceFrames,
                    "with --live: append each frame to CADImportClientControlReadTrace.xml or\n"
                    "CADImportClientControlSendTrace.xml in C:\\Temp; C: is ZEL_DRIVE_C elsewhere");
    addList(parser, "--argument", words.arguments, "WORD",
            "a further word of the server's option list; repeatable");
    parser.add_option("--server", words.server, "the server; default: the one beside this program")
        ->type_name("PROGRAM");
    parser
        .add_option("--module", words.module, "the component; default: the one beside this program")
        ->type_name("FILE");
    parser
        .add_option("--environment", words.environment,
                    "lines NAME=VALUE that the server's environment gets")
        ->type_name("FILE");
}

void addHost(CLI::App& parser, Words& words) {
    parser
        .add_option("--answer", words.answer,
                    "answers every question; default: a terminal is asked")
        ->check(CLI::IsMember({"yes", "no"}))
        ->type_name("yes|no");
    addList(parser, "--set", words.settings, "KEY=VALUE",
            "a setting, such as \"General/Show Batch Processing=1\"; repeatable");
    parser.add_option("--settings", words.settingsFile, "an INI file of settings")
        ->type_name("FILE");
    addList(parser, "--without", words.without, "SERVICE",
            "leaves a service of the host out, such as IGuiSimpleDlg; repeatable");
}

void addOutput(CLI::App& parser, Words& words) {
    parser
        .add_option("--trace", words.trace,
                    "writes one JSON line for each call at the modelling component")
        ->type_name("FILE");
    parser.add_option("--json", words.json, "the report as JSON; default: to standard output")
        ->expected(0, 1)
        ->type_name("[FILE]");
    parser.add_option("--picture", words.picture, "a shaded picture of what arrived")
        ->type_name("FILE.png");
    parser
        .add_option("--export", words.exportFile,
                    "the rebuilt shape, as .brep, .step, .stl or .glb by extension")
        ->type_name("FILE");
}

void addLimits(CLI::App& parser, Words& words) {
    parser.add_flag("--no-compare", words.noCompare,
                    "don't compare areas and volumes with what the server measured");
    parser
        .add_option(
            "--time-limit", words.timeLimitSeconds,
            "processor time of the server, and of rebuilding solids; default: minutes, more\n"
            "for large files and for many faces")
        ->check(CLI::Range(1, 1'000'000))
        ->type_name("SECONDS");
    parser
        .add_option("--memory-limit", words.memoryLimitMb,
                    "memory of the server, and of rebuilding solids; default: none for the\n"
                    "server, 4096 and more for many faces for the solids")
        ->check(CLI::Range(64, 1'000'000'000))
        ->type_name("MB");
}

void addProgress(CLI::App& parser, Words& words) {
    auto* progress =
        parser
            .add_option("--progress", words.progress,
                        "always: one line that is rewritten; never: none; auto: the line on a\n"
                        "terminal, elsewhere at most one line a second")
            ->check(CLI::IsMember({"auto", "always", "never"}))
            ->type_name("auto|always|never");
    parser.add_flag("--quiet", words.quiet, "no progress, as --progress never")->excludes(progress);
}

constexpr const char* exitStatusHelp =
    "Exit status: 0 the whole model arrived, 1 nothing was imported, 2 wrong use, or a file\n"
    "beside the model can't be read or written, 3 module or server unusable, 4 arrived with\n"
    "losses, each named in the report.";

QStringList toQStrings(const std::vector<std::string>& texts) {
    QStringList list;
    for (const std::string& text : texts) list << QString::fromStdString(text);
    return list;
}

/// Whether the name leads to the same file once Qt has had it.
bool isWhole(const std::string& name) {
    return QFile::encodeName(QString::fromStdString(name)).toStdString() == name;
}

bool areTexts(const std::vector<std::string>& commandLine, const std::string& model) {
    return std::all_of(commandLine.begin() + 1, commandLine.end(), [&](const std::string& word) {
        return word == model || QString::fromStdString(word).toStdString() == word;
    });
}

host::ProgressStyle progressOf(const Words& words) {
    using host::ProgressStyle;
    if (words.quiet || words.progress == "never") return ProgressStyle::none;
    const bool isRewritten = words.progress == "always" || platform::isErrorTerminal();
    return isRewritten ? ProgressStyle::rewritten : ProgressStyle::lines;
}

ImportCommand commandOf(const Words& words, bool json) {
    ImportCommand command;
    host::ImportOptions& options = command.options;
    options.model = QString::fromStdString(words.model);
    if (!isWhole(words.model)) options.modelBytes = words.model;
    options.progress = progressOf(words);
    options.outputBase = QString::fromStdString(words.outputBase);
    options.noServer = words.noServer;
    options.live = words.live;
    options.traceFrames = words.traceFrames;
    options.arguments = toQStrings(words.arguments);
    options.server = QString::fromStdString(words.server);
    options.module = QString::fromStdString(words.module);
    options.environmentFile = QString::fromStdString(words.environment);
    if (!words.answer.empty()) options.answer = words.answer == "yes";
    options.settings = toQStrings(words.settings);
    options.settingsFile = QString::fromStdString(words.settingsFile);
    options.without = toQStrings(words.without);
    options.traceFile = QString::fromStdString(words.trace);
    options.picture = QString::fromStdString(words.picture);
    options.exportFile = QString::fromStdString(words.exportFile);
    options.compares = !words.noCompare;
    options.timeLimitSeconds = words.timeLimitSeconds;
    options.memoryLimitMb = words.memoryLimitMb;
    command.json = json;
    command.jsonFile = QString::fromStdString(words.json);
    return command;
}

/// A word behind --json is its file, unless it is the only one that can be MODEL.
void settleJson(Words& words) {
    if (words.model.empty() && !words.noServer) std::swap(words.model, words.json);
}

bool endsAsOneOf(std::initializer_list<const char*> endings, const std::string& file) {
    const QString name = QString::fromStdString(file);
    return std::any_of(endings.begin(), endings.end(), [&](const char* ending) {
        return name.endsWith(QLatin1String(ending), Qt::CaseInsensitive);
    });
}

bool areSame(const std::string& a, const std::string& b) {
    const QString place = QFileInfo(QString::fromStdString(a)).canonicalFilePath();
    return !place.isEmpty() && place == QFileInfo(QString::fromStdString(b)).canonicalFilePath();
}

bool replacesModel(const Words& words) {
    const auto outputs = {words.picture, words.exportFile, words.trace, words.json};
    return std::any_of(outputs.begin(), outputs.end(),
                       [&](const std::string& file) { return areSame(file, words.model); });
}

const char* problemOf(const Words& words) {
    if (!words.picture.empty() && !endsAsOneOf({".png"}, words.picture)) {
        return "--picture takes a file that ends in .png";
    }
    if (!words.exportFile.empty() &&
        !endsAsOneOf({".brep", ".step", ".stl", ".glb"}, words.exportFile)) {
        return "--export takes a file that ends in .brep, .step, .stl or .glb";
    }
    if (words.noServer && !words.model.empty()) return "--no-server takes no MODEL";
    if (words.noServer && words.outputBase.empty()) return "--no-server needs --output-base";
    if (words.noServer && words.live) return "--live needs a server";
    if (words.traceFrames && !words.live) return "--trace-frames needs --live";
    if (!words.noServer && words.model.empty()) return "MODEL is missing";
    if (replacesModel(words)) return "a file to be written is MODEL itself";
    return nullptr;
}

} // namespace

ParsedCommand parseImportCommand(const std::vector<std::string>& commandLine) {
    CLI::App parser("Imports a CAD file through the component and reports what came.",
                    "brix-import");
    // A path that begins with a slash is none of the options of another system.
    parser.allow_windows_style_options(false);
    parser.set_version_flag("--version", "brix-import " BRIX_VERSION);
    parser.footer(exitStatusHelp);
    Words words;
    addInput(parser, words);
    addHost(parser, words);
    addOutput(parser, words);
    addLimits(parser, words);
    addProgress(parser, words);

    std::vector<std::string> reversed(commandLine.rbegin(), commandLine.rend());
    if (!reversed.empty()) reversed.pop_back();
    try {
        parser.parse(reversed);
    } catch (const CLI::ParseError& error) {
        return {{}, parser.exit(error) == 0 ? 0 : wrongUse};
    }
    settleJson(words);
    const char* const problem = areTexts(commandLine, words.model)
                                    ? problemOf(words)
                                    : "a word other than MODEL is no UTF-8";
    if (problem) {
        std::cerr << "brix-import: " << problem << "\nRun with --help for more information.\n";
        return {{}, wrongUse};
    }
    return {commandOf(words, parser.count("--json") > 0), 0};
}

} // namespace apps
