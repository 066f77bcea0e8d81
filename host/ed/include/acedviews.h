#pragma once

/// Coordinate systems, views and viewports of the current document.
///
/// Model space is shown in tiles of the model tab (TILEMODE 1; AcDbViewportTableRecord "*Active"), and in
/// windows of layouts (AcDbViewport); a layout's own viewport, number 1, shows its sheet. Views belong to the
/// editor: changing one needs no lock.

#include "acadstrc.h"
#include "adsdef.h"
#include "dbid.h"
#include "dbidar.h"
#include "dbxutil.h"
#include "gemat3d.h"

class AcDbViewport;
class AcDbViewTableRecord;

/// Takes a point (with `displacement` not 0: a vector) from one coordinate system to another. Each is given
/// by a node: an integer 0 (world), 1 (current UCS), 2 (display, DCS, of the active viewport) or 3 (the
/// display system of paper space, PSDCS), an entity (its object coordinates), or a point that is the normal
/// of object coordinates. 3 goes together with 2 only, while a window of a layout is active: x and y are
/// scaled and moved, z is scaled. In a perspective, points of the DCS are where they are seen; displacements
/// are taken in parallel. `result` may be `point`. RTERROR, and `result` unchanged, for all else, null, and
/// coordinates that are not finite.
int acedTrans(const ads_point point, const resbuf* from, const resbuf* to, int displacement,
              ads_point result);

// The user coordinate system, as its map to the world. Model space and paper space have one each.

/// eInvalidInput unless the axes have a length, are perpendicular, and right-handed; their lengths do not
/// count. The system has no name then. eNoDocument.
Acad::ErrorStatus acedSetCurrentUCS(const AcGeMatrix3d& ucsToWorld);
Acad::ErrorStatus acedGetCurrentUCS(AcGeMatrix3d& ucsToWorld);
/// The system before the last change, of the ten last; eNotApplicable when there is none.
Acad::ErrorStatus acedRestorePreviousUCS();

// Views.

/// Makes a view that of a viewport of the current layout (null: the active viewport). All of the view is
/// seen: its height grows where the viewport is narrower. A coordinate system that belongs to the view
/// becomes current. eInvalidInput for null, for a view of the other space (isPaperspaceView), for a viewport
/// on the model tab or of another layout; eNoDocument; the statuses of opening the viewport, unless it is
/// open for write.
Acad::ErrorStatus acedSetCurrentView(AcDbViewTableRecord* view, AcDbViewport* viewport);
/// The same with a view of the view table, in the active viewport.
Acad::ErrorStatus acedRestoreCurrentView(const AcDbObjectId& namedView);

// Viewports.

/// The record or viewport that is active; null when there is no document.
AcDbObjectId acedActiveViewportId();
AcDbObjectId acedGetCurViewportObjectId();
AcDbObjectId acedGetCurrentViewportObjectId();
/// Makes the viewport of a number active (CVPORT): on a layout 1 is the sheet. eInvalidInput when there is
/// none.
Acad::ErrorStatus acedSetCurrentVPort(int number);
/// The same with a viewport of the current layout. eNotInPaperspace on the model tab; eInvalidInput;
/// eCannotChangeActiveViewport for one that is off.
Acad::ErrorStatus acedSetCurrentVPort(const AcDbViewport* viewport);
/// Goes into the window that was active last, or the first one. eNotInPaperspace on the model tab;
/// eCannotChangeActiveViewport for a layout without windows.
Acad::ErrorStatus acedMspace();
/// Goes back to the sheet. eNotInPaperspace on the model tab.
Acad::ErrorStatus acedPspace();
/// How many viewports the tab shows, a layout's sheet among them.
int acedNumberOfViewports();
/// The viewports of the tab, the active one first, as a list that the caller releases: each is RTLB, its
/// number, its lower left and upper right corners (of the screen from 0,0 to 1,1; on layouts of the paper),
/// RTLE. RTERROR for null or without a document.
int acedVports(resbuf** result);
/// The tiles and their records ("*Active") are the same thing here: eOk, and nothing to do. eNoDocument;
/// eNotApplicable on layouts.
Acad::ErrorStatus acedVports2VportTableRecords();
Acad::ErrorStatus acedVportTableRecords2Vports();

namespace AcDb
{
enum VpFreezeOps { kFreeze = 0, kThaw = 1, kReset = 2, kCreateNewFreeze = 3, kVpVisDefChange = 4 };
} // namespace AcDb

/// Freezes layers in one viewport, thaws them, or gives them the state that new viewports have (kReset).
/// eInvalidInput for what is no viewport or no layer; the statuses of opening the viewport for write;
/// eNotImplementedYet for the other operations. Nothing is changed then.
Acad::ErrorStatus acedVPLayer(const AcDbObjectId& viewport, const AcDbObjectIdArray& layers,
                              AcDb::VpFreezeOps operation);
