#pragma once

/// Changes of the active viewport's view: what ZOOM, PAN and PLAN do.
///
/// Points are in the current UCS, as the input functions give them. Each change is remembered for
/// zoomPrevious. In a window whose scale is locked, zooming changes the view of the sheet around it instead.
/// Results: eOk; eNoDocument; eInvalidInput for a view that cannot be (points that are the same, a factor or
/// height that is not above 0, nothing to show); otherwise what opening the viewport gives. Nothing is
/// changed then.

#include "dbextent.h"
#include "dbidar.h"
#include "Viewports.h"

namespace ed
{
/// Makes a view that of the active viewport. `isZoom`: only the centre and the height differ from what is
/// there.
Acad::ErrorStatus changeView(const DisplayView& view, bool isZoom = true);

/// Shows all of a window between two corners.
Acad::ErrorStatus zoomWindow(const AcGePoint3d& corner, const AcGePoint3d& opposite);
/// Shows everything in the space, or its limits when it is empty; EXTMIN and EXTMAX are computed anew.
/// Entities on frozen layers do not count, nor those without an end.
Acad::ErrorStatus zoomExtents();
/// Shows the limits and everything beyond them.
Acad::ErrorStatus zoomAll();
Acad::ErrorStatus zoomObjects(const AcDbObjectIdArray& entities);
enum class ZoomBase {
    limits, ///< of what shows all of the limits (2)
    view,   ///< of the view that is (2X)
    paper   ///< paper units per drawing unit (2XP): only in windows, elsewhere as `view`
};
/// The centre stays.
Acad::ErrorStatus zoomScale(double factor, ZoomBase base);
Acad::ErrorStatus zoomCenter(const AcGePoint3d& center, double height);
/// The view before the last change; eNotApplicable when there is none.
Acad::ErrorStatus zoomPrevious();
/// Moves what is seen from one point to another.
Acad::ErrorStatus pan(const AcGePoint3d& from, const AcGePoint3d& to);
/// Looks down the Z axis of a coordinate system (its map to the world) and shows everything.
Acad::ErrorStatus showPlan(const AcGeMatrix3d& system);

/// The box around the entities of a space in the world; empty when there is nothing.
AcDbExtents extentsOf(AcDbObjectId space);
} // namespace ed
