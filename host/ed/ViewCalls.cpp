/// Views and viewports as modules change them.

#include "acedviews.h"
#include "acutads.h"
#include "dbobjptr.h"
#include "Documents.h"
#include "EditedObject.h"
#include "UcsChange.h"
#include "ViewChange.h"
#include "WindowSize.h"

#include <algorithm>

namespace
{
using ed::DisplayView;
using ed::Viewport;
using ed::ViewportKind;

/// What a view record shows in a viewport of the present size.
DisplayView viewFrom(const AcDbViewTableRecord& record, const Viewport& viewport)
{
    DisplayView view = ed::viewOf(record);
    view.height = std::max(record.height(), record.width() / aspectOf(viewport));
    view.followsUcs = ed::viewOf(viewport).followsUcs;
    return view;
}

Acad::ErrorStatus setUcsOf(const AcDbViewTableRecord& record)
{
    if (!record.isUcsAssociatedToView()) return Acad::eOk;
    AcGePoint3d origin;
    AcGeVector3d x, y;
    record.getUcs(origin, x, y);
    AcGeMatrix3d matrix;
    matrix.setCoordSystem(origin, x, y, x.crossProduct(y));
    const auto* named = AcDbSymbolTableRecord::cast(residentObject(record.ucsName()));
    return ed::setUcs(matrix, named ? named->name() : CString());
}

Acad::ErrorStatus showIn(const Viewport& viewport, const DisplayView& view)
{
    if (viewport.number == ed::activeViewport().number) return ed::changeView(view, false);
    return setView(viewport, view);
}

void append(resbuf**& end, short type, const AcGePoint2d& point)
{
    resbuf* node = acutNewRb(type);
    if (type == RTPOINT) {
        node->resval.rpoint[X] = point.x;
        node->resval.rpoint[Y] = point.y;
        node->resval.rpoint[Z] = 0.0;
    }
    if (type == RTSHORT) node->resval.rint = static_cast<short>(point.x);
    *end = node;
    end = &node->rbnext;
}

/// The corners of a viewport on the screen, or on the paper.
std::pair<AcGePoint2d, AcGePoint2d> cornersOf(const Viewport& viewport)
{
    if (const auto* tile = AcDbViewportTableRecord::cast(residentObject(viewport.id)))
        return {tile->lowerLeftCorner(), tile->upperRightCorner()};
    const DisplayView sheet = viewOf(viewport);
    AcGePoint2d center = sheet.center;
    AcGeVector2d half(sheet.height * aspectOf(viewport) / 2.0, sheet.height / 2.0);
    if (const AcDbViewport* window = windowOf(viewport)) {
        center.set(window->centerPoint().x, window->centerPoint().y);
        half.set(window->width() / 2.0, window->height() / 2.0);
    }
    return {center - half, center + half};
}

Acad::ErrorStatus setFrozen(AcDbViewport& viewport, const AcDbObjectIdArray& layers, bool freeze)
{
    return freeze ? viewport.freezeLayersInViewport(layers) : viewport.thawLayersInViewport(layers);
}

Acad::ErrorStatus resetLayers(AcDbViewport& viewport, const AcDbObjectIdArray& layers)
{
    AcDbObjectIdArray frozen, thawed;
    for (int i = 0; i < layers.length(); ++i)
        (AcDbLayerTableRecord::cast(residentObject(layers[i]))->VPDFLT() ? frozen : thawed).append(layers[i]);
    const Acad::ErrorStatus status = setFrozen(viewport, frozen, true);
    return status == Acad::eOk ? setFrozen(viewport, thawed, false) : status;
}

bool areLayers(const AcDbObjectIdArray& ids)
{
    for (int i = 0; i < ids.length(); ++i) {
        if (ids[i].isErased() || !AcDbLayerTableRecord::cast(residentObject(ids[i]))) return false;
    }
    return true;
}

Acad::ErrorStatus statusOfTiles()
{
    const DocumentState* document = documents::current();
    if (!document) return Acad::eNoDocument;
    return document->database->tilemode() ? Acad::eOk : Acad::eNotApplicable;
}

/// eOk when a layout is current.
Acad::ErrorStatus checkOnLayout()
{
    const DocumentState* document = documents::current();
    if (!document) return Acad::eNoDocument;
    return document->database->tilemode() ? Acad::eNotInPaperspace : Acad::eOk;
}
} // namespace

Acad::ErrorStatus acedSetCurrentView(AcDbViewTableRecord* record, AcDbViewport* viewport)
{
    if (!documents::current()) return Acad::eNoDocument;
    if (!record) return Acad::eInvalidInput;
    const Viewport shown = viewport ? ed::viewportOf(viewport->objectId()) : ed::activeViewport();
    if (shown.number == 0 || record->isPaperspaceView() != (shown.kind == ViewportKind::sheet))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = showIn(shown, viewFrom(*record, shown));
    return status == Acad::eOk ? setUcsOf(*record) : status;
}

Acad::ErrorStatus acedRestoreCurrentView(const AcDbObjectId& namedView)
{
    AcDbObjectPointer<AcDbViewTableRecord> record(namedView);
    return record.openStatus() == Acad::eOk ? acedSetCurrentView(record, nullptr) : record.openStatus();
}

AcDbObjectId acedActiveViewportId()
{
    return ed::activeViewport().id;
}
AcDbObjectId acedGetCurViewportObjectId()
{
    return acedActiveViewportId();
}
AcDbObjectId acedGetCurrentViewportObjectId()
{
    return acedActiveViewportId();
}

Acad::ErrorStatus acedSetCurrentVPort(int number)
{
    if (!documents::current()) return Acad::eNoDocument;
    return activate(ed::viewportOfNumber(number));
}

Acad::ErrorStatus acedSetCurrentVPort(const AcDbViewport* viewport)
{
    const Acad::ErrorStatus status = checkOnLayout();
    if (status != Acad::eOk) return status;
    const auto* paper = viewport ? residentObject(documents::current()->database->currentSpaceId()) : nullptr;
    if (!paper || viewport->objectId().isErased()) return Acad::eInvalidInput;
    const Viewport wanted = ed::viewportOf(viewport->objectId());
    if (wanted.number) return activate(wanted);
    return viewport->isOn() ? Acad::eInvalidInput : Acad::eCannotChangeActiveViewport;
}

Acad::ErrorStatus acedMspace()
{
    const Acad::ErrorStatus status = checkOnLayout();
    if (status != Acad::eOk || ed::activeViewport().kind == ViewportKind::window) return status;
    const Viewport window = ed::windowToEnter();
    return window.number ? activate(window) : Acad::eCannotChangeActiveViewport;
}

Acad::ErrorStatus acedPspace()
{
    const Acad::ErrorStatus status = checkOnLayout();
    return status == Acad::eOk ? activate(ed::viewportOfNumber(1)) : status;
}

int acedNumberOfViewports()
{
    return static_cast<int>(ed::viewportsOfTab().size());
}

int acedVports(resbuf** result)
{
    if (!result || !documents::current()) return RTERROR;
    *result = nullptr;
    resbuf** end = result;
    for (const Viewport& viewport : ed::viewportsOfTab()) {
        const auto [low, high] = cornersOf(viewport);
        append(end, RTLB, {});
        append(end, RTSHORT, {static_cast<double>(viewport.number), 0.0});
        append(end, RTPOINT, low);
        append(end, RTPOINT, high);
        append(end, RTLE, {});
    }
    return RTNORM;
}

Acad::ErrorStatus acedVports2VportTableRecords()
{
    return statusOfTiles();
}
Acad::ErrorStatus acedVportTableRecords2Vports()
{
    return statusOfTiles();
}

Acad::ErrorStatus acedVPLayer(const AcDbObjectId& viewportId, const AcDbObjectIdArray& layers,
                              AcDb::VpFreezeOps operation)
{
    if (operation == AcDb::kCreateNewFreeze || operation == AcDb::kVpVisDefChange)
        return Acad::eNotImplementedYet;
    if (operation < AcDb::kFreeze || operation > AcDb::kReset || !areLayers(layers))
        return Acad::eInvalidInput;
    if (!AcDbViewport::cast(residentObject(viewportId))) return Acad::eInvalidInput;
    AcDbObjectPointer<AcDbViewport> viewport(viewportId, AcDb::kForWrite);
    if (viewport.openStatus() != Acad::eOk) return viewport.openStatus();
    if (operation == AcDb::kReset) return resetLayers(*viewport, layers);
    return setFrozen(*viewport, layers, operation == AcDb::kFreeze);
}
