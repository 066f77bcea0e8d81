#include "acgi.h"

#include "dbentity.h"
#include "gearc3d.h"

#include <vector>

Acad::ErrorStatus AcGiTextStyle::setFont(const ACHAR* face, bool bold, bool italic, int, int, int)
{
    if (!face) return Acad::eInvalidInput;
    typeface = face;
    isBold = bold;
    isItalic = italic;
    return Acad::eOk;
}

bool AcGiGeometry::circle(const AcGePoint3d& first, const AcGePoint3d& second, const AcGePoint3d& third)
{
    if (first.isEqualTo(second) || (second - first).isParallelTo(third - first)) return false;
    const AcGeCircArc3d arc(first, second, third);
    return circle(arc.center(), arc.radius(), arc.normal());
}

bool AcGiGeometry::circularArc(const AcGePoint3d& start, const AcGePoint3d& through, const AcGePoint3d& end,
                               AcGiArcType type)
{
    if (start.isEqualTo(through) || (through - start).isParallelTo(end - start)) return false;
    const AcGeCircArc3d arc(start, through, end);
    return circularArc(arc.center(), arc.radius(), arc.normal(), start - arc.center(), arc.endAng() - arc.startAng(),
                       type);
}

bool AcGiGeometry::polyline(unsigned count, const AcGePoint3d* points, const AcGeVector3d*, Adesk::GsMarker)
{
    return polyline(count, points);
}

bool AcGiGeometry::polypoint(unsigned count, const AcGePoint3d* points)
{
    bool isTaken = true;
    for (unsigned i = 0; i < count; ++i)
        isTaken &= pointMark(points[i]);
    return isTaken;
}

bool AcGiGeometry::rowOfDots(int count, const AcGePoint3d& start, const AcGeVector3d& step)
{
    bool isTaken = true;
    for (int i = 0; i < count; ++i)
        isTaken &= pointMark(start + step * i);
    return isTaken;
}

bool AcGiGeometry::mesh(unsigned rows, unsigned columns, const AcGePoint3d* vertices)
{
    bool isTaken = true;
    for (unsigned row = 0; row + 1 < rows; ++row) {
        for (unsigned column = 0; column + 1 < columns; ++column) {
            const AcGePoint3d* corner = vertices + row * columns + column;
            const AcGePoint3d cell[] = {corner[0], corner[1], corner[columns + 1], corner[columns]};
            isTaken &= polygon(4, cell);
        }
    }
    return isTaken;
}

bool AcGiGeometry::shell(unsigned vertexCount, const AcGePoint3d* vertices, unsigned faceListSize,
                         const Adesk::Int32* faces)
{
    const Adesk::Int32* const end = faces + faceListSize;
    while (faces < end) {
        const Adesk::Int32 count = std::abs(*faces++);
        if (count > end - faces) return false;
        std::vector<AcGePoint3d> face;
        for (const Adesk::Int32* last = faces + count; faces < last; ++faces) {
            if (*faces < 0 || static_cast<unsigned>(*faces) >= vertexCount) return false;
            face.push_back(vertices[*faces]);
        }
        polygon(static_cast<unsigned>(face.size()), face.data());
    }
    return true;
}

bool AcGiGeometry::text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction,
                        double height, double width, double oblique, const ACHAR* text)
{
    if (!text) return false;
    AcGiTextStyle style;
    style.fileName = L"simplex.shx";
    style.textSize = height;
    style.xScale = width;
    style.obliquingAngle = oblique;
    return this->text(position, normal, direction, text, -1, false, style);
}

bool AcGiGeometry::draw(const AcDbEntity* entity) { return mDraw && entity && entity->worldDraw(mDraw); }
