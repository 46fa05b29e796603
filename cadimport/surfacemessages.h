// SPDX-License-Identifier: Apache-2.0
/// @file
/// The surfaces of a model: five analytic ones on one frame, and the NURBS surface.
///
/// No rule of validity looks at identifiers, ranges, directions, knots or grids.
#pragma once

#include "cadimport/fieldtypes.h"
#include "cadimport/message.h"

#include <QList>

namespace CADImport {

/// What the analytic surfaces have in common; the fields of T travel behind these.
template <class T> class AnalyticSurface : public MessageOf<T> {
public:
    int identifier = 0;
    Point3 origin;
    Point3 normal;
    Point3 uDirection;
    Range2 uRange{0.0, 0.0};
    Range2 vRange{0.0, 0.0};

protected:
    void dumpFrame(QTextStream& text) const;
};

/// A plane. Always valid.
class CreatePlane : public AnalyticSurface<CreatePlane> {
public:
    static const QString wireName;

    bool isValid() const override;

private:
    friend class MessageOf<CreatePlane>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// A cylinder about `normal`. Valid with a radius above 0.
class CreateCylinder : public AnalyticSurface<CreateCylinder> {
public:
    static const QString wireName;
    double radius = 0.0;

    bool isValid() const override;

private:
    friend class MessageOf<CreateCylinder>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// A cone about `normal`. Valid with an angle above 0.
class CreateCone : public AnalyticSurface<CreateCone> {
public:
    static const QString wireName;
    double angle = 0.0; ///< half the opening angle

    bool isValid() const override;

private:
    friend class MessageOf<CreateCone>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// A sphere. Valid with a radius above 0.
class CreateSphere : public AnalyticSurface<CreateSphere> {
public:
    static const QString wireName;
    double radius = 0.0;

    bool isValid() const override;

private:
    friend class MessageOf<CreateSphere>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// A torus about `normal`. Valid when both radii are above 0.
class CreateTorus : public AnalyticSurface<CreateTorus> {
public:
    static const QString wireName;
    double minorRadius = 0.0;
    double majorRadius = 0.0;

    bool isValid() const override;

private:
    friend class MessageOf<CreateTorus>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// A NURBS surface. Valid when both degrees are at least 1.
class CreateNURBSSurface : public MessageOf<CreateNURBSSurface> {
public:
    static const QString wireName;
    int identifier = 0;
    int degreeU = 0;
    int degreeV = 0;
    QList<double> knotsU; ///< in order, each as often as it counts
    QList<double> knotsV;
    QList<QList<ControlPoint>> controlPoints; ///< rows; from a sound sender all of one length
    bool rational = false;

    bool isValid() const override;
    /// For senders: cuts or pads every row at its tail to `columns`, then the grid to `rows`. What
    /// is new is 0 in all four components.
    void resizeGrid(int rows, int columns);

private:
    friend class MessageOf<CreateNURBSSurface>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

extern template class MessageOf<CreatePlane>;
extern template class MessageOf<CreateCylinder>;
extern template class MessageOf<CreateCone>;
extern template class MessageOf<CreateSphere>;
extern template class MessageOf<CreateTorus>;
extern template class MessageOf<CreateNURBSSurface>;

} // namespace CADImport
