// SPDX-License-Identifier: Apache-2.0
/// @file
/// The surfaces of a model: five analytic ones on a common frame, and the NURBS surface. Lengths
/// are in model units, angles in radians; docs/exchange.md has the parametric forms. Ownership and
/// threads are those of Message.
///
/// Validity never depends on identifiers, ranges, directions, knots or grids.
#pragma once

#include "cadimport/fieldtypes.h"
#include "cadimport/message.h"

#include <QList>

namespace CADImport {

/// What the analytic surfaces have in common. On the wire, the fields of T follow these.
template <class T> class AnalyticSurface : public MessageOf<T> {
public:
    int identifier = 0;      ///< of this surface
    Point3 origin;           ///< in model units
    Point3 normal;           ///< of length 1; the axis of a curved shape
    Point3 uDirection;       ///< of length 1, at u = 0
    Range2 uRange{0.0, 0.0}; ///< of the face, by the parameter of the surface
    Range2 vRange{0.0, 0.0}; ///< of the face, by the parameter of the surface

protected:
    /// Writes the lines of these fields.
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
    double radius = 0.0; ///< in model units

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
    double angle = 0.0; ///< half the opening angle, in radians

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
    double radius = 0.0; ///< in model units

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
    double minorRadius = 0.0; ///< of the tube, in model units
    double majorRadius = 0.0; ///< of the ring, in model units

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
    int identifier = 0;   ///< of this surface
    int degreeU = 0;      ///< in u
    int degreeV = 0;      ///< in v
    QList<double> knotsU; ///< knot vector; a knot is repeated by its multiplicity
    QList<double> knotsV; ///< likewise
    QList<QList<ControlPoint>> controlPoints; ///< rows, which run with u, all of one length
    bool rational = false;                    ///< false: all weights are 1

    bool isValid() const override;
    /// For senders: cuts or pads each row at its end to `columns`, then the grid to `rows`. New
    /// points are 0 in all four components.
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
