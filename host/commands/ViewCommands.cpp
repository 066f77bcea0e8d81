/// ZOOM and PAN.

#include "acedinput.h"
#include "CommandTable.h"
#include "Faults.h"
#include "geassign.h"
#include "Selection.h"
#include "Status.h"
#include "ViewChange.h"

#include <cwchar>
#include <optional>

namespace
{
struct Scale {
    double factor;
    ed::ZoomBase base;
};

/// "2", "2X" or "2XP"; nothing for another text.
std::optional<Scale> scaleOf(const wchar_t* text)
{
    wchar_t* end = nullptr;
    const double factor = std::wcstod(text, &end);
    if (end == text || !(factor > 0.0)) return std::nullopt;
    if (*end == L'\0') return Scale{factor, ed::ZoomBase::limits};
    if (_wcsicmp(end, L"x") == 0) return Scale{factor, ed::ZoomBase::view};
    return _wcsicmp(end, L"xp") == 0 ? std::optional(Scale{factor, ed::ZoomBase::paper}) : std::nullopt;
}

void zoomTo(const wchar_t* text)
{
    const std::optional<Scale> scale = scaleOf(text);
    if (!scale) return ed::fail(L"Requires a positive scale (nX or nXP), a point or an option keyword.");
    commands::succeeds(ed::zoomScale(scale->factor, scale->base));
}

void askScale()
{
    wchar_t text[100];
    if (acedGetString(0, L"Enter a scale factor (nX or nXP): ", text) == RTNORM && text[0]) zoomTo(text);
}

void askWindow(const ads_point corner)
{
    ads_point opposite;
    if (acedGetCorner(corner, L"Specify opposite corner: ", opposite) != RTNORM) return;
    commands::succeeds(ed::zoomWindow(asPnt3d(corner), asPnt3d(opposite)));
}

void askFirstCorner()
{
    ads_point corner;
    acedInitGet(RSG_NONULL, nullptr);
    if (acedGetPoint(nullptr, L"Specify first corner: ", corner) == RTNORM) askWindow(corner);
}

void askCenter()
{
    ads_point center;
    ads_real height = 0.0;
    acedInitGet(RSG_NONULL, nullptr);
    if (acedGetPoint(nullptr, L"Specify center point: ", center) != RTNORM) return;
    acedInitGet(RSG_NONULL | RSG_NOZERO | RSG_NONEG, nullptr);
    if (acedGetDist(nullptr, L"Enter height: ", &height) == RTNORM)
        commands::succeeds(ed::zoomCenter(asPnt3d(center), height));
}

void askObjects()
{
    AcDbObjectIdArray ids;
    for (const AcDbObjectId id : commands::selectObjects())
        ids.append(id);
    if (!ids.isEmpty()) commands::succeeds(ed::zoomObjects(ids));
}

/// A keyword, or a scale.
void zoomBy(const std::wstring& word)
{
    if (word == L"All")
        commands::succeeds(ed::zoomAll());
    else if (word == L"Extents")
        commands::succeeds(ed::zoomExtents());
    else if (word == L"Previous")
        commands::succeeds(ed::zoomPrevious());
    else if (word == L"Window")
        askFirstCorner();
    else if (word == L"Center")
        askCenter();
    else if (word == L"Object")
        askObjects();
    else if (word == L"Scale")
        askScale();
    else
        zoomTo(word.c_str());
}

void zoom()
{
    ads_point corner;
    wchar_t word[100];
    acedInitGet(RSG_OTHER | RSG_NODDIST, L"All Center Extents Previous Scale Window Object");
    const int code = acedGetPoint(nullptr,
                                  L"Specify corner of window, enter a scale factor (nX or nXP), or\n"
                                  L"[All/Center/Extents/Previous/Scale/Window/Object]: ",
                                  corner);
    if (code == RTNORM) askWindow(corner);
    if (code == RTKWORD && acedGetInput(word) == RTNORM) zoomBy(word);
}

void pan()
{
    ads_point from, to;
    acedInitGet(RSG_NONULL, nullptr);
    if (acedGetPoint(nullptr, L"Specify base point or displacement: ", from) != RTNORM) return;
    const int code = acedGetPoint(from, L"Specify second point: ", to);
    // Enter: the first answer is how far.
    if (code == RTNONE) commands::succeeds(ed::pan(AcGePoint3d::kOrigin, asPnt3d(from)));
    if (code == RTNORM) commands::succeeds(ed::pan(asPnt3d(from), asPnt3d(to)));
}

[[maybe_unused]] const bool added = commands::add({
    {L"ZOOM", L"Z", ACRX_CMD_TRANSPARENT, zoom, L"Shows a window, the extents, or the view at another scale"},
    {L"PAN", L"P", ACRX_CMD_TRANSPARENT, pan, L"Moves the view"},
});
} // namespace
