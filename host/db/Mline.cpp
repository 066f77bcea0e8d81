#include "dbmline.h"

#include "acgi.h"
#include "ClassRegistration.h"
#include "dbline.h"
#include "DxfFields.h"
#include "gelnsg3d.h"
#include "PlanarCoords.h"

#include <algorithm>

ACDB_DXF_CLASS(AcDbMline, AcDbEntity, MLINE)

/// Where the lines bend, and what they do up to the next vertex.
struct DbMlineVertex {
    /// Numbers of one line: first its distance from the vertex along the miter, then where it is drawn and
    /// where not, as lengths along the segment. `fill` are those of the area between lines.
    struct Element {
        std::vector<double> cuts, fill;
    };
    AcGePoint3d point;
    AcGeVector3d axis, miter;
    std::vector<Element> elements;
};

struct MlineFields {
    static AcDbMline& of(AcDbObject& object) { return static_cast<AcDbMline&>(object); }
    static const AcDbMline& of(const AcDbObject& object) { return static_cast<const AcDbMline&>(object); }

    static void skip(AcDbObject&, const DxfField&, DxfSource& source) { source.take(); }
    static void writeCount(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        sink.integer(field.code, of(object).numVertices());
    }

    template <class Triple>
    static Triple tripleOf(DxfSource& source, int code)
    {
        Triple value;
        dxf::takeCoordinate(source, code, value.x);
        dxf::takeCoordinate(source, code + 10, value.y);
        dxf::takeCoordinate(source, code + 20, value.z);
        return value;
    }

    static void readVertex(AcDbObject& object, const DxfField& field, DxfSource& source)
    {
        of(object).mVertices.emplace_back();
        of(object).mVertices.back().point = tripleOf<AcGePoint3d>(source, field.code);
    }

    /// The vertex that a group belongs to; null before the first.
    static DbMlineVertex* lastVertex(AcDbObject& object, DxfSource& source)
    {
        if (!of(object).mVertices.empty()) return &of(object).mVertices.back();
        source.report(*source.peek(), "a value before the first vertex");
        source.take();
        return nullptr;
    }

    template <AcGeVector3d DbMlineVertex::*Direction>
    static void readDirection(AcDbObject& object, const DxfField& field, DxfSource& source)
    {
        if (DbMlineVertex* vertex = lastVertex(object, source))
            vertex->*Direction = tripleOf<AcGeVector3d>(source, field.code);
    }

    /// A count (74) begins a line; the count itself follows from the numbers.
    static void readElement(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        if (DbMlineVertex* vertex = lastVertex(object, source)) {
            vertex->elements.emplace_back();
            source.take();
        }
    }

    template <std::vector<double> DbMlineVertex::Element::*Numbers>
    static void readNumber(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        DbMlineVertex* vertex = lastVertex(object, source);
        if (!vertex) return;
        if (vertex->elements.empty()) vertex->elements.emplace_back();
        (vertex->elements.back().*Numbers).push_back(source.peek()->real);
        source.take();
    }

    static void writeElement(const DbMlineVertex::Element& element, DxfSink& sink)
    {
        sink.integer(74, static_cast<std::int64_t>(element.cuts.size()));
        for (const double value : element.cuts)
            sink.real(41, value);
        sink.integer(75, static_cast<std::int64_t>(element.fill.size()));
        for (const double value : element.fill)
            sink.real(42, value);
    }
    static void writeVertices(const AcDbObject& object, const DxfField&, DxfSink& sink)
    {
        for (const DbMlineVertex& vertex : of(object).mVertices) {
            sink.point(11, vertex.point.x, vertex.point.y, vertex.point.z);
            sink.point(12, vertex.axis.x, vertex.axis.y, vertex.axis.z);
            sink.point(13, vertex.miter.x, vertex.miter.y, vertex.miter.z);
            for (const DbMlineVertex::Element& element : vertex.elements)
                writeElement(element, sink);
        }
    }
};

using Fields = MlineFields;

const DxfClass AcDbMline::dxf("AcDbMline", &AcDbEntity::dxf,
                              {
                                  dxf::text<&AcDbMline::mStyleName>(2),
                                  dxf::reference<&AcDbMline::mStyle>(340),
                                  dxf::real<&AcDbMline::mScale>(40),
                                  dxf::integer<&AcDbMline::mJustification>(70),
                                  dxf::integer<&AcDbMline::mFlags>(71),
                                  dxf::custom(72, Fields::skip, Fields::writeCount),
                                  dxf::integer<&AcDbMline::mElements>(73),
                                  dxf::point<&AcDbMline::mStart>(10),
                                  dxf::point<&AcDbMline::mNormal>(210),
                                  dxf::custom(11, Fields::readVertex, Fields::writeVertices),
                                  dxf::custom(12, Fields::readDirection<&DbMlineVertex::axis>, nullptr),
                                  dxf::custom(13, Fields::readDirection<&DbMlineVertex::miter>, nullptr),
                                  dxf::custom(74, Fields::readElement, nullptr),
                                  dxf::custom(41, Fields::readNumber<&DbMlineVertex::Element::cuts>, nullptr),
                                  dxf::custom(75, Fields::skip, nullptr),
                                  dxf::custom(42, Fields::readNumber<&DbMlineVertex::Element::fill>, nullptr),
                              });

AcDbMline::AcDbMline() = default;
AcDbMline::AcDbMline(const AcDbMline& other) = default;
AcDbMline& AcDbMline::operator=(const AcDbMline& other) = default;
AcDbMline::~AcDbMline() = default;

Acad::ErrorStatus AcDbMline::setFlag(int flag, bool on)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mFlags = static_cast<std::int16_t>(on ? mFlags | flag : mFlags & ~flag);
    return status;
}

Acad::ErrorStatus AcDbMline::setClosedMline(bool closed)
{
    return setFlag(2, closed);
}
Acad::ErrorStatus AcDbMline::setSupressStartCaps(bool suppress)
{
    return setFlag(4, suppress);
}
Acad::ErrorStatus AcDbMline::setSupressEndCaps(bool suppress)
{
    return setFlag(8, suppress);
}

const DbMlineVertex* AcDbMline::vertex(int index) const
{
    return index >= 0 && index < numVertices() ? &mVertices[static_cast<std::size_t>(index)] : nullptr;
}

int AcDbMline::numVertices() const
{
    return static_cast<int>(mVertices.size());
}

AcGePoint3d AcDbMline::vertexAt(int index) const
{
    return vertex(index) ? vertex(index)->point : AcGePoint3d();
}
AcGeVector3d AcDbMline::axisAt(int index) const
{
    return vertex(index) ? vertex(index)->axis : AcGeVector3d();
}
AcGeVector3d AcDbMline::miterAt(int index) const
{
    return vertex(index) ? vertex(index)->miter : AcGeVector3d();
}

Acad::ErrorStatus AcDbMline::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    plane.set(mStart, mNormal);
    planarity = AcDb::kPlanar;
    return Acad::eOk;
}

template <class Visit>
void AcDbMline::forEachPiece(Visit visit) const
{
    const std::size_t segments = mVertices.empty() ? 0 : mVertices.size() - (closedMline() ? 0 : 1);
    for (std::size_t i = 0; i < segments; ++i) {
        const DbMlineVertex &from = mVertices[i], &to = mVertices[(i + 1) % mVertices.size()];
        const std::size_t count = std::min(from.elements.size(), to.elements.size());
        for (std::size_t line = 0; line < count; ++line) {
            const std::vector<double>&cuts = from.elements[line].cuts, &next = to.elements[line].cuts;
            if (cuts.empty() || next.empty()) continue;
            const AcGePoint3d start = from.point + from.miter * cuts[0], end = to.point + to.miter * next[0];
            // Pairs of lengths: drawn from the first to the second; the last one runs to the end.
            for (std::size_t at = 1; at == 1 || at < cuts.size(); at += 2) {
                const double first = at < cuts.size() ? cuts[at] : 0.0;
                visit(start + from.axis * first,
                      at + 1 < cuts.size() ? start + from.axis * cuts[at + 1] : end);
            }
        }
    }
}

Acad::ErrorStatus AcDbMline::subTransformBy(const AcGeMatrix3d& xform)
{
    if (!xform.isUniScaledOrtho()) return Acad::eCannotScaleNonUniformly;
    const double scale = (xform * AcGeVector3d::kXAxis).length();
    mNormal = mappedNormal(xform, mNormal);
    mStart.transformBy(xform);
    mScale *= scale;
    for (DbMlineVertex& vertex : mVertices) {
        vertex.point.transformBy(xform);
        vertex.axis = xform * vertex.axis / scale;
        vertex.miter = xform * vertex.miter / scale;
        for (DbMlineVertex::Element& element : vertex.elements) {
            for (double& value : element.cuts)
                value *= scale;
            for (double& value : element.fill)
                value *= scale;
        }
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMline::subGetGeomExtents(AcDbExtents& extents) const
{
    forEachPiece([&](const AcGePoint3d& start, const AcGePoint3d& end) {
        extents.addPoint(start);
        extents.addPoint(end);
    });
    return extents.isEmpty() ? Acad::eInvalidExtents : Acad::eOk;
}

bool AcDbMline::subWorldDraw(AcGiWorldDraw* draw)
{
    forEachPiece([&](const AcGePoint3d& start, const AcGePoint3d& end) {
        const AcGePoint3d points[] = {start, end};
        draw->geometry().polyline(2, points);
    });
    return true;
}

Acad::ErrorStatus AcDbMline::subExplode(AcDbVoidPtrArray& entitySet) const
{
    forEachPiece([&](const AcGePoint3d& start, const AcGePoint3d& end) {
        entitySet.append(new AcDbLine(start, end));
    });
    return mVertices.size() < 2 ? Acad::eCannotExplodeEntity : Acad::eOk;
}

void AcDbMline::intersectionCurves(Curves& curves, bool) const
{
    forEachPiece([&](const AcGePoint3d& start, const AcGePoint3d& end) {
        curves.push_back(std::make_unique<AcGeLineSeg3d>(start, end));
    });
}
