#pragma once

/// The text form of solid modeller data (SAT) in which drawing files keep regions: planar faces bounded by
/// lines, circles, ellipses and splines, versions 400 to 700. The records and their fields are those of the
/// SAT save file format (J. Corney and T. Lim, 3D Modeling with ACIS, 2001, appendix).

#include "Region.h"

#include <string>

namespace kernel
{
enum class AcisStatus : char {
    kOk,
    kNoHeader,   ///< the first lines are not those of such a text
    kVersion,    ///< older than 400, or newer than 700
    kDamaged,    ///< a record is missing, cut off, or of the wrong kind; a number is none
    kUnsupported ///< a surface that is no plane, or a curve of another kind
};

/// The faces of all bodies in the world's coordinates. The faces of one region have one normal.
struct AcisFaces {
    std::vector<FaceCurves> faces;
    AcGeVector3d normal{0, 0, 1};
};

/// Reads the lines of a text that is not coded. On failure `result` is unchanged and `line` (when given)
/// holds the number, from 1, of a line at or before the fault.
AcisStatus readAcisText(const std::vector<std::string>& lines, AcisFaces& result, int* line = nullptr);

/// One line for each record; numbers come back exactly. `version` is 400 or 700; others write 400. An empty
/// region is a text without bodies.
std::vector<std::string> writeAcisText(const Region& region, int version = 400);

/// The coding of drawing files for these texts, which is its own inverse: each printable character c but the
/// space becomes 159 - c.
std::string acisCoded(std::string text);

/// A coded text as groups of a drawing file: code 1 starts a line, code 3 goes on with it.
struct AcisGroup {
    short code = 1;
    std::string text;
};
std::vector<AcisGroup> acisGroups(const std::vector<std::string>& lines);
std::vector<std::string> acisLines(const std::vector<AcisGroup>& groups);
} // namespace kernel
