#include "geblok3d.h"

#include "CurveMeasure.h"
#include "Dimension.h"

using namespace gecore;

namespace
{
Box boxOf(const AcGeBoundBlock3d& block)
{
    AcGePoint3d min, max;
    block.getMinMaxPoints(min, max);
    Box box;
    box.add(lift(min));
    box.add(lift(max));
    return box;
}
} // namespace

AcGeBoundBlock3d::AcGeBoundBlock3d(const AcGePoint3d& base, const AcGeVector3d& dir1,
                                   const AcGeVector3d& dir2, const AcGeVector3d& dir3)
    : mBase(base), mEdge{dir1, dir2, dir3}
{
}

bool AcGeBoundBlock3d::isEqualTo(const AcGeEntity3d& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const AcGeBoundBlock3d&>(entity);
    bool equal = mBase.isEqualTo(other.mBase, tol);
    for (unsigned int i = 0; i < std::size(mEdge); ++i)
        equal = equal && mEdge[i].isEqualTo(other.mEdge[i], tol);
    return equal;
}

AcGeBoundBlock3d& AcGeBoundBlock3d::transformBy(const AcGeMatrix3d& xfm)
{
    mBase.transformBy(xfm);
    for (AcGeVector3d& edge : mEdge)
        edge.transformBy(xfm);
    return *this;
}

bool AcGeBoundBlock3d::isOn(const AcGePoint3d& pnt, const AcGeTol&) const
{
    return contains(pnt);
}

void AcGeBoundBlock3d::getMinMaxPoints(AcGePoint3d& point1, AcGePoint3d& point2) const
{
    point1 = point2 = mBase;
    for (const AcGeVector3d& edge : mEdge)
        for (unsigned int axis = 0; axis < std::size(mEdge); ++axis)
            (edge[axis] < 0 ? point1 : point2)[axis] += edge[axis];
}

void AcGeBoundBlock3d::get(AcGePoint3d& base, AcGeVector3d& dir1, AcGeVector3d& dir2,
                           AcGeVector3d& dir3) const
{
    base = mBase;
    dir1 = mEdge[0];
    dir2 = mEdge[1];
    dir3 = mEdge[2];
}

AcGeBoundBlock3d& AcGeBoundBlock3d::set(const AcGePoint3d& point1, const AcGePoint3d& point2)
{
    Box box;
    box.add(lift(point1));
    box.add(lift(point2));
    *this = AcGeBoundBlock3d();
    mBase = toPoint3d(box.min);
    for (unsigned int axis = 0; axis < std::size(mEdge); ++axis)
        mEdge[axis][axis] = box.max[axis] - box.min[axis];
    return *this;
}

AcGeBoundBlock3d& AcGeBoundBlock3d::set(const AcGePoint3d& base, const AcGeVector3d& dir1,
                                        const AcGeVector3d& dir2, const AcGeVector3d& dir3)
{
    return *this = AcGeBoundBlock3d(base, dir1, dir2, dir3);
}

AcGeBoundBlock3d& AcGeBoundBlock3d::extend(const AcGePoint3d& point)
{
    Box box = boxOf(*this);
    box.add(lift(point));
    return set(toPoint3d(box.min), toPoint3d(box.max));
}

AcGeBoundBlock3d& AcGeBoundBlock3d::swell(double distance)
{
    for (AcGeVector3d& edge : mEdge) {
        const double size = edge.length();
        if (!(size > 0)) continue;
        mBase -= edge * (distance / size);
        edge *= 1 + 2 * distance / size;
    }
    return *this;
}

bool AcGeBoundBlock3d::contains(const AcGePoint3d& point) const
{
    AcGePoint3d min, max;
    getMinMaxPoints(min, max);
    for (unsigned int axis = 0; axis < std::size(mEdge); ++axis)
        if (!(point[axis] >= min[axis] && point[axis] <= max[axis])) return false;
    return true;
}

bool AcGeBoundBlock3d::isDisjoint(const AcGeBoundBlock3d& block) const
{
    AcGePoint3d min, max, otherMin, otherMax;
    getMinMaxPoints(min, max);
    block.getMinMaxPoints(otherMin, otherMax);
    for (unsigned int axis = 0; axis < std::size(mEdge); ++axis)
        if (otherMin[axis] > max[axis] || otherMax[axis] < min[axis]) return true;
    return false;
}

bool AcGeBoundBlock3d::isBox() const
{
    for (unsigned int i = 0; i < std::size(mEdge); ++i)
        for (unsigned int axis = 0; axis < std::size(mEdge); ++axis)
            if (axis != i && mEdge[i][axis] != 0) return false;
    return true;
}

AcGeBoundBlock3d& AcGeBoundBlock3d::setToBox(bool toBox)
{
    AcGePoint3d min, max;
    getMinMaxPoints(min, max);
    return toBox ? set(min, max) : *this;
}
