#pragma once

/// Points between the world (WCS), the current user coordinate system (UCS) and those of entities (ECS, also
/// called OCS), which follow from a normal by the arbitrary axis rule of the DXF reference.

#include "adsdef.h"
#include "gemat3d.h"

class AcDbDatabase;

/// The map from the current UCS of a database (null: the working one) to the world: that of the space one
/// works in. False, and the identity, when there is no database.
bool acdbUcsMatrix(AcGeMatrix3d& matrix, AcDbDatabase* database = nullptr);

// From `from` to `to`, which may be the same; with `isVector` as displacements, which have no origin. The UCS
// is that of the working database. False, and `to` unchanged, for null, coordinates that are not finite, a
// normal without length, or when there is no database.

bool acdbUcs2Wcs(const ads_point from, ads_point to, bool isVector);
bool acdbWcs2Ucs(const ads_point from, ads_point to, bool isVector);
bool acdbEcs2Wcs(const ads_point from, ads_point to, const ads_point normal, bool isVector);
bool acdbWcs2Ecs(const ads_point from, ads_point to, const ads_point normal, bool isVector);
bool acdbEcs2Ucs(const ads_point from, ads_point to, const ads_point normal, bool isVector);
bool acdbUcs2Ecs(const ads_point from, ads_point to, const ads_point normal, bool isVector);
