#include "GridOrder.h"

#include "QmCADLib.h"

#include "arxHeaders.h"
#include "geassign.h"

#include <cmath>

namespace
{
constexpr int textSize = 512;
constexpr int noZero = 2, noNegative = 4;

/// Drawing units for a millimetre, from INSUNITS; 0 for those that a plan is not drawn in, and for none.
double unitOfDrawing()
{
    int unit = 0;
    CFamStuSysVar::Get(L"INSUNITS", unit);
    switch (unit) {
    case 1: return 1.0 / 25.4;
    case 2: return 1.0 / 304.8;
    case 4: return 1.0;
    case 5: return 0.1;
    case 6: return 0.001;
    default: return 0.0;
    }
}

/// The power of ten with which a grid is about as large as a drawing.
double unitThatFits(double gridSize, double drawingSize)
{
    return std::pow(10.0, std::round(std::log10(drawingSize / gridSize)));
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

/// The origin, with the rotation as a keyword before it.
bool askPlace(GridOrder& order)
{
    for (;;) {
        acedInitGet(0, L"Rotation");
        CString prompt;
        prompt.Format(L"\n指定轴网原点或 [转角(R)] <%g,%g>: ", order.origin.x, order.origin.y);
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
    prompt.Format(L"\n%s，如 3*6600 6000 <%s>: ", what, preset.GetString());
    for (;;) {
        ACHAR typed[textSize] = {};
        if (acedGetString(1, prompt, typed, textSize) != RTNORM) return false;
        const CString text = CString(typed).Trim();
        if (readSpacings(text.IsEmpty() ? preset : text, spacings)) return true;
        acutPrintf(L"\n距离须为大于 0 的数，最多 200 个。");
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
    prompt.Format(L"\n出图比例 1:<%g>: ", scale);
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
    GridOrder order;
    order.grid.columns.assign(4, 6600.0);
    order.grid.rows = {6000.0, 2400.0, 6000.0};
    AcGePoint3d min, max;
    CFamStuSysVar::Get(L"EXTMIN", min);
    CFamStuSysVar::Get(L"EXTMAX", max);
    const bool isEmpty = !(max.x > min.x);
    order.unit = unitOfDrawing();
    if (order.unit == 0.0) order.unit = isEmpty ? 1.0 : unitThatFits(order.grid.width(), max.x - min.x);
    for (double& spacing : order.grid.columns) spacing *= order.unit;
    for (double& spacing : order.grid.rows) spacing *= order.unit;
    if (!isEmpty) order.origin = inUcs(AcGePoint3d(max.x + order.grid.width() / 2.0, min.y, 0.0));
    return order;
}

bool askGridOrder(GridOrder& order)
{
    return askPlace(order) && askSpacings(L"开间 (从左到右)", order.grid.columns) &&
           askSpacings(L"进深 (从下到上)", order.grid.rows) && askLabels(order.grid) && askLook(order);
}
