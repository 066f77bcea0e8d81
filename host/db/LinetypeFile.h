#pragma once

/// Linetype definition files (*.lin): "*NAME,description" and a line "A,12.7,-6.35,0,-6.35" for each type,
/// where texts stand in brackets behind the gap that they lie in. Source: the documentation of custom
/// linetypes of AutoCAD.

#include "dblinetp.h"

#include <memory>
#include <vector>

namespace linetypefile
{
/// A type as the file has it, not understood yet.
struct Definition {
    CString name, description, pattern;
};

/// The definitions of a file in their order; eFileNotFound, eFileAccessErr.
Acad::ErrorStatus read(const ACHAR* path, std::vector<Definition>& definitions);

/// A new record of a definition. Texts take their styles from the drawing. eBadLinetypeName when the
/// definition is damaged, eUndefineShapeName for a shape or an unknown text style; null then.
Acad::ErrorStatus make(const Definition& definition, const AcDbDatabase& database,
                       std::unique_ptr<AcDbLinetypeTableRecord>& record);
} // namespace linetypefile
