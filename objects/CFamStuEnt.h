#pragma once

#include "acadstrc.h"
#include "dbid.h"
#include "dbidar.h"
#include "gept3dar.h"
#include "gepnt3d.h"

#include <afxwin.h>

class AcDb2dPolyline;
class AcDbEntity;
class AcDbExtents;
class AcDbPolyline;

/// The points and extents of entities, in world coordinates. All members are static; output arrays are appended to
/// and never cleared, and every object that is opened by its id is closed again.
class AFX_EXT_CLASS CFamStuEnt
{
public:
    /// The vertices of a lightweight polyline. When it is closed and `closeFlag` is not 0, the first point of the
    /// array follows once more, which is the first vertex when the array came in empty. Returns 1; 0 for null, an
    /// object that cannot be opened or is no such polyline, or a vertex that cannot be read: the points appended
    /// before it stay.
    static int GetPolylinePoints(AcDbPolyline* polyline, AcGePoint3dArray& points, int closeFlag);
    static int GetPolylinePoints(AcDbObjectId id, AcGePoint3dArray& points, int closeFlag);

    /// The vertices of an old-style polyline in order. Of a spline-fitted one these are the points of the
    /// curve; its frame of control points is left out. When the polyline is closed and `closeFlag` is not 0,
    /// its first vertex follows once more. Returns 1; 0 for null or a vertex that cannot be opened: the
    /// points appended before it stay.
    static int Get2dPolylinePoints(AcDb2dPolyline* polyline, AcGePoint3dArray& points, int closeFlag);

    /// The points that define a curve: the vertices of a lightweight polyline; those of an old-style 2D
    /// polyline, whose first vertex follows again when it is closed, whatever `closeFlag` says; start and end
    /// of a line, an arc, an elliptical arc and a circle (the same point twice); the control points of a
    /// spline. A 3D polyline gives none. Returns 1 when the array then holds what the class promises (a
    /// polyline: a point; a spline: two), also when that was there before; 0 for other classes, for a curve
    /// that has no ends (a new ellipse), of which nothing is appended, and for an object that cannot be
    /// opened.
    static int GetCurvePoints(AcDbObjectId id, AcGePoint3dArray& points, int closeFlag);
    /// The same for an open entity, which stays open; 0 for null.
    static int GetCurvePoints(AcDbEntity* entity, AcGePoint3dArray& points, int closeFlag);

    /// The extents of several entities together. Those that have none add nothing. Returns the status of the last
    /// entity, not of the whole list; eNullObjectId, and `extents` as they were, for an empty list.
    static Acad::ErrorStatus GetEntExtents(AcDbExtents& extents, AcDbObjectIdArray ids);
    /// The geometric extents of an entity; of a block reference that has none of its own, those of its
    /// contents. On failure the status, and `extents` as they were; eInvalidExtents for coordinates that are
    /// not finite.
    static Acad::ErrorStatus GetEntExtents(AcDbExtents& extents, AcDbObjectId id);
    /// Adds points to the extents, which are not reset before; those with a coordinate that is not finite are
    /// passed over. Returns 1.
    static int GetEntExtents(AcDbExtents& extents, AcGePoint3dArray points);

    /// The extents of the contents of a block reference, entity by entity, in all rows and columns, with
    /// those of blocks in it and the attributes that are seen; entities without extents (rays, construction
    /// lines, empty texts) are passed over, and so is a block within itself. eInvalidExtents when none has
    /// any or its place is no number, eNullObjectPointer for null, eNotThatKindOfClass for another entity,
    /// and the status of a block definition that cannot be opened; `extents` stay as they were then.
    static Acad::ErrorStatus getBlkRefExtByFilerError(AcDbEntity* reference, AcDbExtents& extents);

    /// Where a point lies against the segment from a to b, to 1e-4 in distance and angle; the angles are
    /// those in plan. 1: at a. 2: at b. 3: between them. With `extend` not 0 also 4: on the extension beyond
    /// b, and 5: on that beyond a. 0: elsewhere, also above or below an end, beside a segment without length
    /// in plan, and for coordinates that are not finite.
    static int JudgePointOnLine(AcGePoint3d a, AcGePoint3d b, AcGePoint3d p, int extend);
};
