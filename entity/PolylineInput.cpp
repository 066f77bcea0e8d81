#include "PolylineInput.h"

#include "acedads.h"

#include <afxwin.h>

namespace entity
{
namespace
{
constexpr int shownColor = 7;

/// Wipes away at its end what was drawn on the screen while it lived.
class ScreenLines
{
public:
    ScreenLines() = default;
    ScreenLines(const ScreenLines&) = delete;
    ScreenLines& operator=(const ScreenLines&) = delete;
    ~ScreenLines() { wipe(); }

    void show(const AcGePoint3dArray& points)
    {
        wipe();
        m_isDrawn = points.length() > 1 && showLines(points, shownColor, false);
    }

private:
    void wipe()
    {
        constexpr int wholeViewport = 0;
        if (m_isDrawn) acedRedraw(nullptr, wholeViewport);
        m_isDrawn = false;
    }

    bool m_isDrawn = false;
};

/// Asks for one point; with some points already the keywords are allowed that make sense.
int askPoint(const AcGePoint3dArray& points, ads_point answer)
{
    if (points.isEmpty()) return acedGetPoint(nullptr, L"\n指定起点: ", answer);
    const bool canClose = points.length() > 2;
    acedInitGet(0, canClose ? L"Close Undo" : L"Undo");
    const AcGePoint3d& last = points.last();
    const ads_point base = {last.x, last.y, last.z};
    return acedGetPoint(
        base, canClose ? L"\n指定下一点或 [闭合(C)/放弃(U)]: " : L"\n指定下一点或 [放弃(U)]: ", answer);
}

bool isKeyword(const wchar_t* keyword)
{
    ACHAR text[16] = {};
    return acedGetInput(text) == RTNORM && CString(text) == keyword;
}

void append(AcGePoint3dArray& points, const ads_point answer)
{
    const double height = points.isEmpty() ? answer[Z] : points.first().z;
    points.append(AcGePoint3d(answer[X], answer[Y], height));
}
} // namespace

DrawnPoints askPolyline()
{
    DrawnPoints drawn;
    ScreenLines lines;
    while (true) {
        ads_point answer = {};
        const int result = askPoint(drawn.points, answer);
        if (result == RTNORM) {
            append(drawn.points, answer);
        } else if (result == RTKWORD && isKeyword(L"Undo")) {
            drawn.points.removeLast();
        } else {
            if (result == RTKWORD) drawn.end = DrawnEnd::closed;
            if (result == RTNONE && !drawn.points.isEmpty()) drawn.end = DrawnEnd::done;
            return drawn;
        }
        lines.show(drawn.points);
    }
}

bool showLines(const AcGePoint3dArray& points, int color, bool closed)
{
    constexpr int highlight = 0;
    const bool returns = closed && points.length() > 2; // the way back of two points is the way there
    const int count = returns ? points.length() : points.length() - 1;
    bool isShown = true;
    for (int i = 0; isShown && i < count; ++i) {
        const AcGePoint3d &start = points[i], &end = points[(i + 1) % points.length()];
        const ads_point from = {start.x, start.y, start.z}, to = {end.x, end.y, end.z};
        isShown = acedGrDraw(from, to, color, highlight) == RTNORM;
    }
    return isShown;
}
} // namespace entity
