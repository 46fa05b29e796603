// SPDX-License-Identifier: Apache-2.0
// What a run read, wrote, converted, dropped and measured: the contents of BASE.report.json.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace server {

struct Unit {
    std::string name = "millimetre";
    double millimetres = 1.0;
    bool declared = false; ///< false: the file names no unit and this one is assumed
};

struct Conversion {
    std::string what; ///< "edge", "surface", "faces", "unit"
    int identifier = 0;
    std::string from, to, why;
};

struct Drop {
    std::string what;   ///< "face", "face of the file", "entity" of the file, ...
    int identifier = 0; ///< in the model, or its number in the file; 0: none
    std::string why;
};

struct MeasuredFace {
    int identifier = 0;
    double area = 0.0, margin = 0.0; ///< mm²
    bool valid = true;               ///< false: the kernel's check finds fault with it as read
};

struct MeasuredBody {
    int identifier = 0;
    std::vector<int> shells;
    double volume = 0.0, margin = 0.0; ///< mm³; positive inside an outer shell
};

struct FailedRun {
    int exitCode = 0;
    std::string phase, reason;
};

/// Texts are UTF-8; bytes that aren't come out as replacement characters.
class Report {
public:
    void converted(Conversion conversion) { conversions.push_back(std::move(conversion)); }
    void dropped(std::string what, int identifier, std::string why) {
        drops.push_back({std::move(what), identifier, std::move(why)});
    }
    /// What is no part of the model.
    void noted(std::string what, int identifier, std::string why) {
        notes.push_back({std::move(what), identifier, std::move(why)});
    }
    std::string json() const;

    std::string file, format;
    Unit unit;
    std::map<std::string, int> read;         ///< "solid", "shell", "face", "edge"
    std::map<std::string, int> surfaceKinds; ///< of the faces that were read
    std::map<std::string, int> curveKinds;   ///< of the edges that were read
    std::map<std::string, int> written;      ///< messages by wire name
    std::vector<Conversion> conversions;
    std::vector<Drop> drops; ///< what a user may miss in the model
    std::vector<Drop> notes; ///< what went wrong beside it
    std::vector<MeasuredFace> faces;
    std::vector<MeasuredBody> bodies;
    std::map<std::string, double> timingsMs; ///< "read", "transfer", "write", "measure", "export"
    std::optional<FailedRun> failure;
};

} // namespace server
