// SPDX-License-Identifier: Apache-2.0
// kor-dump: looks into a data-model file, its tree of blocks.
#include "apps/blockjson.h"
#include "platform/channels.h"
#include "platform/file.h"
#include "zelbasictypes/data/bininputfile.h"
#include "zelbasictypes/text/korstring.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <iostream>
#include <memory>

namespace {

using apps::Block;

enum Status { sound = 0, unusable = 1, wrongUse = 2, damaged = 3 };

constexpr const char* exitStatusHelp =
    "Numbers that stand between blocks have no frame: they are shown as plain bytes, but one that\n"
    "happens to look like the beginning of a block is taken for one, or for a damaged one.\n"
    "Exit status: 0 the file is sound, 1 it can't be read or something can't be written,\n"
    "2 wrong use, 3 it stops making sense somewhere; what does make sense is shown.";

struct Options {
    std::string file;
    bool json = false;
};

Status complain(const std::string& problem, Status status) {
    std::cerr << "kor-dump: " << problem << "\n";
    return status;
}

/// Shows what the walk meets in one of the forms, and says where it makes no sense.
class Output : public apps::BlockSink {
public:
    Output(BinInput& source, std::string file) : source_(source), file_(std::move(file)) {}
    virtual void finish() {}
    bool isSound() const { return sound_; }

    void damage(std::uint64_t offset, const std::string& what) override {
        complain("at byte " + std::to_string(offset) + " of " + file_ + ": " + what, damaged);
        sound_ = false;
    }

protected:
    BinInput& source_;

private:
    std::string file_;
    bool sound_ = true;
};

class TextOutput : public Output {
public:
    using Output::Output;

private:
    void block(const Block& block) override {
        char head[80];
        const apps::BlockKind* kind = apps::blockKind(block.tag);
        std::snprintf(head, sizeof head, "%llu: %06X",
                      static_cast<unsigned long long>(block.offset), block.tag);
        std::cout << indent(block.depth) << head;
        if (kind) std::cout << ' ' << kind->name;
        std::cout << ", version " << block.version << ", length " << block.length;
        const auto json = apps::blockJson(source_, block);
        if (block.hasGuid) std::cout << ", " << json["identifier"].get<std::string>();
        if (block.hasValue) std::cout << " = " << apps::jsonText(json["value"]);
        if (json.contains("units")) std::cout << "... " << json["units"] << " units";
        std::cout << "\n";
    }
    void plain(std::uint64_t offset, std::uint64_t length, std::int32_t depth) override {
        const std::string bytes = apps::hexBytes(source_, offset, length);
        std::cout << indent(depth) << offset << ": " << length << " plain bytes, " << bytes
                  << (length > 16 ? " ..." : "") << "\n";
    }
    /// Deeper levels say how deep they are: a file may nest further than lines can be indented.
    static std::string indent(std::int32_t depth) {
        constexpr std::int32_t deepest = 40;
        if (depth <= deepest) return std::string(2 * static_cast<std::size_t>(depth), ' ');
        return std::string(2 * deepest, ' ') + "(" + std::to_string(depth) + ") ";
    }
};

/// An array, an element a line.
class JsonOutput : public Output {
public:
    using Output::Output;
    void finish() override { std::cout << (first_ ? "[]\n" : "\n]\n"); }

private:
    void add(const nlohmann::ordered_json& json) {
        std::cout << (first_ ? "[\n" : ",\n") << apps::jsonText(json);
        first_ = false;
    }
    void block(const Block& block) override { add(apps::blockJson(source_, block)); }
    void plain(std::uint64_t offset, std::uint64_t length, std::int32_t depth) override {
        add({{"offset", offset},
             {"depth", depth},
             {"kind", "plain"},
             {"length", length},
             {"bytes", apps::hexBytes(source_, offset, length)}});
    }
    void damage(std::uint64_t offset, const std::string& what) override {
        Output::damage(offset, what);
        add({{"offset", offset}, {"kind", "damage"}, {"what", what}});
    }

    bool first_ = true;
};

std::unique_ptr<Output> outputFor(const Options& options, BinInput& source) {
    if (options.json) return std::make_unique<JsonOutput>(source, options.file);
    return std::make_unique<TextOutput>(source, options.file);
}

Status run(const Options& options) {
    BinInputFile source(platform::openStream(options.file.c_str(), "rb"));
    if (!source.good()) return complain("can't read " + options.file, unusable);
    const auto output = outputFor(options, source);
    const auto nextData = [file = source.file()](std::uint64_t offset) {
        return static_cast<std::uint64_t>(
            platform::nextData(file, static_cast<std::int64_t>(offset)));
    };
    apps::BlockWalk(source, *output, nextData).run();
    output->finish();
    std::cout << std::flush;
    if (!source.good()) return complain("can't read " + options.file + " to its end", unusable);
    if (!std::cout.good() && platform::isOutputRead()) {
        return complain("the output can't be written", unusable);
    }
    return output->isSound() ? sound : damaged;
}

} // namespace

int main(int argc, char** argv) {
    platform::prepareChannels();
    std::ios::sync_with_stdio(false);
    CLI::App parser("Shows the blocks of a data-model file.", "kor-dump");
    parser.set_version_flag("--version", "kor-dump " BRIX_VERSION);
    parser.footer(exitStatusHelp);
    Options options;
    parser.add_option("FILE", options.file, "the data-model file")->required();
    parser.add_flag("--json", options.json, "a JSON array instead of text");
    try {
        parser.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return parser.exit(error) == 0 ? sound : wrongUse;
    }
    return run(options);
}
