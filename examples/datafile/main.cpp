// SPDX-License-Identifier: Apache-2.0
// Writes a data-model file with two measuring points, and reads it again.
#include "zelbasictypes/data/zelfile.h"
#include "zelbasictypes/data/zelguid.h"
#include "zelbasictypes/math/zelvector3.h"
#include "zelbasictypes/text/korcstring.h"
#include "zelbasictypes/text/korstring.h"

#include <iostream>
#include <vector>

namespace {

struct MeasuringPoint {
    KorString name;
    ZelVector3 position; ///< in millimetres
    double tolerance = 0.01;
};

/// What stands in front of each point, so that a reader knows what follows. Version 0 of a point
/// had no tolerance.
constexpr ZelGuid pointId{
    0x6B1D9F42, 0x0E57, 0x4C83, {0x8A, 0x7E, 0x3C, 0x90, 0xD5, 0x12, 0x6F, 0xB8}};
constexpr std::uint32_t pointVersion = 1;

bool writePoints(const KorString& path, const std::vector<MeasuringPoint>& points) {
    ZelFileWrite file;
    if (!file.create(path)) return false;
    for (const MeasuringPoint& point : points) {
        file.beginGuidBlock(pointId, pointVersion);
        file << point.name << point.position << point.tolerance;
        file.endBlock();
    }
    return file.close(); // true when all of it is on the disk
}

MeasuringPoint readPoint(ZelFileRead& file) {
    std::uint32_t version = 0;
    file.beginObject(nullptr, version);
    MeasuringPoint point;
    file >> point.name >> point.position;
    if (version >= 1) file >> point.tolerance;
    file.endObject(); // skips what a later version has behind it
    return point;
}

/// Whatever else the file holds is skipped. False when it is damaged.
bool readPoints(const KorString& path, std::vector<MeasuringPoint>& points) {
    ZelFileRead file;
    if (!file.open(path)) return false;
    while (file.good() && !file.atBlockEnd()) {
        if (file.isNextObject(pointId)) {
            points.push_back(readPoint(file));
        } else {
            file.skipBlock();
        }
    }
    return file.close();
}

} // namespace

int main(int count, char** words) {
    if (count != 2) {
        std::cerr << "usage: example-datafile FILE\n";
        return 2;
    }
    const KorString path(words[1]);
    const std::vector<MeasuringPoint> written = {{"rim", {10, 0, 2.5}},
                                                 {"bore", {0, 0, 12}, 0.002}};
    std::vector<MeasuringPoint> read;
    if (!writePoints(path, written) || !readPoints(path, read)) return 1;
    for (const MeasuringPoint& point : read) {
        const ZelVector3& at = point.position;
        std::cout << point.name.toNarrow() << ": " << at.x << ' ' << at.y << ' ' << at.z
                  << " within " << point.tolerance << '\n';
    }
    return read.size() == written.size() ? 0 : 1;
}
