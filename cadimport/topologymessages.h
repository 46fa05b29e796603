// SPDX-License-Identifier: Apache-2.0
/// @file
/// The frame of a model on the wire, and its topology: one message per entity.
///
/// Entities name each other by `identifier`, which counts within one model, from its NewModel to
/// its EndModel; 0 names none. A message only carries the fields.
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
    bool absolute = true; ///< whether `accuracy` is a length; else it is relative
    double accuracy = 0.0;
    double unit = 1.0; ///< the length of one unit of the model, in millimetres

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
    int identifier = 0;
    Box boundingBox;
    QList<int> shells;

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
    int identifier = 0;
    Box boundingBox;
    QList<int> faces;
    bool closed = false;

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
    int identifier = 0;
    Box boundingBox;
    UVBox uvBox;
    QList<int> loops;
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

/// A loop. Valid with an identifier, a face and a coedge; `edges`, which is as long as `coedges`,
/// isn't looked at.
class CreateLoop : public MessageOf<CreateLoop> {
public:
    static const QString wireName;
    int identifier = 0;
    Box boundingBox;
    UVBox uvBox;
    QList<int> coedges;
    QList<int> edges; ///< the edge of each coedge, at the same position
    int faceId = 0;   ///< the face that owns the loop
    bool outer = true;

    bool isValid() const override;

private:
    friend class MessageOf<CreateLoop>;
    template <class Wire, class Self> static void fields(Wire& wire, Self& self);
    void dumpFields(QTextStream& text) const;
};

/// A coedge. Valid with an identifier, a curve, a loop and a face; edge and partner may be missing.
class CreateCoedge : public MessageOf<CreateCoedge> {
public:
    static const QString wireName;
    int identifier = 0;
    UVBox boundingUVBox;
    Range2 parameterRange{1.0, -1.0};
    int edge = 0;
    int partner = 0; ///< the coedge of the other face
    int loop = 0;
    int face = 0;
    int curve = 0;
    bool sense = false; ///< true: reverse

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
    int identifier = 0;
    Box boundingBox;
    Range2 parameterRange{1.0, -1.0};
    std::array<int, 2> vertices{};
    std::array<int, 2> coedges{};
    std::array<int, 2> faces{};
    int curve = 0;
    bool sense = false; ///< true: reverse

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
    int identifier = 0;
    Point3 point;

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
    int identifier = 0;
    QList<int> components;

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
    int identifier = 0;
    Point3 origin;
    Point3 xDirection;
    Point3 yDirection;
    Point3 zDirection;

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
