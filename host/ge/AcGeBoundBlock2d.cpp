#include "geblok2d.h"

#include "CurveMeasure.h"
#include "Dimension.h"

using namespace gecore;

namespace
{
Box boxOf(const AcGeBoundBlock2d& block)
{
    AcGePoint2d min, max;
    block.getMinMaxPoints(min, max);
    Box box;
    box.add(lift(min));
    box.add(lift(max));
    return box;
}
} // namespace

AcGeBoundBlock2d::AcGeBoundBlock2d(const AcGePoint2d& base, const AcGeVector2d& dir1,
                                   const AcGeVector2d& dir2)
    : mBase(base), mEdge{dir1, dir2}
{
}

bool AcGeBoundBlock2d::isEqualTo(const AcGeEntity2d& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const AcGeBoundBlock2d&>(entity);
    bool equal = mBase.isEqualTo(other.mBase, tol);
    for (unsigned int i = 0; i < std::size(mEdge); ++i)
        equal = equal && mEdge[i].isEqualTo(other.mEdge[i], tol);
    return equal;
}

AcGeBoundBlock2d& AcGeBoundBlock2d::transformBy(const AcGeMatrix2d& xfm)
{
    mBase.transformBy(xfm);
    for (AcGeVector2d& edge : mEdge)
        edge.transformBy(xfm);
    return *this;
}

bool AcGeBoundBlock2d::isOn(const AcGePoint2d& pnt, const AcGeTol&) const
{
    return contains(pnt);
}

void AcGeBoundBlock2d::getMinMaxPoints(AcGePoint2d& point1, AcGePoint2d& point2) const
{
    point1 = point2 = mBase;
    for (const AcGeVector2d& edge : mEdge)
        for (unsigned int axis = 0; axis < std::size(mEdge); ++axis)
            (edge[axis] < 0 ? point1 : point2)[axis] += edge[axis];
}

void AcGeBoundBlock2d::get(AcGePoint2d& base, AcGeVector2d& dir1, AcGeVector2d& dir2) const
{
    base = mBase;
    dir1 = mEdge[0];
    dir2 = mEdge[1];
}

AcGeBoundBlock2d& AcGeBoundBlock2d::set(const AcGePoint2d& point1, const AcGePoint2d& point2)
{
    Box box;
    box.add(lift(point1));
    box.add(lift(point2));
    *this = AcGeBoundBlock2d();
    mBase = toPoint2d(box.min);
    for (unsigned int axis = 0; axis < std::size(mEdge); ++axis)
        mEdge[axis][axis] = box.max[axis] - box.min[axis];
    return *this;
}

AcGeBoundBlock2d& AcGeBoundBlock2d::set(const AcGePoint2d& base, const AcGeVector2d& dir1,
                                        const AcGeVector2d& dir2)
{
    return *this = AcGeBoundBlock2d(base, dir1, dir2);
}

AcGeBoundBlock2d& AcGeBoundBlock2d::extend(const AcGePoint2d& point)
{
    Box box = boxOf(*this);
    box.add(lift(point));
    return set(toPoint2d(box.min), toPoint2d(box.max));
}

AcGeBoundBlock2d& AcGeBoundBlock2d::swell(double distance)
{
    for (AcGeVector2d& edge : mEdge) {
        const double size = edge.length();
        if (!(size > 0)) continue;
        mBase -= edge * (distance / size);
        edge *= 1 + 2 * distance / size;
    }
    return *this;
}

bool AcGeBoundBlock2d::contains(const AcGePoint2d& point) const
{
    AcGePoint2d min, max;
    getMinMaxPoints(min, max);
    for (unsigned int axis = 0; axis < std::size(mEdge); ++axis)
        if (!(point[axis] >= min[axis] && point[axis] <= max[axis])) return false;
    return true;
}

bool AcGeBoundBlock2d::isDisjoint(const AcGeBoundBlock2d& block) const
{
    AcGePoint2d min, max, otherMin, otherMax;
    getMinMaxPoints(min, max);
    block.getMinMaxPoints(otherMin, otherMax);
    for (unsigned int axis = 0; axis < std::size(mEdge); ++axis)
        if (otherMin[axis] > max[axis] || otherMax[axis] < min[axis]) return true;
    return false;
}

bool AcGeBoundBlock2d::isBox() const
{
    for (unsigned int i = 0; i < std::size(mEdge); ++i)
        for (unsigned int axis = 0; axis < std::size(mEdge); ++axis)
            if (axis != i && mEdge[i][axis] != 0) return false;
    return true;
}

AcGeBoundBlock2d& AcGeBoundBlock2d::setToBox(bool toBox)
{
    AcGePoint2d min, max;
    getMinMaxPoints(min, max);
    return toBox ? set(min, max) : *this;
}
