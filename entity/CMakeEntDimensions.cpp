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

/// How dimensions are to look.
struct Look {
    AcDbObjectId style;
    std::unique_ptr<AcDbDimStyleTableRecord> variables; ///< the drawing's, which may differ from its style
};

/// An empty name is the drawing's current look. False for a style that is not there.
bool findLook(Look& look, const CString& name, const wchar_t* member)
{
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!database) return false;
    if (!name.IsEmpty()) {
        const AcDbDimStyleTablePointer styles(database, AcDb::kForRead);
        return entity::isOpen(styles, member) && styles->getAt(name, look.style) == Acad::eOk;
    }
    look.style = database->dimstyle();
    AcDbDimStyleTableRecord* variables = nullptr;
    const bool isGiven = database->getDimstyleData(variables) == Acad::eOk;
    look.variables.reset(variables);
    return isGiven;
}

bool setLook(AcDbDimension& dimension, const Look& look)
{
    return dimension.setDimensionStyle(look.style) == Acad::eOk &&
           (!look.variables || dimension.setDimstyleData(look.variables.get()) == Acad::eOk);
}

/// In world coordinates; null when the user coordinate system cannot be had, and for a leader that leaves the
/// numbers.
std::unique_ptr<AcDbEntity> ordinate(const AcGePoint3d& pt, int side, double length, const Look& look)
{
    const AcGeVector3d along = directionTo(side);
    const AcGePoint3d end = pt + length * along;
    const bool measuresX = along.x == 0.0;
    if (!entity::isFinite(pt) || !entity::isFinite(end)) return nullptr;
    auto dimension = std::make_unique<AcDbOrdinateDimension>(AcGePoint3d::kOrigin, measuresX, pt, end,
                                                             nullptr, look.style);
    dimension->setDatabaseDefaults();
    dimension->setElevation(pt.z); // the leader starts at the point, and not below it
    if (!setLook(*dimension, look) || !CArxUtils::CUcsWcs::UcsToWcs(dimension.get())) return nullptr;
    return dimension;
}

int addOrdinates(const AcGePoint3d& pt, AcDbObjectIdArray& ids, int side, double length, const CString& style,
                 int count)
{
    CString member;
    member.Format(L"MakeCoordDim%d", count);
    Look look;
    if (!(length > 0.0) || !findLook(look, style, member)) return 0;
    entity::Batch batch;
    for (int i = 0; i < count; ++i)
        if (!batch.addInWorld(ordinate(pt, side % 4 + i, length, look))) return 0;
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
