#include "ViewChange.h"

#include "CurrentFrame.h"
#include "dbblock.h"
#include "dblayer.h"
#include "Documents.h"
#include "PlanarCoords.h"
#include "Stub.h"
#include "WindowSize.h"

#include <algorithm>
#include <cmath>

namespace
{
using ed::DisplayView;
using ed::Viewport;

/// Extents are shown with some room around them.
constexpr double roomAroundExtents = 1.02;

AcDbDatabase& database()
{
    return *documents::current()->database;
}

AcGePoint3d inDisplay(const AcGePoint3d& ofUcs)
{
    const AcGePoint3d world = frames::current(database()) * ofUcs;
    return displayToWorld(ed::viewOf(ed::activeViewport())).inverse() * world;
}

bool isOnFrozenLayer(const AcDbEntity& entity)
{
    const auto* layer = AcDbLayerTableRecord::cast(residentObject(entity.layerId()));
    return layer && layer->isFrozen();
}

bool isFrozenHere(const AcDbEntity& entity, const AcDbViewport* window)
{
    return window && window->isLayerFrozenInViewport(entity.layerId());
}

/// The box around entities under a map. The sheet's own viewport counts as nothing.
template <class Ids>
AcDbExtents boxOf(const Ids& ids, const AcGeMatrix3d& map, const AcDbViewport* window)
{
    AcDbExtents box, one;
    for (const AcDbObjectId id : ids) {
        const auto* entity = id.isErased() ? nullptr : AcDbEntity::cast(residentObject(id));
        if (!entity || entity->visibility() == AcDb::kInvisible) continue;
        if (isOnFrozenLayer(*entity) || isFrozenHere(*entity, window)) continue;
        const auto* viewport = AcDbViewport::cast(entity);
        if ((viewport && viewport->number() == 1) || entity->getGeomExtents(one) != Acad::eOk) continue;
        if (!isFinite(one.minPoint()) || !isFinite(one.maxPoint())) continue;
        one.transformBy(map);
        box.addExt(one);
    }
    return box;
}

AcDbExtents limits()
{
    const bool onPaper = frames::isOnPaper(database());
    const AcGePoint2d low = onPaper ? database().plimmin() : database().limmin();
    const AcGePoint2d high = onPaper ? database().plimmax() : database().limmax();
    AcDbExtents box;
    box.addPoint({low.x, low.y, 0.0});
    box.addPoint({high.x, high.y, 0.0});
    return box;
}

AcDbExtents limitsInDisplay()
{
    AcDbExtents box = limits();
    box.transformBy(displayToWorld(ed::viewOf(ed::activeViewport())).inverse());
    return box;
}

AcDbExtents spaceInDisplay()
{
    const Viewport active = ed::activeViewport();
    const auto* space = AcDbBlockTableRecord::cast(residentObject(database().currentSpaceId()));
    if (!space) return {};
    return boxOf(space->entityIds(), displayToWorld(ed::viewOf(active)).inverse(), ed::windowOf(active));
}

/// Shows a box of display coordinates whole.
Acad::ErrorStatus showBox(const AcDbExtents& box, double room)
{
    if (box.isEmpty()) return Acad::eInvalidInput;
    const Viewport active = ed::activeViewport();
    const AcGeVector3d size = box.maxPoint() - box.minPoint();
    const AcGePoint3d middle = box.minPoint() + size / 2.0;
    DisplayView view = ed::viewOf(active);
    view.center.set(middle.x, middle.y);
    const double height = std::max(size.y, size.x / aspectOf(active)) * room;
    if (height > 0.0) view.height = height; // a single point moves to the middle
    return ed::changeView(view);
}

/// The view of the sheet that shows a locked window's model as a view of the window itself would.
DisplayView sheetViewFor(const AcDbViewport& window, const DisplayView& wanted)
{
    DisplayView sheet = ed::viewOf(ed::viewportOfNumber(1));
    const AcGePoint3d onPaper =
        ed::displayToPaper(window) * AcGePoint3d(wanted.center.x, wanted.center.y, 0.0);
    const AcGePoint3d center = parallelToWorld(sheet).inverse() * onPaper;
    sheet.center.set(center.x, center.y);
    sheet.height *= wanted.height / window.viewHeight();
    return sheet;
}

Acad::ErrorStatus setAndRemember(const Viewport& viewport, const DisplayView& view)
{
    const DisplayView before = ed::viewOf(viewport);
    const Acad::ErrorStatus status = setView(viewport, view);
    if (status == Acad::eOk) ed::ViewHistory::push(documents::current()->history.views[viewport.id], before);
    return status;
}

void updateExtents()
{
    AcDbDatabase& of = database();
    const AcDbExtents box = ed::extentsOf(of.currentSpaceId());
    const bool onPaper = frames::isOnPaper(of);
    onPaper ? of.setPextmin(box.minPoint()) : of.setExtmin(box.minPoint());
    onPaper ? of.setPextmax(box.maxPoint()) : of.setExtmax(box.maxPoint());
}

/// The height that a factor gives; 0 when there is none.
double scaledHeight(const DisplayView& view, double factor, ed::ZoomBase base)
{
    const AcDbViewport* window = windowOf(ed::activeViewport());
    if (base == ed::ZoomBase::paper && window) return window->height() / factor;
    if (base != ed::ZoomBase::limits) return view.height / factor;
    const AcDbExtents box = limitsInDisplay();
    const AcGeVector3d size = box.maxPoint() - box.minPoint();
    return std::max(size.y, size.x / aspectOf(ed::activeViewport())) / factor;
}
} // namespace

namespace ed
{
Acad::ErrorStatus changeView(const DisplayView& view, bool isZoom)
{
    const Viewport active = activeViewport();
    if (active.number == 0) return Acad::eNoDocument;
    const AcDbViewport* window = windowOf(active);
    if (!window || !window->isLocked() || !isZoom) return setAndRemember(active, view);
    return setAndRemember(viewportOfNumber(1), sheetViewFor(*window, view));
}

Acad::ErrorStatus zoomWindow(const AcGePoint3d& corner, const AcGePoint3d& opposite)
{
    if (!documents::current()) return Acad::eNoDocument;
    if (!isFinite(corner) || !isFinite(opposite)) return Acad::eInvalidInput;
    AcDbExtents box;
    box.addPoint(inDisplay(corner));
    box.addPoint(inDisplay(opposite));
    const AcGeVector3d size = box.maxPoint() - box.minPoint();
    return size.x > 0.0 || size.y > 0.0 ? showBox(box, 1.0) : Acad::eInvalidInput;
}

Acad::ErrorStatus zoomExtents()
{
    if (!documents::current()) return Acad::eNoDocument;
    updateExtents();
    const AcDbExtents box = spaceInDisplay();
    return box.isEmpty() ? showBox(limitsInDisplay(), 1.0) : showBox(box, roomAroundExtents);
}

Acad::ErrorStatus zoomAll()
{
    if (!documents::current()) return Acad::eNoDocument;
    updateExtents();
    AcDbExtents box = limitsInDisplay();
    const AcDbExtents space = spaceInDisplay();
    if (!space.isEmpty()) box.addExt(space);
    return showBox(box, 1.0);
}

Acad::ErrorStatus zoomObjects(const AcDbObjectIdArray& entities)
{
    if (!documents::current()) return Acad::eNoDocument;
    const Viewport active = activeViewport();
    const AcGeMatrix3d toDisplay = displayToWorld(viewOf(active)).inverse();
    return showBox(boxOf(entities, toDisplay, windowOf(active)), roomAroundExtents);
}

Acad::ErrorStatus zoomScale(double factor, ZoomBase base)
{
    if (!documents::current()) return Acad::eNoDocument;
    if (!(factor > 0.0) || !isFinite(factor)) return Acad::eInvalidInput;
    DisplayView view = viewOf(activeViewport());
    view.height = scaledHeight(view, factor, base);
    return changeView(view);
}

Acad::ErrorStatus zoomCenter(const AcGePoint3d& center, double height)
{
    if (!documents::current()) return Acad::eNoDocument;
    if (!isFinite(center)) return Acad::eInvalidInput;
    DisplayView view = viewOf(activeViewport());
    const AcGePoint3d middle = inDisplay(center);
    view.center.set(middle.x, middle.y);
    view.height = height;
    return changeView(view);
}

Acad::ErrorStatus zoomPrevious()
{
    DocumentState* document = documents::current();
    if (!document) return Acad::eNoDocument;
    Viewport viewport = activeViewport();
    const AcDbViewport* window = windowOf(viewport);
    if (window && window->isLocked()) viewport = viewportOfNumber(1);
    std::vector<DisplayView>& before = document->history.views[viewport.id];
    if (before.empty()) return Acad::eNotApplicable;
    const Acad::ErrorStatus status = setView(viewport, before.back());
    if (status == Acad::eOk) before.pop_back();
    return status;
}

Acad::ErrorStatus pan(const AcGePoint3d& from, const AcGePoint3d& to)
{
    if (!documents::current()) return Acad::eNoDocument;
    if (!isFinite(from) || !isFinite(to)) return Acad::eInvalidInput;
    const AcGeVector3d way = inDisplay(to) - inDisplay(from);
    DisplayView view = viewOf(activeViewport());
    view.center -= AcGeVector2d(way.x, way.y);
    return changeView(view);
}

Acad::ErrorStatus showPlan(const AcGeMatrix3d& system)
{
    if (!documents::current()) return Acad::eNoDocument;
    const Viewport active = activeViewport();
    const DisplayView before = viewOf(active);
    DisplayView view = before;
    turnToPlan(view, system);
    const Acad::ErrorStatus status = changeView(view, false);
    if (status != Acad::eOk) return status;
    std::vector<DisplayView>& past = documents::current()->history.views[activeViewport().id];
    const std::size_t steps = past.size();
    const Acad::ErrorStatus shown = zoomExtents();
    if (past.size() > steps) past.pop_back(); // both were one step
    return shown;
}

AcDbExtents extentsOf(AcDbObjectId space)
{
    const auto* block = AcDbBlockTableRecord::cast(residentObject(space));
    return block ? boxOf(block->entityIds(), AcGeMatrix3d::kIdentity, nullptr) : AcDbExtents();
}
} // namespace ed
