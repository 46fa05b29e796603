// SPDX-License-Identifier: Apache-2.0
// Reading the server's report.
#include "host/run/serverreport.h"

#include <QFile>
#include <QFileInfo>

namespace host {
namespace {

/// What is larger, or nested deeper, is no report; whatever is done with it later goes level by
/// level down the stack.
constexpr int greatestReportBytes = 64 << 20;
constexpr int greatestDepth = 100;

std::size_t writtenCount(const nlohmann::ordered_json& report, const char* message) {
    if (!report.is_object()) return 0;
    const auto written = report.find("written");
    if (written == report.end() || !written->is_object()) return 0;
    const auto count = written->find(message);
    return count != written->end() && count->is_number_unsigned() ? count->get<std::size_t>() : 0;
}

} // namespace

ServerReportFile::ServerReportFile(const QString& outputBase)
    : path_(outputBase + QStringLiteral(".report.json")), before_(QFileInfo(path_).lastModified()) {
}

nlohmann::ordered_json ServerReportFile::read() const {
    QFile file(path_);
    if (QFileInfo(path_).lastModified() == before_ || !file.open(QIODevice::ReadOnly)) return {};
    if (file.size() > greatestReportBytes) return {};
    const QByteArray text = file.read(file.size()); // which makes room for all that is asked for
    bool isDeep = false;
    const auto keep = [&isDeep](int depth, nlohmann::ordered_json::parse_event_t, const auto&) {
        isDeep = isDeep || depth > greatestDepth;
        return !isDeep;
    };
    auto report = nlohmann::ordered_json::parse(text.begin(), text.end(), keep, false);
    if (isDeep || report.is_discarded()) return {};
    return report;
}

std::string failureIn(const nlohmann::ordered_json& report) {
    if (!report.is_object()) return {};
    const auto failure = report.find("failure");
    if (failure == report.end() || !failure->is_object()) return {};
    const auto reason = failure->find("reason");
    return reason != failure->end() && reason->is_string() ? reason->get<std::string>() : "";
}

std::vector<DroppedRecord> lostOnTheWay(const nlohmann::ordered_json& report,
                                        const ImportRecord& record) {
    const struct {
        const char* what;
        const char* message;
        std::size_t (*arrived)(const ModelRecord&);
    } kinds[] = {
        {"edge", "CreateEdge", [](const ModelRecord& model) { return model.edges.size(); }},
        {"loop", "CreateLoop", [](const ModelRecord& model) { return model.loops.size(); }},
        {"face", "CreateFace", [](const ModelRecord& model) { return model.faces.size(); }},
        {"shell", "CreateShell", [](const ModelRecord& model) { return model.shells.size(); }},
    };
    std::vector<DroppedRecord> lost;
    for (const auto& kind : kinds) {
        std::size_t arrived = 0;
        for (const ModelRecord& model : record.models) arrived += kind.arrived(model);
        const std::size_t written = writtenCount(report, kind.message);
        if (arrived >= written) continue;
        lost.push_back({kind.what, 0,
                        std::to_string(written - arrived) + " of " + std::to_string(written) +
                            " that the server wrote did not arrive"});
    }
    return lost;
}

} // namespace host
