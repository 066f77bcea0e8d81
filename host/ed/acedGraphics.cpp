#include "acedgraphics.h"

#include "acdbads.h"
#include "AdsMatrix.h"
#include "CurrentUcs.h"
#include "dbobjptr.h"
#include "DatabaseHooks.h"
#include "ScreenRecord.h"
#include "Stub.h"

#include <cmath>
#include <cstdlib>

namespace
{
constexpr int mostColor = 256;
constexpr int xorInk = -1;

bool isColor(int color)
{
    return color >= xorInk && color <= mostColor;
}

AcGePoint3d pointOf(const ads_point point)
{
    return {point[X], point[Y], point[Z]};
}

/// Reads a list of acedGrVecs; false when it is none.
bool readVectors(const resbuf* list, const AcGeMatrix3d& map, std::vector<ed::ScreenLine>& lines)
{
    int color = 7;
    const resbuf* first = nullptr;
    for (; list; list = list->rbnext) {
        if (list->restype == RTSHORT && !first) {
            color = list->resval.rint;
            if (std::abs(color) > mostColor) return false;
            continue;
        }
        if (list->restype != RTPOINT && list->restype != RT3DPOINT) return false;
        if (first)
            lines.push_back({map * pointOf(first->resval.rpoint), map * pointOf(list->resval.rpoint),
                             std::abs(color), color < 0});
        first = first ? nullptr : list;
    }
    return !first;
}

void setMode(AcDbObjectId id, int mode)
{
    ed::ScreenRecord& screen = ed::screen();
    switch (mode) {
    case 1:
        screen.hidden.erase(id);
        break;
    case 2:
        screen.hidden.insert(id);
        break;
    case 3:
        screen.highlighted.insert(id);
        break;
    default:
        screen.highlighted.erase(id);
    }
}

void showHighlight(AcDbObjectId id, bool on) { setMode(id, on ? 3 : 4); }

// An entity asks its database layer to be highlighted; the screen is here.
[[maybe_unused]] const bool highlighterIsSet = (hooks::setHighlighter(showHighlight), true);
} // namespace

int acedGrDraw(const ads_point from, const ads_point to, int color, int highlight)
{
    if (!from || !to || !isColor(color)) return RTERROR;
    const AcGeMatrix3d map = ed::ucsToWorld();
    ed::screen().lines.push_back({map * pointOf(from), map * pointOf(to), color, highlight != 0});
    return RTNORM;
}

int acedGrVecs(const resbuf* vectors, const ads_matrix matrix)
{
    std::vector<ed::ScreenLine> lines;
    const AcGeMatrix3d map = matrix ? ed::ucsToWorld() * ed::matrixOf(matrix) : ed::ucsToWorld();
    if (!vectors || !readVectors(vectors, map, lines)) return RTERROR;
    std::vector<ed::ScreenLine>& shown = ed::screen().lines;
    shown.insert(shown.end(), lines.begin(), lines.end());
    return RTNORM;
}

int acedGrText(int box, const ACHAR* text, int)
{
    if (!text || box < -2) return RTERROR;
    ed::screen().texts[box] = text;
    return RTNORM;
}

int acedRedraw(const ads_name entity, int mode)
{
    if (!entity || ads_name_nil(entity)) {
        ed::screen().lines.clear();
        return RTNORM;
    }
    AcDbObjectId id;
    if (mode < 1 || mode > 4 || acdbGetObjectId(id, entity) != Acad::eOk) return RTERROR;
    const AcDbObject* object = residentObject(id);
    if (!object || object->isErased() || !object->isKindOf(AcDbEntity::desc())) return RTERROR;
    setMode(id, mode);
    return RTNORM;
}
