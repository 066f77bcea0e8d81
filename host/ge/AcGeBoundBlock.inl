/// The members of AcGeBoundBlock2d and AcGeBoundBlock3d that are the same in the plane and in space.

#include "CurveMeasure.h"

namespace
{
Box boxOf(const BoundBlock& block)
{
    Point min, max;
    block.getMinMaxPoints(min, max);
    Box box;
    box.add(lift(min));
    box.add(lift(max));
    return box;
}
} // namespace

bool BoundBlock::isEqualTo(const Entity& entity, const AcGeTol& tol) const
{
    if (entity.type() != type()) return false;
    const auto& other = static_cast<const BoundBlock&>(entity);
    bool equal = mBase.isEqualTo(other.mBase, tol);
    for (unsigned int i = 0; i < std::size(mEdge); ++i)
        equal = equal && mEdge[i].isEqualTo(other.mEdge[i], tol);
    return equal;
}

BoundBlock& BoundBlock::transformBy(const Matrix& xfm)
{
    mBase.transformBy(xfm);
    for (Vector& edge : mEdge)
        edge.transformBy(xfm);
    return *this;
}

bool BoundBlock::isOn(const Point& pnt, const AcGeTol&) const
{
    return contains(pnt);
}

void BoundBlock::getMinMaxPoints(Point& point1, Point& point2) const
{
    point1 = point2 = mBase;
    for (const Vector& edge : mEdge)
        for (unsigned int axis = 0; axis < std::size(mEdge); ++axis)
            (edge[axis] < 0 ? point1 : point2)[axis] += edge[axis];
}

BoundBlock& BoundBlock::set(const Point& point1, const Point& point2)
{
    Box box;
    box.add(lift(point1));
    box.add(lift(point2));
    *this = BoundBlock();
    mBase = toPoint(box.min);
    for (unsigned int axis = 0; axis < std::size(mEdge); ++axis)
        mEdge[axis][axis] = box.max[axis] - box.min[axis];
    return *this;
}

BoundBlock& BoundBlock::extend(const Point& point)
{
    Box box = boxOf(*this);
    box.add(lift(point));
    return set(toPoint(box.min), toPoint(box.max));
}

BoundBlock& BoundBlock::swell(double distance)
{
    for (Vector& edge : mEdge) {
        const double size = edge.length();
        if (!(size > 0)) continue;
        mBase -= edge * (distance / size);
        edge *= 1 + 2 * distance / size;
    }
    return *this;
}

bool BoundBlock::contains(const Point& point) const
{
    Point min, max;
    getMinMaxPoints(min, max);
    for (unsigned int axis = 0; axis < std::size(mEdge); ++axis)
        if (!(point[axis] >= min[axis] && point[axis] <= max[axis])) return false;
    return true;
}

bool BoundBlock::isDisjoint(const BoundBlock& block) const
{
    Point min, max, otherMin, otherMax;
    getMinMaxPoints(min, max);
    block.getMinMaxPoints(otherMin, otherMax);
    for (unsigned int axis = 0; axis < std::size(mEdge); ++axis)
        if (otherMin[axis] > max[axis] || otherMax[axis] < min[axis]) return true;
    return false;
}

bool BoundBlock::isBox() const
{
    for (unsigned int i = 0; i < std::size(mEdge); ++i)
        for (unsigned int axis = 0; axis < std::size(mEdge); ++axis)
            if (axis != i && mEdge[i][axis] != 0) return false;
    return true;
}

BoundBlock& BoundBlock::setToBox(bool toBox)
{
    Point min, max;
    getMinMaxPoints(min, max);
    return toBox ? set(min, max) : *this;
}
