#include "GridOrder.h"

#include "GridProposal.h"

#include "QmCADLib.h"

#include "acdbads.h"
#include "arxHeaders.h"
#include "geassign.h"

namespace
{
constexpr int textSize = 512;
constexpr int noZero = 2, noNegative = 4;

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
        case RTNORM:
            order.origin = asPnt3d(picked);
            return true;
        case RTNONE:
            return true;
        case RTKWORD:
            break;
        default:
            return false;
        }
        const int answer = acedGetAngle(nullptr, L"\n指定轴网转角 <0>: ", &order.rotation);
        if (answer == RTNONE) order.rotation = 0.0;
        if (answer != RTNORM && answer != RTNONE) return false;
        order.origin = proposedOrigin(order);
    }
}

/// Asks again until the answer is a list of distances, or Enter.
bool askSpacings(const wchar_t* what, std::vector<double>& spacings)
{
    CString prompt;
    prompt.Format(L"\n%s，如 3*6000 4500 <%s>: ", what, spacingsText(spacings).GetString());
    for (;;) {
        ACHAR typed[textSize] = {};
        if (acedGetString(1, prompt, typed, textSize) != RTNORM) return false;
        const CString text = CString(typed).Trim();
        if (text.IsEmpty() || readSpacings(text, spacings)) return true;
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

bool askGridOrder(GridOrder& order)
{
    return askPlace(order) && askSpacings(L"开间 (从左到右)", order.grid.columns) &&
           askSpacings(L"进深 (从下到上)", order.grid.rows) && askLabels(order.grid) && askLook(order);
}
