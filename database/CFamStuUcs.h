#pragma once

#include "dbid.h"
#include "gemat3d.h"

#include <afxwin.h>

class AcDbEntity;

/// User coordinate systems of the current document, and points in the coordinates of its display. Members
/// return 1 for success and 0 for failure, which leaves everything as it was. Angles are in radians.
class AFX_EXT_CLASS CFamStuUcs
{
public:
    /// Adds a named system in world coordinates to the working database, or gives one of that name these
    /// axes. 0 for a name that tables refuse, axes that are not perpendicular or have no length, and when the
    /// table cannot be written.
    static int CreateUCS(CString name, const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                         const AcGeVector3d& yAxis);
    /// Makes a named system of the working database current. 0 for an unknown name.
    static int SetCurUcs(CString name);
    /// Moves the current system by a vector of its own coordinates.
    static int MoveUcsOrigin(const AcGeVector3d& offset);
    /// Turns the current system about an axis of its own coordinates through its origin. 0 for an axis
    /// without length.
    static int RotateUcs(double angle, const AcGeVector3d& axis = AcGeVector3d::kZAxis);
    /// Makes the world's system current.
    static int returnToWcs();

    /// Takes a new entity from the current system to the world and adds it to the current space of the
    /// working database; `id` is its id, and it is closed. On failure it stays the caller's, as it was, and
    /// `id` is null.
    static int AddEntInUcs(AcDbEntity* entity, AcDbObjectId& id);

    /// Looks at the drawing from a direction (towards the eye, in the current system). The middle of the
    /// view, its size and its other properties stay; the twist becomes 0. 0 for a direction without length.
    static int setViewDirection(const AcGeVector3d& direction);

    // Points in place: the world (WCS), the display of the active viewport (DCS) and that of the paper
    // (PSDCS), which is there only while a viewport of a layout is active.

    static int DCSToWCS(AcGePoint3d& point);
    static int WcsToDCS(AcGePoint3d& point);
    static int PSDCSToDCS(AcGePoint3d& point);
    static int PSDCSToWCS(AcGePoint3d& point);
    static int WcsToPSDCS(AcGePoint3d& point);
};
