// SPDX-License-Identifier: Apache-2.0
// The text of the last report stands ready in memory, all but its end.
#include "server/ending.h"

#include "platform/crashline.h"
#include "platform/lastfile.h"
#include "platform/process.h"
#include "server/progress.h"
#include "server/writing/partialfile.h"

#include <QFile>

#include <atomic>
#include <iostream>
#include <memory>
#include <vector>

namespace server {
namespace {

/// What fits between the report and its last brace.
using FailureText = platform::FixedText<1024>;

struct Prepared {
    std::string path;   ///< in the system's form
    std::string text;   ///< up to the last brace, with room for the failure behind
    std::size_t length; ///< without that room
};

std::atomic<Prepared*> prepared{nullptr};

/// They all stay: a handler on another thread may be reading one.
void keep(std::unique_ptr<Prepared> report) {
    static std::vector<std::unique_ptr<Prepared>> all;
    prepared = report.get();
    all.push_back(std::move(report));
}

void appendNumber(FailureText& text, int number) {
    const char digits[] = {static_cast<char>('0' + number / 10),
                           static_cast<char>('0' + number % 10), '\0'};
    text.append(number < 10 ? digits + 1 : digits);
}

void appendFailure(FailureText& text, ExitCode code, const char* reason) {
    text.append(",\n  \"failure\": {\"exitCode\": ");
    appendNumber(text, static_cast<int>(code));
    text.append(", \"phase\": \"");
    text.append(Progress::phase());
    text.append("\", \"reason\": \"");
    text.append(reason);
    text.append(" while ");
    text.append(Progress::phase());
    text.append("\"}\n}\n");
}

} // namespace

void LastReport::prepare(const QString& path, const std::string& json) {
    const QByteArray name = QFile::encodeName(path);
    auto report = std::make_unique<Prepared>();
    report->path.assign(name.constData(), static_cast<std::size_t>(name.size()));
    report->length = json.find_last_not_of(" \n", json.rfind('}') - 1) + 1;
    report->text = json.substr(0, report->length) + std::string(sizeof(FailureText), ' ');
    keep(std::move(report));
}

void LastReport::withdraw() noexcept { prepared = nullptr; }

void LastReport::leave(ExitCode code, const char* reason) noexcept {
    Prepared* const report = prepared.exchange(nullptr);
    if (!report) return;
    FailureText failure;
    appendFailure(failure, code, reason);
    for (std::size_t i = 0; i < failure.size(); ++i) {
        report->text[report->length + i] = failure.c_str()[i];
    }
    platform::leaveFile(report->path.c_str(), report->text.data(), report->length + failure.size());
}

/// Says why first: that may take its time, in which the import goes on and makes files.
void endAt(ExitCode code, const char* reason) {
    const bool isLimit = code == ExitCode::timeLimit;
    const std::string phase = isLimit ? std::string(" while ") + Progress::phase() : std::string();
    std::cerr << "cad-importer-server: " + std::string(reason) + phase + "\n" << std::flush;
    PartialFile::removeAll();
    if (isLimit) LastReport::leave(code, reason);
    platform::exitNow(static_cast<int>(code));
}

} // namespace server
