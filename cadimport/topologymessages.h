// SPDX-License-Identifier: Apache-2.0
/// @file
/// The messages that open and close a model, and its topology, one message per entity. Lengths are
/// in model units. Ownership and threads are those of Message.
///
/// Entities refer to each other by `identifier`, which is unique within its model, from NewModel to
/// EndModel; 0 refers to nothing. Where the type of a field is a list or an array of int, it holds
/// identifiers.
#pragma once

#include "cadimport/fieldtypes.h"
#include "cadimport/message.h"

#include <QList>

#include <array>

namespace CADImport {

/// Opens a model. Valid when `accuracy` and `unit` are above 0.
class NewModel : public MessageOf<NewModel> {
public:
    static const QString wireName;
    bool absolute = true;  ///< true: `accuracy` is a length; false: it is relative
    double accuracy = 0.0; ///< tolerance of the geometry
    double unit = 1.0;     ///< length of one model unit in millimetres

    bool isValid() const override;

private:
    friend class MessageOf<NewModel>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// Closes a model. Always valid.
class EndModel : public MessageOf<EndModel> {
public:
    static const QString wireName;

    bool isValid() const override;

private:
    friend class MessageOf<EndModel>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// A body. Valid with an identifier and a shell.
class CreateBody : public MessageOf<CreateBody> {
public:
    static const QString wireName;
    int identifier = 0; ///< of this entity
    Box boundingBox;    ///< in model units
    QList<int> shells;  ///< their identifiers

    bool isValid() const override;

private:
    friend class MessageOf<CreateBody>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// A shell. Valid with an identifier and a face.
class CreateShell : public MessageOf<CreateShell> {
public:
    static const QString wireName;
    int identifier = 0;  ///< of this entity
    Box boundingBox;     ///< in model units
    QList<int> faces;    ///< their identifiers
    bool closed = false; ///< true: without free edges

    bool isValid() const override;

private:
    friend class MessageOf<CreateShell>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// A face. Valid with an identifier, a surface and a loop.
class CreateFace : public MessageOf<CreateFace> {
public:
    static const QString wireName;
    int identifier = 0; ///< of this entity
    Box boundingBox;    ///< in model units
    UVBox uvBox;        ///< in the parameters of the surface
    QList<int> loops;   ///< their identifiers
    int surfaceId = 0;  ///< the surface that carries the face
    bool sense = false; ///< true: reverse
    bool sides = false; ///< true: double-sided

    bool isValid() const override;

private:
    friend class MessageOf<CreateFace>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
    void dumpOpening(QTextStream& text) const;
};

/// A loop. Valid with an identifier, a face and a coedge. `edges` must be as long as `coedges`, but
/// that isn't checked.
class CreateLoop : public MessageOf<CreateLoop> {
public:
    static const QString wireName;
    int identifier = 0; ///< of this entity
    Box boundingBox;    ///< in model units
    UVBox uvBox;        ///< in the parameters of the surface
    QList<int> coedges; ///< their identifiers, in order along the loop
    QList<int> edges;   ///< the edge of each coedge, at the same position
    int faceId = 0;     ///< the face that owns the loop
    bool outer = true;  ///< true: bounds the face from outside

    bool isValid() const override;

private:
    friend class MessageOf<CreateLoop>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// A coedge, the use of an edge in a loop. Valid with an identifier, a curve, a loop and a face;
/// edge and partner may be missing.
class CreateCoedge : public MessageOf<CreateCoedge> {
public:
    static const QString wireName;
    int identifier = 0;               ///< of this entity
    UVBox boundingUVBox;              ///< in the parameters of the surface
    Range2 parameterRange{1.0, -1.0}; ///< in the parameter of the curve
    int edge = 0;                     ///< the edge that it is a use of
    int partner = 0;                  ///< the coedge of the other face
    int loop = 0;                     ///< the loop that it belongs to
    int face = 0;                     ///< the face of that loop
    int curve = 0;                    ///< identifier of the curve
    bool sense = false;               ///< true: reverse

    bool isValid() const override;

private:
    friend class MessageOf<CreateCoedge>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// An edge. Valid with an identifier and a curve.
class CreateEdge : public MessageOf<CreateEdge> {
public:
    static const QString wireName;
    int identifier = 0;               ///< of this entity
    Box boundingBox;                  ///< in model units
    Range2 parameterRange{1.0, -1.0}; ///< in the parameter of the curve
    std::array<int, 2> vertices{};    ///< their identifiers
    std::array<int, 2> coedges{};     ///< by side, 0 and 1
    std::array<int, 2> faces{};       ///< by side, 0 and 1
    int curve = 0;                    ///< identifier of the curve
    bool sense = false;               ///< true: reverse

    bool isValid() const override;

private:
    friend class MessageOf<CreateEdge>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// A vertex. Valid with an identifier.
class CreateVertex : public MessageOf<CreateVertex> {
public:
    static const QString wireName;
    int identifier = 0; ///< of this entity
    Point3 point;       ///< in model units

    bool isValid() const override;

private:
    friend class MessageOf<CreateVertex>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// A group of entities. Valid with an identifier and a member.
class CreateGroup : public MessageOf<CreateGroup> {
public:
    static const QString wireName;
    int identifier = 0;    ///< of this entity
    QList<int> components; ///< identifiers of the members

    bool isValid() const override;

private:
    friend class MessageOf<CreateGroup>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
    void dumpOpening(QTextStream& text) const;
};

/// A coordinate system. Valid with an identifier.
class CreateCoordinateSystem : public MessageOf<CreateCoordinateSystem> {
public:
    static const QString wireName;
    int identifier = 0; ///< of this entity
    Point3 origin;      ///< in model units
    Point3 xDirection;  ///< of length 1
    Point3 yDirection;  ///< of length 1
    Point3 zDirection;  ///< of length 1

    bool isValid() const override;

private:
    friend class MessageOf<CreateCoordinateSystem>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

extern template class MessageOf<NewModel>;
extern template class MessageOf<EndModel>;
extern template class MessageOf<CreateBody>;
extern template class MessageOf<CreateShell>;
extern template class MessageOf<CreateFace>;
extern template class MessageOf<CreateLoop>;
extern template class MessageOf<CreateCoedge>;
extern template class MessageOf<CreateEdge>;
extern template class MessageOf<CreateVertex>;
extern template class MessageOf<CreateGroup>;
extern template class MessageOf<CreateCoordinateSystem>;

} // namespace CADImport
