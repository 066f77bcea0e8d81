/// Makers that ask the user, and what is drawn on the screen only.

#include "CMakeEnt.h"

#include "NewEntity.h"
#include "PolylineInput.h"

namespace
{
/// What a drawn polyline gets beside its points.
struct Look {
    CString layer;
    int color;
    double width;
};

/// Null when the points make no polyline.
std::unique_ptr<AcDbPolyline> polylineOf(const entity::DrawnPoints& drawn, const Look& look)
{
    if (drawn.end == entity::DrawnEnd::cancelled || drawn.points.length() < 2) return nullptr;
    const int closed = drawn.end == entity::DrawnEnd::closed;
    std::unique_ptr<AcDbPolyline> polyline(CArxEntity::CMakeEnt::MakePline(drawn.points, closed, look.width));
    if (!polyline || polyline->setElevation(drawn.points[0].z) != Acad::eOk) return nullptr;
    return entity::setColor(*polyline, look.color) && entity::setLayer(*polyline, look.layer)
               ? std::move(polyline)
               : nullptr;
}

int addDrawn(const entity::DrawnPoints& drawn, const Look& look, AcDbObjectId& id)
{
    return entity::add(polylineOf(drawn, look), id);
}
} // namespace

int CArxEntity::CMakeEnt::MakeGrPl(const AcGePoint3dArray& points, int color, int closed)
{
    if (points.length() < 2) return 0;
    entity::showLines(points, color, closed != 0);
    return 1;
}

int CArxEntity::CMakeEnt::DrawPl(AcDbObjectIdArray& ids, const CString& layer, int color, double width)
{
    int drawn = 0;
    AcDbObjectId id;
    while (DrawPlCmd(id, layer, color, width)) {
        ids.append(id);
        drawn = 1;
    }
    return drawn;
}

int CArxEntity::CMakeEnt::DrawPlCmd(AcDbObjectId& id, const CString& layer, int color, double width)
{
    return addDrawn(entity::askPolyline(), {layer, color, width}, id);
}

int CArxEntity::CMakeEnt::DrawPlWithDoubleElastic(AcDbObjectId& id, const CString& layer, int color,
                                                  double width)
{
    return addDrawn(entity::askArea(), {layer, color, width}, id);
}
