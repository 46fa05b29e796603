// SPDX-License-Identifier: Apache-2.0
/// @file
/// Lines of the text dump that several messages share. Labels and blanks, including misspellings,
/// are part of the format that readers of older traces know.
#pragma once

#include "cadimport/fieldtypes.h"

#include <QList>
#include <QTextStream>

#include <array>

namespace CADImport {

/// The numbers, with one blank in between.
/// @{
inline QTextStream& operator<<(QTextStream& text, const Point3& p) {
    return text << p.x << " " << p.y << " " << p.z;
}
inline QTextStream& operator<<(QTextStream& text, const Point2& p) {
    return text << p.u << " " << p.v;
}
inline QTextStream& operator<<(QTextStream& text, const Range2& r) {
    return text << r.first << " " << r.last;
}
inline QTextStream& operator<<(QTextStream& text, const std::array<int, 2>& pair) {
    return text << pair[0] << " " << pair[1];
}
/// @}

/// One line with a label and a value, bare or in brackets.
/// @{
template <class Value> void dumpLine(QTextStream& text, const char* label, const Value& value) {
    text << "\t" << label << "=" << value << Qt::endl;
}

template <class Value>
void dumpBracketed(QTextStream& text, const char* label, const Value& value) {
    text << "\t" << label << "=(" << value << ")" << Qt::endl;
}

/// @}

/// As dumpBracketed(), with a blank after the opening bracket.
template <class Value> void dumpSpaced(QTextStream& text, const char* label, const Value& value) {
    text << "\t" << label << "=( " << value << ")" << Qt::endl;
}

/// One line: label and corners.
template <class AnyBox> void dumpBox(QTextStream& text, const char* label, const AnyBox& box) {
    text << "\t" << label << "=((" << box.first << ") (" << box.second << "))" << Qt::endl;
}

/// The end of a list: the numbers and a closing bracket.
template <class Number> void dumpNumbers(QTextStream& text, const QList<Number>& numbers) {
    for (const Number& number : numbers) text << " " << number;
    text << ")" << Qt::endl;
}

/// One line: label and numbers.
inline void dumpList(QTextStream& text, const char* label, const QList<int>& numbers) {
    text << "\t" << label << "=(";
    dumpNumbers(text, numbers);
}

/// Two lines: label and count, then the numbers.
template <class Number>
void dumpCountedList(QTextStream& text, const char* label, const QList<Number>& numbers) {
    text << "\t" << label << "=( number=" << numbers.size() << Qt::endl << "\t";
    dumpNumbers(text, numbers);
}

/// One line with the four numbers.
inline void dumpControlPoint(QTextStream& text, const ControlPoint& p) {
    text << "\t\t( " << p.x << " " << p.y << " " << p.z << " " << p.w << ")" << Qt::endl;
}

} // namespace CADImport
