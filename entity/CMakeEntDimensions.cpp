/// Ordinate dimensions.

#include "CMakeEnt.h"

#include "CUcsWcs.h"
#include "dbapserv.h"
#include "dbdimordinate.h"
#include "dbobjptr.h"
#include "NewEntity.h"

#include <cmath>

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
AcDbObjectId styleNamed(const CString& name)
{
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!database || name.IsEmpty()) return database ? database->dimstyle() : AcDbObjectId();
    AcDbObjectId style;
    const AcDbDimStyleTablePointer styles(database, AcDb::kForRead);
    if (styles.openStatus() == Acad::eOk && styles->getAt(name, style) != Acad::eOk) style.setNull();
    return style;
}

/// In world coordinates; null when the user coordinate system cannot be had.
std::unique_ptr<AcDbEntity> ordinate(const AcGePoint3d& pt, int side, double length, AcDbObjectId style)
{
    const AcGeVector3d along = directionTo(side);
    const bool measuresX = along.x == 0.0;
    auto dimension = std::make_unique<AcDbOrdinateDimension>(AcGePoint3d::kOrigin, measuresX, pt,
                                                             pt + length * along, nullptr, style);
    dimension->setDatabaseDefaults();
    dimension->setDimensionStyle(style);
    dimension->setElevation(pt.z); // the leader starts at the point, and not below it
    if (!CArxUtils::CUcsWcs::UcsToWcs(dimension.get())) return nullptr;
    return dimension;
}

int addOrdinates(const AcGePoint3d& pt, AcDbObjectIdArray& ids, int side, double length, const CString& style,
                 int count)
{
    const AcDbObjectId styleId = styleNamed(style);
    const bool isPoint = std::isfinite(pt.x) && std::isfinite(pt.y) && std::isfinite(pt.z);
    if (styleId.isNull() || !isPoint || !(length > 0.0) || !std::isfinite(length)) return 0;
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
