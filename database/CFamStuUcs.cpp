#include "CFamStuUcs.h"

#include "arxHeaders.h"
#include "CFamStuSysVar.h"
#include "dbobjptr.h"
#include "geassign.h"

namespace
{
/// The codes of acedTrans.
enum CoordinateSystem : short { world = 0, user = 1, display = 2, paper = 3 };

resbuf nodeOf(CoordinateSystem system)
{
    resbuf node = {};
    node.restype = RTSHORT;
    node.resval.rint = system;
    return node;
}

int transform(AcGePoint3d& point, CoordinateSystem from, CoordinateSystem to)
{
    const resbuf source = nodeOf(from), target = nodeOf(to);
    ads_point result;
    if (acedTrans(asDblArray(point), &source, &target, FALSE, result) != RTNORM) return 0;
    point.set(result[X], result[Y], result[Z]);
    return 1;
}

/// By way of the display: the paper knows no other system.
int transformThroughDisplay(AcGePoint3d& point, CoordinateSystem from, CoordinateSystem to)
{
    AcGePoint3d moved = point;
    if (!transform(moved, from, display) || !transform(moved, display, to)) return 0;
    point = moved;
    return 1;
}

AcGeMatrix3d frameOf(const AcGePoint3d& origin, const AcGeVector3d& xAxis, const AcGeVector3d& yAxis)
{
    const AcGeVector3d x = xAxis.normal(), y = yAxis.normal();
    AcGeMatrix3d frame;
    return frame.setCoordSystem(origin, x, y, x.crossProduct(y));
}

int makeCurrent(const AcGeMatrix3d& frame)
{
    return acedSetCurrentUCS(frame) == Acad::eOk;
}

AcDbDatabase* workingDatabase()
{
    return acdbHostApplicationServices()->workingDatabase();
}

/// The record of a name, made when it is missing; it is null in `record` after a failure.
void openOrAdd(const CString& name, AcDbObjectPointer<AcDbUCSTableRecord>& record)
{
    AcDbUCSTablePointer table(workingDatabase(), AcDb::kForWrite);
    if (table.openStatus() != Acad::eOk) return;
    AcDbObjectId id;
    if (table->getAt(name, id) == Acad::eOk) {
        record.open(id, AcDb::kForWrite);
        return;
    }
    record.create();
    if (record->setName(name) != Acad::eOk || table->add(record.object()) != Acad::eOk) record.close();
}

/// What the variables say of the view, from another direction of the world.
struct ViewRecord : AcDbViewTableRecord {
    explicit ViewRecord(const AcGeVector3d& direction)
    {
        AcGePoint3d center, target, screen;
        double height = 0.0, lens = 0.0, front = 0.0, back = 0.0;
        int mode = 0;
        CFamStuSysVar::Get(L"VIEWCTR", center);
        CFamStuSysVar::Get(L"TARGET", target);
        CFamStuSysVar::Get(L"SCREENSIZE", screen);
        CFamStuSysVar::Get(L"VIEWSIZE", height);
        CFamStuSysVar::Get(L"LENSLENGTH", lens);
        CFamStuSysVar::Get(L"FRONTZ", front);
        CFamStuSysVar::Get(L"BACKZ", back);
        CFamStuSysVar::Get(L"VIEWMODE", mode);
        transform(center, user, world);
        transform(target, user, world);
        const AcGeVector3d middle = AcGeMatrix3d::worldToPlane(direction) * (center - target);
        setTarget(target);
        setViewDirection(direction);
        setCenterPoint({middle.x, middle.y});
        setHeight(height);
        setWidth(screen.y > 0.0 ? height * screen.x / screen.y : height);
        setLensLength(lens);
        setFrontClipDistance(front);
        setBackClipDistance(back);
        setModes(mode);
    }

private:
    void setModes(int mode)
    {
        setPerspectiveEnabled((mode & 1) != 0);
        setFrontClipEnabled((mode & 2) != 0);
        setBackClipEnabled((mode & 4) != 0);
        setFrontClipAtEye((mode & 16) == 0);
        int tileMode = 1, viewport = 0;
        CFamStuSysVar::Get(L"TILEMODE", tileMode);
        CFamStuSysVar::Get(L"CVPORT", viewport);
        setIsPaperspaceView(tileMode == 0 && viewport == 1);
    }
};
} // namespace

int CFamStuUcs::CreateUCS(CString name, const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                          const AcGeVector3d& yAxis)
{
    if (xAxis.isZeroLength() || yAxis.isZeroLength() || !xAxis.isPerpendicularTo(yAxis)) return 0;
    AcDbObjectPointer<AcDbUCSTableRecord> record;
    openOrAdd(name, record);
    if (!record.object()) return 0;
    record->setOrigin(origin);
    record->setXAxis(xAxis);
    record->setYAxis(yAxis);
    return 1;
}

int CFamStuUcs::SetCurUcs(CString name)
{
    AcDbUCSTableRecordPointer record(name, workingDatabase());
    if (record.openStatus() != Acad::eOk) return 0;
    return makeCurrent(frameOf(record->origin(), record->xAxis(), record->yAxis()));
}

int CFamStuUcs::MoveUcsOrigin(const AcGeVector3d& offset)
{
    AcGeMatrix3d frame;
    if (acedGetCurrentUCS(frame) != Acad::eOk) return 0;
    return makeCurrent(frame * AcGeMatrix3d::translation(offset));
}

int CFamStuUcs::RotateUcs(double angle, const AcGeVector3d& axis)
{
    AcGeMatrix3d frame;
    if (axis.isZeroLength() || acedGetCurrentUCS(frame) != Acad::eOk) return 0;
    return makeCurrent(frame * AcGeMatrix3d::rotation(angle, axis));
}

int CFamStuUcs::returnToWcs()
{
    return makeCurrent(AcGeMatrix3d::kIdentity);
}

int CFamStuUcs::AddEntInUcs(AcDbEntity* entity, AcDbObjectId& id)
{
    id.setNull();
    AcGeMatrix3d frame;
    AcDbDatabase* database = workingDatabase();
    if (!entity || !database || acedGetCurrentUCS(frame) != Acad::eOk) return 0;
    AcDbObjectPointer<AcDbBlockTableRecord> space(database->currentSpaceId(), AcDb::kForWrite);
    if (space.openStatus() != Acad::eOk || entity->transformBy(frame) != Acad::eOk) return 0;
    if (space->appendAcDbEntity(id, entity) != Acad::eOk) {
        entity->transformBy(frame.inverse());
        return 0;
    }
    entity->close();
    return 1;
}

int CFamStuUcs::setViewDirection(const AcGeVector3d& direction)
{
    AcGeMatrix3d frame;
    if (direction.isZeroLength() || acedGetCurrentUCS(frame) != Acad::eOk) return 0;
    ViewRecord view(frame * direction);
    return acedSetCurrentView(&view, nullptr) == Acad::eOk;
}

int CFamStuUcs::DCSToWCS(AcGePoint3d& point)
{
    return transform(point, display, world);
}
int CFamStuUcs::WcsToDCS(AcGePoint3d& point)
{
    return transform(point, world, display);
}
int CFamStuUcs::PSDCSToDCS(AcGePoint3d& point)
{
    return transform(point, paper, display);
}
int CFamStuUcs::PSDCSToWCS(AcGePoint3d& point)
{
    return transformThroughDisplay(point, paper, world);
}
int CFamStuUcs::WcsToPSDCS(AcGePoint3d& point)
{
    return transformThroughDisplay(point, world, paper);
}
