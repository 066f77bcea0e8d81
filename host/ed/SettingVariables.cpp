#include "SettingVariables.h"

#include <limits>

namespace
{
using ed::Kept;
using ed::VariableInfo;

/// A whole number between two others.
struct Setting {
    const wchar_t* name;
    Kept kept;
    const wchar_t* value;
    double least, most;
};

constexpr double any = std::numeric_limits<double>::infinity();

VariableInfo text(const wchar_t* name, Kept kept, const wchar_t* value, bool isReadOnly = false)
{
    return {name, RTSTR, kept, value, -any, any, isReadOnly};
}

// clang-format off
// Defaults and ranges are those of AutoCAD's documentation for metric drawings.
constexpr Setting settings[] = {
        // of the profile
        {L"ATTIPE", Kept::registry, L"0", 0, 1}, {L"ATTMULTI", Kept::registry, L"1", 0, 1},
        {L"AUDITCTL", Kept::registry, L"0", 0, 1}, {L"AUTODWFPUBLISH", Kept::registry, L"0", 0, 1},
        {L"CALCINPUT", Kept::registry, L"1", 0, 1}, {L"CLIPROMPTLINES", Kept::registry, L"3", 0, 50},
        {L"CROSSINGAREACOLOR", Kept::registry, L"100", 1, 255}, {L"CULLINGOBJ", Kept::registry, L"1", 0, 1},
        {L"CULLINGOBJSELECTION", Kept::registry, L"0", 0, 1}, {L"CURSORBADGE", Kept::registry, L"2", 1, 2},
        {L"CURSORTYPE", Kept::registry, L"0", 0, 1}, {L"DIMCONTINUEMODE", Kept::registry, L"1", 0, 1},
        {L"DWGCHECK", Kept::registry, L"1", 0, 3}, {L"DYNDIGRIP", Kept::registry, L"31", 0, 31},
        {L"DYNINFOTIPS", Kept::registry, L"1", 0, 1}, {L"DYNPIFORMAT", Kept::registry, L"0", 0, 1},
        {L"DYNPIVIS", Kept::registry, L"1", 0, 2}, {L"DYNTOOLTIPS", Kept::registry, L"1", 0, 1},
        {L"FIELDDISPLAY", Kept::registry, L"1", 0, 1}, {L"FULLPLOTPATH", Kept::registry, L"1", 0, 1},
        {L"GRIPDYNCOLOR", Kept::registry, L"140", 1, 255}, {L"GRIPHOVER", Kept::registry, L"11", 1, 255},
        {L"GRIPMULTIFUNCTIONAL", Kept::registry, L"3", 0, 3}, {L"GRIPSUBOBJMODE", Kept::registry, L"1", 0, 3},
        {L"GRIPTIPS", Kept::registry, L"1", 0, 1}, {L"GROUPDISPLAYMODE", Kept::registry, L"2", 0, 2},
        {L"HPBOUND", Kept::registry, L"1", 0, 1}, {L"HPISLANDDETECTIONMODE", Kept::registry, L"1", 0, 1},
        {L"HPMAXLINES", Kept::registry, L"1000000", 100, 10000000},
        {L"HPOBJWARNING", Kept::registry, L"10000", 1, 1073741823}, {L"HPORIGINMODE", Kept::registry, L"0", 0, 5},
        {L"HPQUICKPREVIEW", Kept::registry, L"1", 0, 1}, {L"IMAGEHLT", Kept::registry, L"0", 0, 1},
        {L"INPUTHISTORYMODE", Kept::registry, L"15", 0, 15},
        {L"INPUTSEARCHDELAY", Kept::registry, L"300", 100, 10000},
        {L"INTELLIGENTUPDATE", Kept::registry, L"20", 0, 100}, {L"LAYERDLGMODE", Kept::registry, L"1", 0, 1},
        {L"LAYERNOTIFY", Kept::registry, L"0", 0, 63}, {L"LAYLOCKFADECTL", Kept::registry, L"50", -90, 90},
        {L"LAYOUTTAB", Kept::registry, L"1", 0, 1}, {L"LEGACYCTRLPICK", Kept::registry, L"2", 0, 2},
        {L"LINESMOOTHING", Kept::registry, L"1", 0, 1}, {L"LTGAPSELECTION", Kept::registry, L"0", 0, 1},
        {L"MTEXTAUTOSTACK", Kept::registry, L"1", 0, 1}, {L"MTEXTCOLUMN", Kept::registry, L"2", 0, 2},
        {L"MTEXTTOOLBAR", Kept::registry, L"2", 0, 2}, {L"NAVBARDISPLAY", Kept::registry, L"1", 0, 1},
        {L"NAVVCUBEDISPLAY", Kept::registry, L"3", 0, 3}, {L"OLEHIDE", Kept::registry, L"0", 0, 3},
        {L"OLEQUALITY", Kept::registry, L"3", 0, 3}, {L"OSNAPHATCH", Kept::registry, L"0", 0, 1},
        {L"PALETTEOPAQUE", Kept::registry, L"0", 0, 3}, {L"PLOTOFFSET", Kept::registry, L"0", 0, 1},
        {L"PLOTTRANSPARENCYOVERRIDE", Kept::registry, L"1", 0, 2}, {L"PLQUIET", Kept::registry, L"0", 0, 1},
        {L"PREVIEWEFFECT", Kept::registry, L"2", 0, 2}, {L"PREVIEWFILTER", Kept::registry, L"7", 0, 127},
        {L"PUBLISHALLSHEETS", Kept::registry, L"1", 0, 1}, {L"QPMODE", Kept::registry, L"-1", -1, 2},
        {L"RASTERDPI", Kept::registry, L"300", 100, 32767}, {L"RASTERTHRESHOLD", Kept::registry, L"20", 0, 32767},
        {L"RECOVERYMODE", Kept::registry, L"2", 0, 2}, {L"REPORTERROR", Kept::registry, L"1", 0, 1},
        {L"RTDISPLAY", Kept::registry, L"1", 0, 1}, {L"SAVEFIDELITY", Kept::registry, L"1", 0, 1},
        {L"SELECTIONAREAOPACITY", Kept::registry, L"25", 0, 100},
        {L"SELECTIONOFFSCREEN", Kept::registry, L"1", 0, 1}, {L"SELECTSIMILARMODE", Kept::registry, L"130", 0, 255},
        {L"SIGWARN", Kept::registry, L"1", 0, 1}, {L"SSLOCATE", Kept::registry, L"1", 0, 1},
        {L"SSMAUTOOPEN", Kept::registry, L"1", 0, 1}, {L"STANDARDSVIOLATION", Kept::registry, L"2", 0, 2},
        {L"STARTMODE", Kept::registry, L"1", 0, 1}, {L"TABLEINDICATOR", Kept::registry, L"1", 0, 1},
        {L"TASKBAR", Kept::registry, L"1", 0, 1}, {L"TBCUSTOMIZE", Kept::registry, L"1", 0, 1},
        {L"TEMPOVERRIDES", Kept::registry, L"1", 0, 1}, {L"TEXTOUTPUTFILEFORMAT", Kept::registry, L"0", 0, 3},
        {L"TOOLTIPMERGE", Kept::registry, L"0", 0, 1}, {L"TRANSPARENCYDISPLAY", Kept::registry, L"1", 0, 1},
        {L"TRAYICONS", Kept::registry, L"1", 0, 1}, {L"TRAYNOTIFY", Kept::registry, L"1", 0, 1},
        {L"TRAYTIMEOUT", Kept::registry, L"0", 0, 10}, {L"TSPACETYPE", Kept::registry, L"1", 1, 2},
        {L"UCSAXISANG", Kept::registry, L"90", 5, 180}, {L"VPLAYEROVERRIDESMODE", Kept::registry, L"1", 0, 1},
        {L"VPROTATEASSOC", Kept::registry, L"1", 0, 1}, {L"VTDURATION", Kept::registry, L"750", 0, 5000},
        {L"VTENABLE", Kept::registry, L"3", 0, 7}, {L"VTFPS", Kept::registry, L"7", 1, 30},
        {L"WINDOWAREACOLOR", Kept::registry, L"150", 1, 255}, {L"WMFBKGND", Kept::registry, L"0", 0, 1},
        {L"WMFFOREGND", Kept::registry, L"0", 0, 1}, {L"XDWGFADECTL", Kept::registry, L"70", -90, 90},
        {L"XFADECTL", Kept::registry, L"50", 0, 90}, {L"XREFOVERRIDE", Kept::registry, L"0", 0, 1},
        {L"XREFTYPE", Kept::registry, L"0", 0, 1},
        // until the program ends
        {L"BINDTYPE", Kept::session, L"0", 0, 1}, {L"CHAMMODE", Kept::session, L"0", 0, 1},
        {L"COMPASS", Kept::session, L"0", 0, 1}, {L"HPDRAWORDER", Kept::session, L"3", 0, 4},
        {L"MACROTRACE", Kept::session, L"0", 0, 1}, {L"MENUECHO", Kept::session, L"0", 0, 15},
        {L"QAFLAGS", Kept::session, L"0", 0, 7}, {L"SPLDEGREE", Kept::session, L"3", 1, 5},
        {L"SPLKNOTS", Kept::session, L"0", 0, 2}, {L"SPLMETHOD", Kept::session, L"0", 0, 1},
        // of the open document
        {L"DGNFRAME", Kept::document, L"0", 0, 2}, {L"DRAWORDERCTL", Kept::document, L"3", 0, 3},
        {L"FIELDEVAL", Kept::document, L"31", 0, 31}, {L"FRAME", Kept::document, L"3", 0, 3},
        {L"GRIDDISPLAY", Kept::document, L"3", 0, 15}, {L"GRIDMAJOR", Kept::document, L"5", 1, 100},
        {L"HPINHERIT", Kept::document, L"0", 0, 1}, {L"HPISLANDDETECTION", Kept::document, L"1", 0, 2},
        {L"IMAGEFRAME", Kept::document, L"1", 0, 2}, {L"OLEFRAME", Kept::document, L"2", 0, 2},
        {L"PDFFRAME", Kept::document, L"1", 0, 2}, {L"PELLIPSE", Kept::document, L"0", 0, 1},
        {L"TSTACKALIGN", Kept::document, L"1", 0, 2}, {L"TSTACKSIZE", Kept::document, L"70", 25, 125},
        {L"WIPEOUTFRAME", Kept::document, L"1", 0, 2},
};

std::vector<VariableInfo> others()
{
    constexpr bool readOnly = true;
    return {
        {L"HPGAPTOL", RTREAL, Kept::document, L"0", 0, 5000, false},
        {L"HPORIGIN", RTPOINT, Kept::document, L"0 0", -any, any, false},
        {L"MSOLESCALE", RTREAL, Kept::document, L"1", -any, any, false},
        {L"CLISTATE", RTSHORT, Kept::session, L"1", 0, 1, readOnly},
        {L"OPMSTATE", RTSHORT, Kept::session, L"0", 0, 2, readOnly},
        {L"PFACEVMAX", RTSHORT, Kept::session, L"4", 4, 4, readOnly},
        {L"VPMAXIMIZEDSTATE", RTSHORT, Kept::document, L"0", 0, 1, readOnly},
        text(L"CMLEADERSTYLE", Kept::document, L"Standard"), text(L"CTABLESTYLE", Kept::document, L"Standard"),
        text(L"DCTCUST", Kept::registry, L""), text(L"DEFLPLSTYLE", Kept::registry, L"Normal"),
        text(L"DEFPLSTYLE", Kept::registry, L"ByColor"), text(L"HPBACKGROUNDCOLOR", Kept::document, L"."),
        text(L"HPCOLOR", Kept::document, L"."), text(L"HPLAYER", Kept::document, L"."),
        text(L"HPTRANSPARENCY", Kept::document, L"."), text(L"LOGFILEPATH", Kept::registry, L""),
        text(L"MTEXTED", Kept::registry, L"Internal"), text(L"TRUSTEDDOMAINS", Kept::registry, L""),
        text(L"WSCURRENT", Kept::registry, L""), text(L"XLOADPATH", Kept::registry, L""),
        text(L"ENTERPRISEMENU", Kept::session, L".", readOnly), text(L"LOGFILENAME", Kept::session, L"", readOnly),
        text(L"SAVEFILE", Kept::session, L"", readOnly), text(L"SSFOUND", Kept::session, L"", readOnly),
    };
}
// clang-format on
} // namespace

const std::vector<VariableInfo>& ed::settingVariables()
{
    static const std::vector<VariableInfo> all = [] {
        std::vector<VariableInfo> made = others();
        for (const Setting& one : settings)
            made.push_back({one.name, RTSHORT, one.kept, one.value, one.least, one.most, false});
        return made;
    }();
    return all;
}
