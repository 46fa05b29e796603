// SPDX-License-Identifier: Apache-2.0
/// @file
/// The curves of a model, which edges and coedges name. Lengths are in model units, angles in
/// radians; docs/exchange.md has the parametric forms. Ownership and threads are those of Message.
#pragma once

#include "cadimport/fieldtypes.h"
#include "cadimport/message.h"

#include <QList>

namespace CADImport {

/// A line between two points. Always valid, even with a length of 0.
class CreateLine : public MessageOf<CreateLine> {
public:
    static const QString wireName;
    int identifier = 0; ///< of this curve
    Point3 startPoint;  ///< in model units
    Point3 endPoint;    ///< in model units

    bool isValid() const override;

private:
    friend class MessageOf<CreateLine>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// An arc of a circle. Valid with a radius above 0 and an end angle above the start angle.
class CreateArc : public MessageOf<CreateArc> {
public:
    static const QString wireName;
    int identifier = 0;      ///< of this curve
    Point3 center;           ///< in model units
    Point3 normal;           ///< of length 1; of the plane of the curve
    Point3 direction;        ///< towards the angle 0
    double radius = 0.0;     ///< in model units
    double startAngle = 0.0; ///< in radians
    double endAngle = 0.0;   ///< in radians

    bool isValid() const override;

private:
    friend class MessageOf<CreateArc>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// An arc of an ellipse. Valid with half axes above 0 and an end angle above the start angle;
/// either axis may be the longer one.
class CreateEllipse : public MessageOf<CreateEllipse> {
public:
    static const QString wireName;
    int identifier = 0;          ///< of this curve
    Point3 center;               ///< in model units
    Point3 normal;               ///< of length 1; of the plane of the curve
    Point3 direction;            ///< towards the angle 0
    double littleHalfAxis = 0.0; ///< in model units
    double bigHalfAxis = 0.0;    ///< along `direction`
    double startAngle = 0.0;     ///< in radians
    double endAngle = 0.0;       ///< in radians

    bool isValid() const override;

private:
    friend class MessageOf<CreateEllipse>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// A NURBS curve. Valid with a degree above 0, even without knots or points.
class CreateNURBSCurve : public MessageOf<CreateNURBSCurve> {
public:
    static const QString wireName;
    int identifier = 0;                ///< of this curve
    int degree = 0;                    ///< of the curve
    QList<double> knots;               ///< knot vector; a knot is repeated by its multiplicity
    QList<ControlPoint> controlPoints; ///< in model units
    bool rational = false;             ///< false: all weights are 1

    bool isValid() const override;

private:
    friend class MessageOf<CreateNURBSCurve>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

extern template class MessageOf<CreateLine>;
extern template class MessageOf<CreateArc>;
extern template class MessageOf<CreateEllipse>;
extern template class MessageOf<CreateNURBSCurve>;

} // namespace CADImport
