/// The geometric members of AcDbEntity: what they check and hand on to the classes.

#include "dbentity.h"

#include "acgi.h"
#include "EntityAccess.h"
#include "gecurv3d.h"
#include "MappedExtents.h"

namespace
{
bool isUsable(const AcGeMatrix3d& matrix)
{
    for (const auto& row : matrix.entry) {
        for (const double value : row) {
            if (!std::isfinite(value)) return false;
        }
    }
    return !matrix.isSingular();
}

bool areAllInRange(const AcDbIntArray& indices, int count)
{
    for (int i = 0; i < indices.length(); ++i) {
        if (indices[i] < 0 || indices[i] >= count) return false;
    }
    return true;
}
} // namespace

Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d& xform)
{
    if (!isUsable(xform)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    return status == Acad::eOk ? subTransformBy(xform) : status;
}

Acad::ErrorStatus AcDbEntity::getTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& copy) const
{
    copy = nullptr;
    if (!isUsable(xform)) return Acad::eInvalidInput;
    return subGetTransformedCopy(xform, copy);
}

Acad::ErrorStatus AcDbEntity::subGetTransformedCopy(const AcGeMatrix3d& xform, AcDbEntity*& copy) const
{
    std::unique_ptr<AcDbEntity> made(AcDbEntity::cast(clone()));
    if (!made) return Acad::eNotImplementedYet;
    const Acad::ErrorStatus status = made->subTransformBy(xform);
    if (status == Acad::eOk) copy = made.release();
    return status;
}

Acad::ErrorStatus AcDbEntity::explode(AcDbVoidPtrArray& entitySet) const
{
    const int before = entitySet.length();
    const Acad::ErrorStatus status = subExplode(entitySet);
    if (explodesWithOwnProperties()) return status;
    for (int i = before; i < entitySet.length(); ++i) {
        EntityAccess::takeProperties(*static_cast<AcDbEntity*>(entitySet[i]), *this);
    }
    return status;
}

Acad::ErrorStatus AcDbEntity::getGeomExtents(AcDbExtents& extents) const
{
    AcDbExtents found;
    const Acad::ErrorStatus status = subGetGeomExtents(found);
    if (status != Acad::eOk) return status;
    if (!isBox(found)) return Acad::eInvalidExtents;
    extents = found;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbEntity::getGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray& osnapModes,
                                            AcDbIntArray& geomIds) const
{
    return subGetGripPoints(gripPoints, osnapModes, geomIds);
}

Acad::ErrorStatus AcDbEntity::moveGripPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    if (indices.isEmpty()) return Acad::eOk;
    AcGePoint3dArray grips;
    AcDbIntArray modes, ids;
    const Acad::ErrorStatus known = subGetGripPoints(grips, modes, ids);
    if (known == Acad::eOk && !areAllInRange(indices, grips.length())) return Acad::eInvalidIndex;
    const Acad::ErrorStatus status = beginChange();
    return status == Acad::eOk ? subMoveGripPointsAt(indices, offset) : status;
}

Acad::ErrorStatus AcDbEntity::subMoveGripPointsAt(const AcDbIntArray&, const AcGeVector3d& offset)
{
    return subTransformBy(AcGeMatrix3d().setToTranslation(offset));
}

Acad::ErrorStatus AcDbEntity::getStretchPoints(AcGePoint3dArray& stretchPoints) const
{
    return subGetStretchPoints(stretchPoints);
}

Acad::ErrorStatus AcDbEntity::subGetStretchPoints(AcGePoint3dArray& stretchPoints) const
{
    AcDbIntArray modes, ids;
    return subGetGripPoints(stretchPoints, modes, ids);
}

Acad::ErrorStatus AcDbEntity::moveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    if (indices.isEmpty()) return Acad::eOk;
    AcGePoint3dArray points;
    const Acad::ErrorStatus known = subGetStretchPoints(points);
    if (known == Acad::eOk && !areAllInRange(indices, points.length())) return Acad::eInvalidIndex;
    const Acad::ErrorStatus status = beginChange();
    return status == Acad::eOk ? subMoveStretchPointsAt(indices, offset) : status;
}

Acad::ErrorStatus AcDbEntity::subMoveStretchPointsAt(const AcDbIntArray& indices, const AcGeVector3d& offset)
{
    return subMoveGripPointsAt(indices, offset);
}

Acad::ErrorStatus AcDbEntity::getOsnapPoints(AcDb::OsnapMode osnapMode, Adesk::GsMarker gsSelectionMark,
                                             const AcGePoint3d& pickPoint, const AcGePoint3d& lastPoint,
                                             const AcGeMatrix3d& viewXform, AcGePoint3dArray& snapPoints,
                                             AcDbIntArray& geomIds) const
{
    return subGetOsnapPoints(osnapMode, gsSelectionMark, pickPoint, lastPoint, viewXform, snapPoints, geomIds);
}

Acad::ErrorStatus AcDbEntity::subGetOsnapPoints(AcDb::OsnapMode osnapMode, Adesk::GsMarker,
                                                const AcGePoint3d& pickPoint, const AcGePoint3d& lastPoint,
                                                const AcGeMatrix3d&, AcGePoint3dArray& snapPoints, AcDbIntArray&) const
{
    return pointsToSnapTo(osnapMode, pickPoint, lastPoint, snapPoints);
}

Adesk::UInt32 AcDbEntity::subSetAttributes(AcGiDrawableTraits* traits)
{
    traits->setLayer(layerId());
    if (mColor.isByColor()) {
        traits->setTrueColor(mColor);
    } else {
        traits->setColor(colorIndex());
    }
    traits->setLineType(linetypeId());
    traits->setLineTypeScale(mLinetypeScale);
    traits->setLineWeight(lineWeight());
    traits->setTransparency(mTransparency);
    traits->setFillType(kAcGiFillNever);
    return 0;
}

bool AcDbEntity::worldDraw(AcGiWorldDraw* draw) const
{
    if (!draw) return true;
    // Drawing changes nothing of the entity; the signatures of what classes override are older than const.
    auto& self = const_cast<AcDbEntity&>(*this);
    draw->geometry().mDraw = draw;
    self.subSetAttributes(&draw->subEntityTraits());
    return self.subWorldDraw(draw);
}
