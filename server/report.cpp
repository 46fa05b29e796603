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

Json dropsPart(const Report& report) {
    Json part = Json::array();
    for (const Drop& d : report.drops) {
        part.push_back({{"what", d.what}, {"identifier", d.identifier}, {"why", d.why}});
    }
    return part;
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
    all["dropped"] = dropsPart(*this);
    all["timingsMs"] = timingsMs;
    return all.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

} // namespace server
