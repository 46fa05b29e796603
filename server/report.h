// SPDX-License-Identifier: Apache-2.0
// What a run read, wrote, converted and dropped: the contents of BASE.report.json.
#pragma once

#include <map>
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
    std::string what;   ///< "face", "edge", "loop", "entity" of the file, ...
    int identifier = 0; ///< in the model; of an entity, its number in the file; 0: none
    std::string why;
};

/// Texts are UTF-8; bytes that aren't come out as replacement characters.
class Report {
public:
    void converted(Conversion conversion) { conversions.push_back(std::move(conversion)); }
    void dropped(std::string what, int identifier, std::string why) {
        drops.push_back({std::move(what), identifier, std::move(why)});
    }
    std::string json() const;

    std::string file, format;
    Unit unit;
    std::map<std::string, int> read;         ///< "solid", "shell", "face", "edge"
    std::map<std::string, int> surfaceKinds; ///< of the faces that were read
    std::map<std::string, int> curveKinds;   ///< of the edges that were read
    std::map<std::string, int> written;      ///< messages by wire name
    std::vector<Conversion> conversions;
    std::vector<Drop> drops;
    std::map<std::string, double> timingsMs; ///< "read", "transfer", "write", "export"
};

} // namespace server
