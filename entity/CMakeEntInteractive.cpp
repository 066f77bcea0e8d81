/// Makers that ask the user, and what is drawn on the screen only.

#include "CMakeEnt.h"

#include "NewEntity.h"
#include "PolylineInput.h"

#include <algorithm>

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

/// Whether there can be polylines like this: a first one tells, before the user draws one for nothing.
bool isPossible(const Look& look)
{
    entity::DrawnPoints trial;
    trial.end = entity::DrawnEnd::done;
    trial.points.append(AcGePoint3d::kOrigin);
    trial.points.append(AcGePoint3d(1.0, 0.0, 0.0));
    return polylineOf(trial, look) != nullptr;
}

int draw(entity::DrawnPoints (*ask)(), const Look& look, AcDbObjectId& id)
{
    return isPossible(look) ? entity::add(polylineOf(ask(), look), id) : 0;
}

bool areFinite(const AcGePoint3dArray& points)
{
    return std::all_of(points.begin(), points.end(), entity::isFinite);
}
} // namespace

int CArxEntity::CMakeEnt::MakeGrPl(const AcGePoint3dArray& points, int color, int closed)
{
    return points.length() > 1 && areFinite(points) && entity::showLines(points, color, closed != 0);
}

int CArxEntity::CMakeEnt::DrawPl(AcDbObjectIdArray& ids, const CString& layer, int color, double width)
{
    const Look look{layer, color, width};
    if (!isPossible(look)) return 0;
    const int before = ids.length();
    while (true) {
        const entity::DrawnPoints drawn = entity::askPolyline();
        if (drawn.end == entity::DrawnEnd::cancelled) break;
        if (drawn.points.length() < 2) continue;
        AcDbObjectId id;
        if (!entity::add(polylineOf(drawn, look), id)) break;
        ids.append(id);
    }
    return ids.length() > before;
}

int CArxEntity::CMakeEnt::DrawPlCmd(AcDbObjectId& id, const CString& layer, int color, double width)
{
    return draw(entity::askPolyline, {layer, color, width}, id);
}

int CArxEntity::CMakeEnt::DrawPlWithDoubleElastic(AcDbObjectId& id, const CString& layer, int color,
                                                  double width)
{
    return draw(entity::askArea, {layer, color, width}, id);
}
