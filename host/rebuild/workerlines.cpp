// SPDX-License-Identifier: Apache-2.0
// To JSON and back.
#include "host/rebuild/workerlines.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <algorithm>

namespace host {
namespace {

/// More than a machine can run; a double tells it to the millisecond.
constexpr double greatestProcessorMs = 1e15;

QString text(const std::string& utf8) { return QString::fromStdString(utf8); }

QJsonObject object(const Step& step) {
    return {{"step", text(step.what)}, {"model", step.model}, {"identifier", step.identifier}};
}

QJsonObject object(const AtWork& atWork) {
    return {{"result", "atWork"}, {"processorMs", static_cast<double>(atWork.processorMs)}};
}

QJsonObject object(const DroppedRecord& drop) {
    return {{"dropped", text(drop.what)},
            {"model", drop.model},
            {"identifier", drop.identifier},
            {"why", text(drop.why)}};
}

QJsonObject object(const WorkerNote& note) {
    QJsonObject json = object(note.note);
    json["note"] = json.take("dropped");
    return json;
}

QJsonObject object(const FaceMeasure& face) {
    return {{"result", "face"},
            {"identifier", face.identifier},
            {"areaM2", face.areaM2},
            {"volumeM3", face.volumeM3}};
}

QJsonObject object(const RebuiltModel& model) {
    const QJsonValue valid = model.valid ? QJsonValue(*model.valid) : QJsonValue();
    QJsonArray box;
    for (const double bound : model.boundingBoxM) box.append(bound);
    return {{"result", "model"},      {"faces", model.faces},       {"edges", model.edges},
            {"shells", model.shells}, {"closed", model.closed},     {"valid", valid},
            {"areaM2", model.areaM2}, {"volumeM3", model.volumeM3}, {"boundingBoxM", box}};
}

QJsonObject object(const WrittenFile& file) {
    return {{"result", file.isPicture ? "picture" : "export"}};
}

QJsonObject object(const WorkDone&) { return {{"result", "done"}}; }

QJsonObject object(const std::monostate&) { return {}; }

RebuiltModel modelFrom(const QJsonObject& line) {
    RebuiltModel model;
    model.faces = line["faces"].toInt();
    model.edges = line["edges"].toInt();
    model.shells = line["shells"].toInt();
    model.closed = line["closed"].toBool();
    if (line["valid"].isBool()) model.valid = line["valid"].toBool();
    model.areaM2 = line["areaM2"].toDouble();
    model.volumeM3 = line["volumeM3"].toDouble();
    const QJsonArray box = line["boundingBoxM"].toArray();
    for (int i = 0; i < 6; ++i) model.boundingBoxM[static_cast<std::size_t>(i)] = box[i].toDouble();
    return model;
}

DroppedRecord dropFrom(const QJsonObject& line, const char* key) {
    return {line[key].toString().toStdString(), line["identifier"].toInt(),
            line["why"].toString().toStdString(), line["model"].toInt()};
}

WorkerLine resultFrom(const QJsonObject& line) {
    const QString kind = line["result"].toString();
    if (kind == "atWork") {
        const double told = line["processorMs"].toDouble();
        return AtWork{static_cast<std::int64_t>(std::clamp(told, 0.0, greatestProcessorMs))};
    }
    if (kind == "face") {
        return FaceMeasure{line["identifier"].toInt(), line["areaM2"].toDouble(),
                           line["volumeM3"].toDouble()};
    }
    if (kind == "model") return modelFrom(line);
    if (kind == "picture") return WrittenFile{true};
    if (kind == "export") return WrittenFile{false};
    if (kind == "done") return WorkDone{};
    return {};
}

} // namespace

QByteArray workerLine(const WorkerLine& line) {
    const QJsonObject json = std::visit([](const auto& kind) { return object(kind); }, line);
    return QJsonDocument(json).toJson(QJsonDocument::Compact) + '\n';
}

WorkerLine parseWorkerLine(const QByteArray& line) {
    const QJsonObject json = QJsonDocument::fromJson(line).object();
    if (json.contains("step")) {
        return Step{json["model"].toInt(), json["step"].toString().toStdString(),
                    json["identifier"].toInt()};
    }
    if (json.contains("dropped")) return dropFrom(json, "dropped");
    if (json.contains("note")) return WorkerNote{dropFrom(json, "note")};
    return resultFrom(json);
}

QString stepArgument(const Step& step) {
    return QString("%1/%2/%3").arg(step.model).arg(text(step.what)).arg(step.identifier);
}

std::optional<Step> parseStepArgument(const QString& argument) {
    const QStringList parts = argument.split('/');
    if (parts.size() != 3) return std::nullopt;
    bool isModel = false, isIdentifier = false;
    const Step step{parts[0].toInt(&isModel), parts[1].toStdString(),
                    parts[2].toInt(&isIdentifier)};
    return isModel && isIdentifier && !step.what.empty() ? std::optional(step) : std::nullopt;
}

} // namespace host
