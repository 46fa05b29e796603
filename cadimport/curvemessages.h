// SPDX-License-Identifier: Apache-2.0
/// @file
/// The curves of a model, named by edges and coedges.
#pragma once

#include "cadimport/fieldtypes.h"
#include "cadimport/message.h"

#include <QList>

namespace CADImport {

/// A line between two points. Always valid, also without a length.
class CreateLine : public MessageOf<CreateLine> {
public:
    static const QString wireName;
    int identifier = 0;
    Point3 startPoint;
    Point3 endPoint;

    bool isValid() const override;

private:
    friend class MessageOf<CreateLine>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// An arc of a circle. Valid with a radius above 0 and an end above the start.
class CreateArc : public MessageOf<CreateArc> {
public:
    static const QString wireName;
    int identifier = 0;
    Point3 center;
    Point3 normal;
    Point3 direction; ///< towards the angle 0
    double radius = 0.0;
    double startAngle = 0.0; ///< in radians
    double endAngle = 0.0;

    bool isValid() const override;

private:
    friend class MessageOf<CreateArc>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// An arc of an ellipse. Valid with half axes above 0 and an end above the start; which of the axes
/// is the longer one doesn't matter.
class CreateEllipse : public MessageOf<CreateEllipse> {
public:
    static const QString wireName;
    int identifier = 0;
    Point3 center;
    Point3 normal;
    Point3 direction; ///< towards the angle 0
    double littleHalfAxis = 0.0;
    double bigHalfAxis = 0.0; ///< along `direction`
    double startAngle = 0.0;  ///< in radians
    double endAngle = 0.0;

    bool isValid() const override;

private:
    friend class MessageOf<CreateEllipse>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// A NURBS curve. Valid with a degree above 0, also without knots or points.
class CreateNURBSCurve : public MessageOf<CreateNURBSCurve> {
public:
    static const QString wireName;
    int identifier = 0;
    int degree = 0;
    QList<double> knots; ///< in order, each as often as it counts
    QList<ControlPoint> controlPoints;
    bool rational = false;

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
