/// Ordinate dimensions.

#include "CMakeEnt.h"

#include "CUcsWcs.h"
#include "dbapserv.h"
#include "dbdimordinate.h"
#include "NewEntity.h"
#include "OpenReport.h"

namespace
{
/// The unit vector to side 0 (+X), 1 (+Y), 2 (-X), 3 (-Y); further numbers go on round.
AcGeVector3d directionTo(int side)
{
    switch (((side % 4) + 4) % 4) {
    case 0:
        return AcGeVector3d::kXAxis;
    case 1:
        return AcGeVector3d::kYAxis;
    case 2:
        return -AcGeVector3d::kXAxis;
    default:
        return -AcGeVector3d::kYAxis;
    }
}

/// The current style for an empty name; null for a name that is not there.
AcDbObjectId styleNamed(const CString& name, const wchar_t* member)
{
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!database || name.IsEmpty()) return database ? database->dimstyle() : AcDbObjectId();
    AcDbObjectId style;
    const AcDbDimStyleTablePointer styles(database, AcDb::kForRead);
    if (entity::isOpen(styles, member) && styles->getAt(name, style) != Acad::eOk) style.setNull();
    return style;
}

/// In world coordinates; null when the user coordinate system cannot be had, and for a leader that leaves the
/// numbers.
std::unique_ptr<AcDbEntity> ordinate(const AcGePoint3d& pt, int side, double length, AcDbObjectId style)
{
    const AcGeVector3d along = directionTo(side);
    const AcGePoint3d end = pt + length * along;
    const bool measuresX = along.x == 0.0;
    if (!entity::isFinite(pt) || !entity::isFinite(end)) return nullptr;
    auto dimension =
        std::make_unique<AcDbOrdinateDimension>(AcGePoint3d::kOrigin, measuresX, pt, end, nullptr, style);
    dimension->setDatabaseDefaults();
    dimension->setDimensionStyle(style);
    dimension->setElevation(pt.z); // the leader starts at the point, and not below it
    if (!CArxUtils::CUcsWcs::UcsToWcs(dimension.get())) return nullptr;
    return dimension;
}

int addOrdinates(const AcGePoint3d& pt, AcDbObjectIdArray& ids, int side, double length, const CString& style,
                 int count)
{
    CString member;
    member.Format(L"CArxEntity::CMakeEnt::MakeCoordDim%d", count);
    const AcDbObjectId styleId = styleNamed(style, member);
    if (styleId.isNull() || !(length > 0.0)) return 0;
    entity::Batch batch;
    for (int i = 0; i < count; ++i)
        if (!batch.addInWorld(ordinate(pt, side % 4 + i, length, styleId))) return 0;
    return batch.keep(ids);
}
} // namespace

int CArxEntity::CMakeEnt::MakeCoordDim1(const AcGePoint3d& pt, AcDbObjectIdArray& ids, int side,
                                        double length, CGTStringW style)
{
    return addOrdinates(pt, ids, side, length, style, 1);
}

int CArxEntity::CMakeEnt::MakeCoordDim2(const AcGePoint3d& pt, AcDbObjectIdArray& ids, int side,
                                        double length, CGTStringW style)
{
    return addOrdinates(pt, ids, side, length, style, 2);
}

int CArxEntity::CMakeEnt::MakeCoordDim3(const AcGePoint3d& pt, AcDbObjectIdArray& ids, int side,
                                        double length, CGTStringW style)
{
    return addOrdinates(pt, ids, side, length, style, 3);
}

int CArxEntity::CMakeEnt::MakeCoordDim4(const AcGePoint3d& pt, AcDbObjectIdArray& ids, int side,
                                        double length, CGTStringW style)
{
    return addOrdinates(pt, ids, side, length, style, 4);
}
