#pragma once

/// The current user coordinate system of a drawing. Model space and paper space have one each; viewports of
/// model space may keep theirs until they become current.

#include "dbdatabase.h"
#include "gemat3d.h"

class AcDbViewport;

namespace frames
{
/// The viewport of the current layout in which one works; null on the model tab and on the sheet itself.
const AcDbViewport* activeWindow(const AcDbDatabase& database);
/// Whether one works in paper space: on the sheet of a layout, and not in one of its viewports.
bool isOnPaper(const AcDbDatabase& database);
/// The name of a header variable in the current space: "$UCSORG" is "$PUCSORG" on paper.
std::string variableOfSpace(const AcDbDatabase& database, const char* name);

/// The map from the current system to the world. A damaged one counts as the world's.
AcGeMatrix3d current(const AcDbDatabase& database);
/// Makes a system current, under its name in the UCS table (empty: it has none). `ucsToWorld` is orthonormal.
void setCurrent(AcDbDatabase& database, const AcGeMatrix3d& ucsToWorld, const CString& name);
/// The name of the current system; empty when it has none.
CString currentName(const AcDbDatabase& database);
} // namespace frames
