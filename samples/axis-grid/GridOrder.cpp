#include "GridOrder.h"

#include "QmCADLib.h"

#include "acdbads.h"
#include "arxHeaders.h"
#include "geassign.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr int textSize = 512;
constexpr int noZero = 2, noNegative = 4;

// Modules of a plan, in millimetres.
constexpr double metricModule = 300.0, foot = 304.8;

/// A unit that plans are drawn in.
struct PlanUnit {
    int insUnits;
    double perMillimetre;
    double module;
};
constexpr PlanUnit planUnits[] = {
    {1, 1.0 / 25.4, foot}, {2, 1.0 / foot, foot}, {4, 1.0, metricModule}, {5, 0.1, metricModule}, {6, 0.001, metricModule},
};

/// What INSUNITS names; null for none, and for units that no plan is drawn in.
const PlanUnit* unitOfDrawing()
{
    int unit = 0;
    CFamStuSysVar::Get(L"INSUNITS", unit);
    const auto found = std::find_if(std::begin(planUnits), std::end(planUnits),
                                    [unit](const PlanUnit& one) { return one.insUnits == unit; });
    return found == std::end(planUnits) ? nullptr : found;
}

/// The power of ten by which a grid is just not larger than a drawing; 1 while it is a building on a site.
double factorThatFits(double gridSize, double drawingSize)
{
    const double share = gridSize / drawingSize;
    if (share > 0.02 && share < 2.0) return 1.0;
    return std::pow(10.0, -std::ceil(std::log10(share)));
}

/// Makes the bays longer, and the millimetres of the paper with them.
void enlarge(GridOrder& order, double factor)
{
    for (std::vector<double>* spacings : {&order.grid.columns, &order.grid.rows}) {
        for (double& spacing : *spacings) spacing *= factor;
    }
    order.scale *= factor;
}

GridOrder orderOfModules(const PlanUnit* unit)
{
    GridOrder order;
    order.unit = unit ? unit->perMillimetre : 1.0;
    const double module = (unit ? unit->module : metricModule) * order.unit;
    order.grid.columns.assign(4, 22.0 * module);
    order.grid.rows = {20.0 * module, 8.0 * module, 20.0 * module};
    return order;
}

/// A point of the world in the user coordinate system.
AcGePoint3d inUcs(const AcGePoint3d& point)
{
    resbuf world = {}, ucs = {};
    world.restype = ucs.restype = RTSHORT;
    ucs.resval.rint = 1;
    ads_point mapped = {};
    return acedTrans(asDblArray(point), &world, &ucs, 0, mapped) == RTNORM ? asPnt3d(mapped) : point;
}

/// A point as the units of the drawing have it.
CString pointText(const AcGePoint3d& point)
{
    ACHAR x[textSize] = {}, y[textSize] = {};
    if (acdbRToS(point.x, -1, -1, x) != RTNORM || acdbRToS(point.y, -1, -1, y) != RTNORM) return CString();
    return CString(x) + L"," + y;
}

/// The origin, with the rotation as a keyword before it.
bool askPlace(GridOrder& order)
{
    for (;;) {
        acedInitGet(0, L"Rotation");
        CString prompt;
        prompt.Format(L"\n指定轴网原点或 [转角(R)] <%s>: ", pointText(order.origin).GetString());
        ads_point picked = {};
        switch (acedGetPoint(nullptr, prompt, picked)) {
        case RTNORM: order.origin = asPnt3d(picked); return true;
        case RTNONE: return true;
        case RTKWORD: break;
        default: return false;
        }
        const int answer = acedGetAngle(nullptr, L"\n指定轴网转角 <0>: ", &order.rotation);
        if (answer == RTNONE) order.rotation = 0.0;
        if (answer != RTNORM && answer != RTNONE) return false;
    }
}

/// Asks again until the answer is a list of distances.
bool askSpacings(const wchar_t* what, std::vector<double>& spacings)
{
    const CString preset = spacingsText(spacings);
    CString prompt;
    prompt.Format(L"\n%s，如 3*6000 4500 <%s>: ", what, preset.GetString());
    for (;;) {
        ACHAR typed[textSize] = {};
        if (acedGetString(1, prompt, typed, textSize) != RTNORM) return false;
        const CString text = CString(typed).Trim();
        if (readSpacings(text.IsEmpty() ? preset : text, spacings)) return true;
        acutPrintf(L"\n距离须为大于 0 的数，如 3*6000 4500，最多 200 个。");
    }
}

bool askLabels(AxisGrid& grid)
{
    acedInitGet(noZero | noNegative, nullptr);
    const int answer = acedGetInt(L"\n横向起始编号 <1>: ", &grid.firstNumber);
    if (answer != RTNORM && answer != RTNONE) return false;
    for (;;) {
        ACHAR typed[textSize] = {};
        if (acedGetString(0, L"\n纵向起始编号 <A>: ", typed, textSize) != RTNORM) return false;
        grid.firstLetter = typed[0] ? axisLetterIndex(typed) : 0;
        if (grid.firstLetter >= 0) return true;
        acutPrintf(L"\n须为一个字母，I、O、Z 除外。");
    }
}

bool askScale(double& scale)
{
    acedInitGet(noZero | noNegative, nullptr);
    CString prompt;
    prompt.Format(L"\n出图比例 1:<%s>: ", CFamStuStr::FormatDouble(scale).GetString());
    const int answer = acedGetReal(prompt, &scale);
    return answer == RTNORM || answer == RTNONE;
}

/// One of the keywords; the first one for Enter. An empty text when the user cancels.
CString askKeyword(const wchar_t* prompt, const wchar_t* keywords)
{
    ACHAR chosen[textSize] = {};
    acedInitGet(0, keywords);
    const int answer = acedGetKword(prompt, chosen, textSize);
    if (answer == RTNONE) return CString(keywords).SpanExcluding(L" ");
    return answer == RTNORM ? CString(chosen) : CString();
}

bool askLook(GridOrder& order)
{
    if (!askScale(order.scale)) return false;
    const CString pattern = askKeyword(L"\n填充图案 [斜线(A)/网格(N)/无(W)] <斜线>: ", L"Ansi31 Net Without");
    if (pattern.IsEmpty()) return false;
    order.hatchPattern = pattern == L"Without" ? CString() : CString(pattern).MakeUpper();
    const CString coordinates = askKeyword(L"\n标注轴线坐标? [是(Y)/否(N)] <是>: ", L"Yes No");
    order.hasCoordinates = coordinates == L"Yes";
    return !coordinates.IsEmpty();
}
} // namespace

GridOrder proposedOrder()
{
    const PlanUnit* const unit = unitOfDrawing();
    GridOrder order = orderOfModules(unit);
    AcGePoint3d min, max;
    CFamStuSysVar::Get(L"EXTMIN", min);
    CFamStuSysVar::Get(L"EXTMAX", max);
    const double size = std::max(max.x - min.x, max.y - min.y);
    if (!(size > 0.0)) return order; // nothing is drawn yet
    const double factor = factorThatFits(order.grid.width(), size);
    enlarge(order, factor);
    if (!unit) {
        order.unit = factor;
        order.scale /= factor;
    }
    order.origin = inUcs(AcGePoint3d(max.x + order.grid.width() / 2.0, min.y, 0.0));
    order.origin.z = 0.0;
    return order;
}

bool askGridOrder(GridOrder& order)
{
    return askPlace(order) && askSpacings(L"开间 (从左到右)", order.grid.columns) &&
           askSpacings(L"进深 (从下到上)", order.grid.rows) && askLabels(order.grid) && askLook(order);
}
