#include "CFamStuGlobe.h"

#include "acedads.h"
#include "CFamStuSysVar.h"
#include "CFamStuUcs.h"
#include "dbobjptr.h"
#include "dbview.h"
#include "geassign.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double leastHeight = 5.0;

double realVariable(const wchar_t* name)
{
    double value = 0.0;
    CFamStuSysVar::Get(name, value);
    return value;
}

int integerVariable(const wchar_t* name)
{
    int value = 0;
    CFamStuSysVar::Get(name, value);
    return value;
}

AcGePoint3d worldPointVariable(const wchar_t* name)
{
    AcGePoint3d point;
    CFamStuSysVar::Get(name, point);
    acdbUcs2Wcs(asDblArray(point), asDblArray(point), false);
    return point;
}

AcGeVector3d worldVectorVariable(const wchar_t* name)
{
    AcGePoint3d vector;
    CFamStuSysVar::Get(name, vector);
    acdbUcs2Wcs(asDblArray(vector), asDblArray(vector), true);
    return vector.asVector();
}

void setWindow(AcDbViewTableRecord& view, const AcGePoint3d& p1, const AcGePoint3d& p2)
{
    view.setCenterPoint(AcGePoint2d((p1.x + p2.x) / 2.0, (p1.y + p2.y) / 2.0));
    view.setHeight(std::max(std::fabs(p1.y - p2.y), leastHeight));
    view.setWidth(std::fabs(p1.x - p2.x));
}

void setClipping(AcDbViewTableRecord& view)
{
    const int mode = integerVariable(L"VIEWMODE");
    view.setPerspectiveEnabled((mode & 1) != 0);
    view.setFrontClipEnabled((mode & 2) != 0);
    view.setBackClipEnabled((mode & 4) != 0);
    const bool isPaper = integerVariable(L"TILEMODE") == 0 && integerVariable(L"CVPORT") == 1;
    view.setIsPaperspaceView(isPaper);
    view.setFrontClipDistance(isPaper ? 0.0 : realVariable(L"FRONTZ"));
    view.setBackClipDistance(isPaper ? 0.0 : realVariable(L"BACKZ"));
}

void setDirection(AcDbViewTableRecord& view)
{
    view.setViewDirection(worldVectorVariable(L"VIEWDIR"));
    view.setLensLength(realVariable(L"LENSLENGTH"));
    view.setViewTwist(realVariable(L"VIEWTWIST"));
    view.setTarget(worldPointVariable(L"TARGET"));
}

bool areFinite(const AcGePoint3d& p1, const AcGePoint3d& p2)
{
    return std::isfinite(p1.x) && std::isfinite(p1.y) && std::isfinite(p2.x) && std::isfinite(p2.y);
}

/// The box around a box as it lies in the view.
AcDbExtents inDisplay(const AcDbExtents& world)
{
    const AcGePoint3d low = world.minPoint(), high = world.maxPoint();
    AcDbExtents seen;
    for (int i = 0; i < 8; ++i) {
        AcGePoint3d corner(i & 1 ? high.x : low.x, i & 2 ? high.y : low.y, i & 4 ? high.z : low.z);
        if (CFamStuUcs::WcsToDCS(corner)) seen.addPoint(corner);
    }
    return seen;
}

void addObject(AcDbExtents& seen, AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    AcDbExtents box;
    if (entity.openStatus() == Acad::eOk && entity->getGeomExtents(box) == Acad::eOk)
        seen.addExt(inDisplay(box));
}

bool isEmpty(const AcDbExtents& box)
{
    return box.minPoint().x > box.maxPoint().x;
}
} // namespace

double CFamStuGlobe::GetSnapRange()
{
    AcGePoint3d screen;
    CFamStuSysVar::Get(L"SCREENSIZE", screen);
    return screen.y > 0.0 ? integerVariable(L"PICKBOX") * realVariable(L"VIEWSIZE") / screen.y : 0.0;
}

void CFamStuGlobe::Zoom(AcDbObjectId object)
{
    AcDbObjectIdArray objects;
    objects.append(object);
    Zoom(objects);
}

void CFamStuGlobe::Zoom(AcDbObjectIdArray objects)
{
    AcDbExtents seen;
    for (int i = 0; i < objects.length(); ++i)
        addObject(seen, objects[i]);
    if (!isEmpty(seen)) Zoom(seen.minPoint(), seen.maxPoint());
}

void CFamStuGlobe::Zoom(AcGePoint3d p1, AcGePoint3d p2)
{
    if (!areFinite(p1, p2)) return;
    AcDbViewTableRecord view;
    setWindow(view, p1, p2);
    setDirection(view);
    setClipping(view);
    acedSetCurrentView(&view, nullptr);
}
