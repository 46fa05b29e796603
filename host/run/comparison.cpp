// SPDX-License-Identifier: Apache-2.0
// Face by face, then body by body. The server's figures are in millimetres.
#include "host/run/comparison.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace host {
namespace {

using Json = nlohmann::ordered_json;

constexpr double relativeTolerance = 1e-6;
constexpr double squareMillimetres = 1e6, cubicMillimetres = 1e9; ///< in a metre's

/// A figure of the server: what was measured, and how much it may be off beyond the tolerance.
struct Figure {
    Identifier identifier = 0;
    double value = 0.0, margin = 0.0;

    bool agreesWith(double other) const {
        return std::abs(other - value) <= relativeTolerance * std::abs(value) + margin;
    }
};

std::optional<double> numberIn(const Json& entry, const char* key) {
    const auto found = entry.find(key);
    if (found == entry.end() || !found->is_number()) return std::nullopt;
    const double number = found->get<double>();
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<Figure> figureIn(const Json& entry, const char* key) {
    if (!entry.is_object()) return std::nullopt;
    const auto identifier = entry.find("identifier");
    const auto value = numberIn(entry, key), margin = numberIn(entry, "margin");
    if (identifier == entry.end() || !identifier->is_number_integer() || !value || !margin) {
        return std::nullopt;
    }
    return Figure{identifier->get<Identifier>(), *value, *margin};
}

/// The list under "measured", or an empty one.
const Json& measuredList(const Json& report, const char* key) {
    static const Json none = Json::array();
    if (!report.is_object()) return none;
    const auto measured = report.find("measured");
    if (measured == report.end() || !measured->is_object()) return none;
    const auto list = measured->find(key);
    return list != measured->end() && list->is_array() ? *list : none;
}

std::string digits(double value) {
    char text[40];
    const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 7);
    return {text, end.ptr};
}

/// With as many digits as tell the two apart.
std::string difference(const char* what, double arrived, double original, const char* unit) {
    std::string text =
        std::string(what) + ' ' + digits(arrived) + " instead of " + digits(original) + ' ' + unit;
    if (digits(arrived) == digits(original)) {
        text += " (" + digits((arrived - original) / original) + " of it more)";
    }
    return text;
}

class Comparison {
public:
    Comparison(const ModelRecord& record, const RebuiltModel& model) : record_(record) {
        for (const FaceMeasure& face : model.faceMeasures) faces_[face.identifier] = &face;
    }

    void compareFace(const Figure& figure) {
        const auto found = faces_.find(figure.identifier);
        if (found == faces_.end()) return;
        const double area = found->second->areaM2 * squareMillimetres;
        if (figure.agreesWith(area)) return;
        differences_.push_back(
            {"face", figure.identifier, difference("area", area, figure.value, "mm\u00b2")});
    }

    void compareBody(const Figure& figure, const std::vector<Identifier>& shells) {
        const auto volume = volumeOf(shells);
        if (!volume || figure.agreesWith(*volume)) return;
        differences_.push_back(
            {"body", figure.identifier, difference("volume", *volume, figure.value, "mm\u00b3")});
    }

    std::vector<DroppedRecord> result() && { return std::move(differences_); }

private:
    /// None unless every face was measured.
    std::optional<double> volumeOf(const std::vector<Identifier>& shells) const {
        double sum = 0.0;
        std::size_t found = 0;
        for (const ShellRecord& shell : record_.shells) {
            if (std::find(shells.begin(), shells.end(), shell.identifier) == shells.end()) continue;
            ++found;
            for (const Identifier identifier : shell.faces) {
                const auto face = faces_.find(identifier);
                if (face == faces_.end()) return std::nullopt;
                sum += face->second->volumeM3 * cubicMillimetres;
            }
        }
        return found == shells.size() ? std::optional(sum) : std::nullopt;
    }

    const ModelRecord& record_;
    std::map<Identifier, const FaceMeasure*> faces_;
    std::vector<DroppedRecord> differences_;
};

std::vector<Identifier> shellsIn(const Json& body) {
    std::vector<Identifier> shells;
    const auto list = body.find("shells");
    if (list == body.end() || !list->is_array()) return shells;
    for (const Json& shell : *list) {
        if (shell.is_number_integer()) shells.push_back(shell.get<Identifier>());
    }
    return shells;
}

std::set<Identifier> invalidAsRead(const Json& serverReport) {
    std::set<Identifier> faces;
    for (const Json& entry : measuredList(serverReport, "faces")) {
        const auto figure = figureIn(entry, "area");
        if (figure && entry.contains("valid") && entry["valid"] == false) {
            faces.insert(figure->identifier);
        }
    }
    return faces;
}

} // namespace

void noteOldFaults(const Json& serverReport, std::vector<DroppedRecord>& losses,
                   std::vector<DroppedRecord>& notes) {
    std::set<Identifier> invalid = invalidAsRead(serverReport);
    std::erase_if(losses, [&](const DroppedRecord& loss) {
        const bool isOld = loss.what == "validity" && invalid.erase(loss.identifier) > 0;
        if (isOld) {
            notes.push_back(loss);
            notes.back().why += ", and so it was in the file";
        }
        return isOld;
    });
    for (const Identifier face : invalid) {
        notes.push_back({"validity", face, "it was invalid in the file", 1});
    }
}

std::vector<DroppedRecord> differences(const Json& serverReport, const ModelRecord& record,
                                       const RebuiltModel& model) {
    Comparison comparison(record, model);
    for (const Json& entry : measuredList(serverReport, "faces")) {
        if (const auto figure = figureIn(entry, "area")) comparison.compareFace(*figure);
    }
    for (const Json& entry : measuredList(serverReport, "bodies")) {
        const auto figure = figureIn(entry, "volume");
        if (!figure) continue;
        const std::vector<Identifier> shells = shellsIn(entry);
        if (!shells.empty()) comparison.compareBody(*figure, shells);
    }
    return std::move(comparison).result();
}

} // namespace host
