#include "dbregion.h"

#include "ClassRegistration.h"
#include "dbcurve.h"
#include "DrawCurve.h"
#include "DxfFields.h"
#include "RegionAccess.h"

ACDB_DXF_CLASS(AcDbRegion, AcDbEntity, REGION)

namespace
{
Acad::ErrorStatus statusOf(kernel::RegionStatus status)
{
    switch (status) {
    case kernel::RegionStatus::kOk:
        return Acad::eOk;
    case kernel::RegionStatus::kNoCurves:
    case kernel::RegionStatus::kBadCurve:
    case kernel::RegionStatus::kOpen:
    case kernel::RegionStatus::kBranching:
        return Acad::eInvalidInput;
    case kernel::RegionStatus::kNotPlanar:
        return Acad::eNonPlanarEntity;
    case kernel::RegionStatus::kNotCoplanar:
        return Acad::eNonCoplanarGeometry;
    case kernel::RegionStatus::kSingular:
        return Acad::eDegenerateGeometry;
    case kernel::RegionStatus::kSelfCrossing:
        break;
    }
    return Acad::eGeneralModelingFailure;
}

/// The curves of a list as free ones; false when something in it is none.
bool freeCurves(const AcDbVoidPtrArray& segments, AcDbEntity::Curves& curves)
{
    for (void* const segment : segments) {
        const AcDbCurve* curve = AcDbCurve::cast(static_cast<AcRxObject*>(segment));
        const std::size_t before = curves.size();
        if (curve) curve->intersectionCurves(curves, false);
        if (curves.size() == before) return false;
    }
    return true;
}

template <class Visit>
void visitCurves(const kernel::Region& shape, Visit visit)
{
    for (const kernel::FaceCurves& face : shape.faces())
        for (const kernel::LoopCurves& loop : face)
            for (const auto& curve : loop)
                visit(*curve);
}

bool kindOf(AcDb::BoolOperType operation, kernel::BooleanKind& kind)
{
    switch (operation) {
    case AcDb::kBoolUnite:
        kind = kernel::BooleanKind::kUnion;
        return true;
    case AcDb::kBoolIntersect:
        kind = kernel::BooleanKind::kIntersect;
        return true;
    case AcDb::kBoolSubtract:
        kind = kernel::BooleanKind::kSubtract;
        return true;
    }
    return false;
}

using Parts = std::vector<std::unique_ptr<AcDbEntity>>;

/// The faces as regions of their own.
Acad::ErrorStatus explodeFaces(const kernel::Region& shape, Parts& parts)
{
    for (const kernel::FaceCurves& face : shape.faces()) {
        kernel::RegionStatus status = kernel::RegionStatus::kOk;
        parts.push_back(RegionAccess::make(kernel::Region::fromFaces({face}, shape.normal(), status)));
        if (status != kernel::RegionStatus::kOk) return statusOf(status);
    }
    return Acad::eOk;
}

Acad::ErrorStatus explodeCurves(const kernel::Region& shape, Parts& parts)
{
    Acad::ErrorStatus status = Acad::eOk;
    const AcGeVector3d normal = shape.normal();
    visitCurves(shape, [&](const AcGeCurve3d& curve) {
        AcDbCurve* made = nullptr;
        if (status == Acad::eOk) status = AcDbCurve::createFromAcGeCurve(curve, made, &normal);
        if (made) parts.emplace_back(made);
    });
    return status;
}
} // namespace

Acad::ErrorStatus AcDbRegion::createFromCurves(const AcDbVoidPtrArray& curveSegments,
                                               AcDbVoidPtrArray& regions)
{
    Curves curves;
    if (curveSegments.isEmpty() || !freeCurves(curveSegments, curves)) return Acad::eInvalidInput;
    std::vector<const AcGeCurve3d*> input;
    for (const auto& curve : curves)
        input.push_back(curve.get());
    kernel::RegionStatus status = kernel::RegionStatus::kOk;
    for (kernel::Region& shape : kernel::Region::fromCurves(input, status)) {
        regions.append(RegionAccess::make(std::move(shape)).release());
    }
    return statusOf(status);
}

Acad::ErrorStatus AcDbRegion::getArea(double& area) const
{
    kernel::Region shape;
    const Acad::ErrorStatus status = RegionAccess::shape(*this, shape);
    if (status == Acad::eOk) area = shape.area();
    return status;
}

Acad::ErrorStatus AcDbRegion::getPerimeter(double& perimeter) const
{
    kernel::Region shape;
    const Acad::ErrorStatus status = RegionAccess::shape(*this, shape);
    if (status == Acad::eOk) perimeter = shape.perimeter();
    return status;
}

Acad::ErrorStatus AcDbRegion::getAreaProp(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                          const AcGeVector3d& yAxis, double& perimeter, double& area,
                                          AcGePoint2d& centroid, double momInertia[2], double& prodInertia,
                                          double prinMoments[2], AcGeVector2d prinAxes[2],
                                          double radiiGyration[2], AcGePoint2d& extentsLow,
                                          AcGePoint2d& extentsHigh) const
{
    kernel::Region shape;
    const Acad::ErrorStatus status = RegionAccess::shape(*this, shape);
    if (status != Acad::eOk) return status;
    kernel::RegionMeasures measured;
    if (!shape.measure(origin, xAxis, yAxis, measured)) return Acad::eInvalidInput;
    perimeter = measured.perimeter;
    area = measured.area;
    centroid = measured.centroid;
    momInertia[0] = measured.momentX;
    momInertia[1] = measured.momentY;
    prodInertia = measured.product;
    extentsLow = measured.low;
    extentsHigh = measured.high;
    for (int i = 0; i < 2; ++i) {
        prinMoments[i] = measured.principal[i];
        prinAxes[i] = measured.principalAxes[i];
        radiiGyration[i] = measured.gyration[i];
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbRegion::booleanOper(AcDb::BoolOperType operation, AcDbRegion* otherRegion)
{
    kernel::BooleanKind kind;
    if (!otherRegion) return Acad::eNullObjectPointer;
    if (otherRegion == this || !kindOf(operation, kind)) return Acad::eInvalidInput;
    kernel::Region shape, other, result;
    Acad::ErrorStatus status = RegionAccess::shape(*this, shape);
    if (status == Acad::eOk) status = RegionAccess::shape(*otherRegion, other);
    if (status == Acad::eOk) status = statusOf(shape.combine(kind, other, result));
    if (status == Acad::eOk && !otherRegion->isWriteEnabled()) status = Acad::eNotOpenForWrite;
    if (status == Acad::eOk) status = beginChange();
    if (status == Acad::eOk) status = otherRegion->beginChange();
    if (status != Acad::eOk) return status;
    RegionAccess::setShape(*this, std::move(result));
    RegionAccess::setShape(*otherRegion, kernel::Region());
    return Acad::eOk;
}

bool AcDbRegion::isNull() const
{
    kernel::Region shape;
    return RegionAccess::shape(*this, shape) == Acad::eOk && shape.isEmpty();
}

Acad::ErrorStatus AcDbRegion::getNormal(AcGeVector3d& normal) const
{
    kernel::Region shape;
    const Acad::ErrorStatus status = RegionAccess::shape(*this, shape);
    if (status == Acad::eOk) normal = shape.normal();
    return status;
}

Acad::ErrorStatus AcDbRegion::getPlane(AcGePlane& plane) const
{
    kernel::Region shape;
    const Acad::ErrorStatus status = RegionAccess::shape(*this, shape);
    if (status != Acad::eOk) return status;
    AcGePoint3d origin;
    AcGeVector3d xAxis, yAxis, normal;
    shape.planeToWorld().getCoordSystem(origin, xAxis, yAxis, normal);
    plane.set(origin, xAxis, yAxis);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbRegion::getPlane(AcGePlane& plane, AcDb::Planarity& planarity) const
{
    const Acad::ErrorStatus status = getPlane(plane);
    if (status == Acad::eOk) planarity = AcDb::kPlanar;
    return status;
}

Acad::ErrorStatus AcDbRegion::subTransformBy(const AcGeMatrix3d& xform)
{
    kernel::Region shape;
    Acad::ErrorStatus status = RegionAccess::shape(*this, shape);
    if (status == Acad::eOk) status = statusOf(shape.transformBy(xform));
    if (status == Acad::eOk) RegionAccess::setShape(*this, std::move(shape));
    return status;
}

Acad::ErrorStatus AcDbRegion::subExplode(AcDbVoidPtrArray& entitySet) const
{
    kernel::Region shape;
    Acad::ErrorStatus status = RegionAccess::shape(*this, shape);
    Parts parts;
    if (status == Acad::eOk)
        status = shape.faces().size() > 1 ? explodeFaces(shape, parts) : explodeCurves(shape, parts);
    if (status != Acad::eOk) return status;
    for (auto& part : parts) {
        part->setPropertiesFrom(this);
        entitySet.append(part.release());
    }
    return status;
}

Acad::ErrorStatus AcDbRegion::subGetGeomExtents(AcDbExtents& extents) const
{
    kernel::Region shape;
    AcGePoint3d low, high;
    if (RegionAccess::shape(*this, shape) != Acad::eOk || !shape.extents(low, high))
        return Acad::eInvalidExtents;
    return extents.set(low, high);
}

bool AcDbRegion::subWorldDraw(AcGiWorldDraw* draw)
{
    kernel::Region shape;
    if (RegionAccess::shape(*this, shape) != Acad::eOk) return true;
    visitCurves(shape, [&](const AcGeCurve3d& curve) { drawCurve(curve, *draw); });
    return true;
}

void AcDbRegion::intersectionCurves(Curves& curves, bool) const
{
    kernel::Region shape;
    if (RegionAccess::shape(*this, shape) != Acad::eOk) return;
    visitCurves(shape, [&](const AcGeCurve3d& curve) {
        curves.emplace_back(static_cast<AcGeCurve3d*>(curve.copy()));
    });
}
