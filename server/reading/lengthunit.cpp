// SPDX-License-Identifier: Apache-2.0
// The table of units and the kernel's global setting.
#include "server/reading/lengthunit.h"

#include <Interface_Static.hxx>
#include <UnitsMethods.hxx>

#include <algorithm>
#include <cctype>

namespace server {
namespace {

constexpr const char* settingName = "xstep.cascade.unit";

struct Row {
    int number;
    LengthUnit unit;
    const char* otherNames; ///< each between blanks, in lower case
};

constexpr Row table[] = {
    {1, {"inch", 25.4, "INCH"}, " inch inches in "},
    {2, {"millimetre", 1.0, "MM"}, " millimetre millimeter mm "},
    {4, {"foot", 304.8, "FT"}, " foot feet ft "},
    {5, {"mile", 1609344.0, "MI"}, " mile miles mi "},
    {6, {"metre", 1000.0, "M"}, " metre meter m "},
    {7, {"kilometre", 1e6, "KM"}, " kilometre kilometer km "},
    {8, {"mil", 0.0254, "MIL"}, " mil mils "},
    {9, {"micrometre", 0.001, "UM"}, " micrometre micrometer micron um "},
    {10, {"centimetre", 10.0, "CM"}, " centimetre centimeter cm "},
    {11, {"microinch", 2.54e-5, "UIN"}, " microinch uin "},
};

const LengthUnit& millimetre() { return table[1].unit; }

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

} // namespace

const LengthUnit* findLengthUnit(const std::string& name) {
    const std::string wanted = " " + lowered(name) + " ";
    for (const Row& row : table) {
        if (std::string(row.otherNames).find(wanted) != std::string::npos) return &row.unit;
    }
    return nullptr;
}

const LengthUnit* findLengthUnit(int number) {
    for (const Row& row : table) {
        if (row.number == number) return &row.unit;
    }
    return nullptr;
}

const LengthUnit& settleUnit(const LengthUnit* known, const std::string& nameInFile,
                             Report& report) {
    const LengthUnit& unit = known ? *known : millimetre();
    report.unit = {unit.name, unit.millimetres, known || !nameInFile.empty()};
    if (!known && !nameInFile.empty()) {
        report.converted({"unit", 0, nameInFile, unit.name, "lengths can't be kept in this unit"});
    }
    return unit;
}

KernelUnit::KernelUnit(const LengthUnit& unit) : before_(Interface_Static::CVal(settingName)) {
    Interface_Static::SetCVal(settingName, unit.kernelName);
    UnitsMethods::SetCasCadeLengthUnit(Interface_Static::IVal(settingName));
}

KernelUnit::~KernelUnit() {
    Interface_Static::SetCVal(settingName, before_.c_str());
    UnitsMethods::SetCasCadeLengthUnit(Interface_Static::IVal(settingName));
}

} // namespace server
