// SPDX-License-Identifier: Apache-2.0
// The report as JSON, in an order fit for reading.
#include "server/report.h"

#include <nlohmann/json.hpp>

namespace server {
namespace {

using Json = nlohmann::ordered_json;

Json readPart(const Report& report) {
    Json part = Json::object();
    for (const char* key : {"solid", "shell", "face", "edge"}) {
        const auto found = report.read.find(key);
        part[key] = found == report.read.end() ? 0 : found->second;
    }
    part["surfaceKinds"] = report.surfaceKinds;
    part["curveKinds"] = report.curveKinds;
    return part;
}

Json conversionsPart(const Report& report) {
    Json part = Json::array();
    for (const Conversion& c : report.conversions) {
        part.push_back({{"what", c.what},
                        {"identifier", c.identifier},
                        {"from", c.from},
                        {"to", c.to},
                        {"why", c.why}});
    }
    return part;
}

Json dropsPart(const std::vector<Drop>& drops) {
    Json part = Json::array();
    for (const Drop& d : drops) {
        part.push_back({{"what", d.what}, {"identifier", d.identifier}, {"why", d.why}});
    }
    return part;
}

Json measuredPart(const Report& report) {
    Json faces = Json::array(), bodies = Json::array();
    for (const MeasuredFace& f : report.faces) {
        faces.push_back({{"identifier", f.identifier}, {"area", f.area}, {"margin", f.margin}});
        if (!f.valid) faces.back()["valid"] = false;
    }
    for (const MeasuredBody& b : report.bodies) {
        bodies.push_back({{"identifier", b.identifier},
                          {"shells", b.shells},
                          {"volume", b.volume},
                          {"margin", b.margin}});
    }
    return {{"faces", faces}, {"bodies", bodies}};
}

} // namespace

std::string Report::json() const {
    Json all;
    all["file"] = file;
    all["format"] = format;
    all["unit"] = {
        {"name", unit.name}, {"millimetres", unit.millimetres}, {"declared", unit.declared}};
    all["read"] = readPart(*this);
    all["written"] = written;
    all["converted"] = conversionsPart(*this);
    all["dropped"] = dropsPart(drops);
    all["notes"] = dropsPart(notes);
    all["measured"] = measuredPart(*this);
    all["timingsMs"] = timingsMs;
    if (failure) {
        all["failure"] = {{"exitCode", failure->exitCode},
                          {"phase", failure->phase},
                          {"reason", failure->reason}};
    }
    return all.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

} // namespace server
