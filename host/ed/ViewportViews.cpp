/// The views in the objects that keep them.

#include "dbblock.h"
#include "Documents.h"
#include "EditedObject.h"
#include "PlanarCoords.h"
#include "Viewports.h"
#include "WindowSize.h"

namespace
{
using ed::DisplayView;
using ed::EditedObject;
using ed::Viewport;

DisplayView read(const AcDbViewportTableRecord& tile)
{
    DisplayView view = ed::viewOf(tile);
    view.followsUcs = tile.ucsFollowMode();
    return view;
}

DisplayView read(const AcDbViewport& window)
{
    DisplayView view{window.viewTarget(), window.viewDirection(), window.twistAngle(), window.viewCenter(),
                     window.viewHeight()};
    view.lensLength = window.lensLength();
    view.frontClip = window.frontClipDistance();
    view.backClip = window.backClipDistance();
    view.isPerspective = window.isPerspectiveOn();
    view.isFrontClipped = window.isFrontClipOn();
    view.isBackClipped = window.isBackClipOn();
    view.isFrontClipAtEye = window.isFrontClipAtEyeOn();
    view.followsUcs = window.isUcsFollowModeOn();
    return view;
}

void write(const DisplayView& view, AcDbViewportTableRecord& tile)
{
    tile.setTarget(view.target);
    tile.setViewDirection(view.direction);
    tile.setViewTwist(view.twist);
    tile.setCenterPoint(view.center);
    tile.setHeight(view.height);
    tile.setWidth(view.height * ed::aspectOf({ed::ViewportKind::tile, tile.objectId(), 0}));
    tile.setLensLength(view.lensLength);
    tile.setFrontClipDistance(view.frontClip);
    tile.setBackClipDistance(view.backClip);
    tile.setPerspectiveEnabled(view.isPerspective);
    tile.setFrontClipEnabled(view.isFrontClipped);
    tile.setBackClipEnabled(view.isBackClipped);
    tile.setFrontClipAtEye(view.isFrontClipAtEye);
    tile.setUcsFollowMode(view.followsUcs);
}

void write(const DisplayView& view, AcDbViewport& window)
{
    window.setViewTarget(view.target);
    window.setViewDirection(view.direction);
    window.setTwistAngle(view.twist);
    window.setViewCenter(view.center);
    if (view.height != window.viewHeight())
        window.setViewHeight(view.height); // the same one keeps a standard scale
    window.setLensLength(view.lensLength);
    window.setFrontClipDistance(view.frontClip);
    window.setBackClipDistance(view.backClip);
    view.isPerspective ? window.setPerspectiveOn() : window.setPerspectiveOff();
    view.isFrontClipped ? window.setFrontClipOn() : window.setFrontClipOff();
    view.isBackClipped ? window.setBackClipOn() : window.setBackClipOff();
    view.isFrontClipAtEye ? window.setFrontClipAtEyeOn() : window.setFrontClipAtEyeOff();
    view.followsUcs ? window.setUcsFollowModeOn() : window.setUcsFollowModeOff();
}

/// The whole sheet, which lies between the limits of the layout.
DisplayView viewOfSheet()
{
    DisplayView view;
    const DocumentState* document = documents::current();
    if (!document) return view;
    const AcGePoint2d low = document->database->plimmin(), high = document->database->plimmax();
    view.center = low + (high - low) / 2.0;
    if (high.y > low.y) view.height = high.y - low.y;
    return view;
}

/// Gives the layout the viewport that stands for its sheet.
Acad::ErrorStatus addSheet(const DisplayView& view)
{
    AcDbDatabase& database = *documents::current()->database;
    EditedObject<AcDbBlockTableRecord> paper(database.currentSpaceId());
    if (paper.status() != Acad::eOk) return paper.status();
    auto* sheet = new AcDbViewport;
    sheet->setDatabaseDefaults(&database);
    const Acad::ErrorStatus status = paper->appendAcDbEntity(sheet);
    if (status != Acad::eOk) {
        delete sheet;
        return status;
    }
    sheet->setOn();
    sheet->setCenterPoint({view.center.x, view.center.y, 0.0});
    sheet->setHeight(view.height);
    sheet->setWidth(view.height * ed::aspectOf({ed::ViewportKind::sheet, {}, 1}));
    write(view, *sheet);
    return sheet->close();
}

bool isPossible(const DisplayView& view)
{
    return view.height > 0.0 && isFinite(view.height) && isFinite(view.center) && isFinite(view.target) &&
           isDirection(view.direction) && isFinite(view.twist) && view.lensLength > 0.0 &&
           isFinite(view.lensLength) && isFinite(view.frontClip) && isFinite(view.backClip);
}
} // namespace

namespace ed
{
DisplayView viewOf(const Viewport& viewport)
{
    const AcDbObject* keeper = residentObject(viewport.id);
    if (const auto* tile = AcDbViewportTableRecord::cast(keeper)) return read(*tile);
    if (const auto* window = AcDbViewport::cast(keeper)) return read(*window);
    return viewOfSheet();
}

DisplayView viewOf(const AcDbAbstractViewTableRecord& record)
{
    DisplayView view{record.target(), record.viewDirection(), record.viewTwist(), record.centerPoint(),
                     record.height()};
    view.lensLength = record.lensLength();
    view.frontClip = record.frontClipDistance();
    view.backClip = record.backClipDistance();
    view.isPerspective = record.perspectiveEnabled();
    view.isFrontClipped = record.frontClipEnabled();
    view.isBackClipped = record.backClipEnabled();
    view.isFrontClipAtEye = record.frontClipAtEye();
    return view;
}

Acad::ErrorStatus setView(const Viewport& viewport, const DisplayView& view)
{
    if (!isPossible(view)) return Acad::eInvalidInput;
    const bool isUnmade = viewport.kind == ViewportKind::sheet && viewport.id.isNull();
    return isUnmade ? addSheet(view) : editViewport(viewport, [&](auto& keeper) { write(view, keeper); });
}
} // namespace ed
