#pragma once

/// What would be on the screen beside the drawing.

#include "acgi.h"
#include "dbentity.h"

#include <map>
#include <set>

namespace ed
{
/// A temporary line, in the world.
struct ScreenLine {
    AcGePoint3d from, to;
    int color;
    bool highlighted;
};

/// One thing that an entity drew, by the points that define it, in the world.
struct DrawnShape {
    enum class Kind { polyline, area, circle, arc, curve, endless, mark, text };
    Kind kind;
    std::vector<AcGePoint3d> points;
    std::wstring text;
};

struct ScreenRecord {
    std::vector<ScreenLine> lines;
    std::map<int, std::wstring> texts; ///< of acedGrText, by box
    std::set<AcDbObjectId> hidden, highlighted;
    std::vector<AcGeMatrix3d> dragged; ///< what acedDragGen showed its set under, one after the other
    std::vector<std::vector<DrawnShape>> images; ///< what jigs drew, one after the other
};

ScreenRecord& screen();
std::vector<DrawnShape> imageOf(const AcDbEntity& entity);
} // namespace ed
