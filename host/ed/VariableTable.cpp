#include "VariableTable.h"

#include "HeaderVariables.h"
#include "SettingVariables.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <map>
#include <set>

namespace
{
using ed::Kept;
using ed::VariableInfo;

constexpr double any = std::numeric_limits<double>::infinity();
constexpr double positive = std::numeric_limits<double>::min();
constexpr bool readOnly = true;

VariableInfo integer(const wchar_t* name, Kept kept, const wchar_t* value, double least, double most,
                     bool isReadOnly = false)
{
    return {name, RTSHORT, kept, value, least, most, isReadOnly};
}
VariableInfo real(const wchar_t* name, Kept kept, const wchar_t* value, double least = -any,
                  double most = any, bool isReadOnly = false)
{
    return {name, RTREAL, kept, value, least, most, isReadOnly};
}
VariableInfo text(const wchar_t* name, Kept kept, const wchar_t* value = L"", bool isReadOnly = false)
{
    return {name, RTSTR, kept, value, -any, any, isReadOnly};
}
VariableInfo point(const wchar_t* name, Kept kept, const wchar_t* value, short type = RT3DPOINT,
                   bool isReadOnly = false)
{
    return {name, type, kept, value, -any, any, isReadOnly};
}

// clang-format off
/// Those that are not in headers of drawings. Ranges and defaults are AutoCAD's for metric drawings.
const VariableInfo others[] = {
    // of the profile
    integer(L"APBOX", Kept::registry, L"0", 0, 1), integer(L"APERTURE", Kept::registry, L"10", 1, 50),
    integer(L"ATTDIA", Kept::registry, L"1", 0, 1), integer(L"ATTREQ", Kept::registry, L"1", 0, 1),
    integer(L"AUTOSNAP", Kept::registry, L"63", 0, 63), integer(L"CMDDIA", Kept::registry, L"1", 0, 1),
    integer(L"CMDINPUTHISTORYMAX", Kept::registry, L"20", 0, 32767), integer(L"COPYMODE", Kept::registry, L"0", 0, 1),
    integer(L"CURSORSIZE", Kept::registry, L"5", 1, 100), integer(L"DBLCLKEDIT", Kept::registry, L"1", 0, 1),
    integer(L"DELOBJ", Kept::registry, L"3", -3, 3), integer(L"DRAGMODE", Kept::registry, L"2", 0, 2),
    integer(L"DRAGP1", Kept::registry, L"10", 0, 32767), integer(L"DRAGP2", Kept::registry, L"25", 0, 32767),
    integer(L"DYNMODE", Kept::registry, L"3", -3, 3), integer(L"DYNPROMPT", Kept::registry, L"1", 0, 1),
    integer(L"DYNPICOORDS", Kept::registry, L"0", 0, 1), integer(L"DYNDIVIS", Kept::registry, L"1", 0, 2),
    integer(L"EDGEMODE", Kept::registry, L"0", 0, 1), integer(L"FILEDIA", Kept::registry, L"1", 0, 1),
    text(L"FONTALT", Kept::registry, L"simplex.shx"), text(L"FONTMAP", Kept::registry, L"acad.fmp"),
    integer(L"GRIPBLOCK", Kept::registry, L"0", 0, 1), integer(L"GRIPCOLOR", Kept::registry, L"150", 1, 255),
    integer(L"GRIPHOT", Kept::registry, L"12", 1, 255), integer(L"GRIPOBJLIMIT", Kept::registry, L"100", 0, 32767),
    integer(L"GRIPS", Kept::registry, L"2", 0, 2), integer(L"GRIPSIZE", Kept::registry, L"5", 1, 255),
    integer(L"HIGHLIGHT", Kept::registry, L"1", 0, 1), integer(L"HPASSOC", Kept::registry, L"1", 0, 1),
    text(L"HPNAME", Kept::session, L"ANSI31"), real(L"HPSCALE", Kept::session, L"1", positive),
    real(L"HPANG", Kept::session, L"0"), integer(L"HPDOUBLE", Kept::session, L"0", 0, 1),
    real(L"HPSPACE", Kept::session, L"1", positive), integer(L"HPSEPARATE", Kept::registry, L"0", 0, 1),
    integer(L"INSUNITSDEFSOURCE", Kept::registry, L"4", 0, 24), integer(L"INSUNITSDEFTARGET", Kept::registry, L"4", 0, 24),
    integer(L"ISAVEBAK", Kept::registry, L"1", 0, 1), integer(L"ISAVEPERCENT", Kept::registry, L"50", 0, 100),
    integer(L"LAYOUTREGENCTL", Kept::registry, L"2", 0, 2), integer(L"LISPINIT", Kept::registry, L"1", 0, 1),
    integer(L"LOCKUI", Kept::registry, L"0", 0, 15), integer(L"LOGFILEMODE", Kept::registry, L"0", 0, 1),
    integer(L"LWDEFAULT", Kept::registry, L"25", 0, 211), integer(L"LWUNITS", Kept::registry, L"1", 0, 1),
    integer(L"MAXSORT", Kept::registry, L"1000", 0, 32767), integer(L"MBUTTONPAN", Kept::registry, L"1", 0, 1),
    integer(L"MEASUREINIT", Kept::registry, L"1", 0, 1), integer(L"MENUCTL", Kept::registry, L"1", 0, 1),
    integer(L"MTEXTFIXED", Kept::registry, L"2", 0, 2), integer(L"OSMODE", Kept::registry, L"4133", 0, 32767),
    integer(L"OSNAPCOORD", Kept::registry, L"2", 0, 2), integer(L"OSNAPZ", Kept::session, L"0", 0, 1),
    integer(L"OSOPTIONS", Kept::registry, L"3", 0, 7), integer(L"PAPERUPDATE", Kept::registry, L"0", 0, 1),
    integer(L"PEDITACCEPT", Kept::registry, L"0", 0, 1), integer(L"PICKADD", Kept::registry, L"2", 0, 2),
    integer(L"PICKAUTO", Kept::registry, L"5", 0, 5), integer(L"PICKBOX", Kept::registry, L"3", 0, 50),
    integer(L"PICKDRAG", Kept::registry, L"2", 0, 2), integer(L"PICKFIRST", Kept::registry, L"1", 0, 1),
    integer(L"PICKSTYLE", Kept::registry, L"1", 0, 3), integer(L"PLINETYPE", Kept::registry, L"2", 0, 2),
    integer(L"PLOTROTMODE", Kept::registry, L"2", 0, 2), integer(L"POLARMODE", Kept::registry, L"0", 0, 15),
    real(L"POLARANG", Kept::registry, L"1.5707963267948966"), text(L"POLARADDANG", Kept::registry),
    real(L"POLARDIST", Kept::registry, L"0"), integer(L"PROJMODE", Kept::registry, L"1", 0, 2),
    integer(L"PROXYNOTICE", Kept::registry, L"1", 0, 1), integer(L"PROXYSHOW", Kept::registry, L"1", 0, 2),
    integer(L"PSTYLEPOLICY", Kept::registry, L"1", 0, 1), integer(L"RASTERPREVIEW", Kept::registry, L"1", 0, 1),
    integer(L"REMEMBERFOLDERS", Kept::registry, L"1", 0, 1), text(L"SAVEFILEPATH", Kept::registry),
    integer(L"SAVETIME", Kept::registry, L"10", 0, 600), integer(L"SDI", Kept::registry, L"0", 0, 3, readOnly),
    integer(L"SECURELOAD", Kept::registry, L"1", 0, 2), integer(L"SELECTIONPREVIEW", Kept::registry, L"3", 0, 3),
    integer(L"SELECTIONAREA", Kept::registry, L"1", 0, 1), integer(L"SELECTIONCYCLING", Kept::registry, L"2", 0, 2),
    integer(L"SHORTCUTMENU", Kept::registry, L"11", 0, 31), integer(L"SNAPTYPE", Kept::registry, L"0", 0, 1),
    integer(L"STARTUP", Kept::registry, L"0", 0, 3), integer(L"TEXTFILL", Kept::registry, L"1", 0, 1),
    integer(L"TOOLTIPS", Kept::registry, L"1", 0, 1), integer(L"TRACKPATH", Kept::registry, L"0", 0, 3),
    integer(L"TRIMMODE", Kept::registry, L"1", 0, 1), text(L"TRUSTEDPATHS", Kept::registry),
    integer(L"TSPACEFAC", Kept::registry, L"1", 0, 4), integer(L"UCSDETECT", Kept::registry, L"1", 0, 1),
    integer(L"UCSVIEW", Kept::registry, L"1", 0, 1), integer(L"WHIPARC", Kept::registry, L"0", 0, 1),
    integer(L"WHIPTHREAD", Kept::registry, L"1", 0, 3), integer(L"XLOADCTL", Kept::registry, L"2", 0, 2),
    integer(L"ZOOMFACTOR", Kept::registry, L"60", 3, 100), integer(L"ZOOMWHEEL", Kept::registry, L"0", 0, 1),
    integer(L"XREFNOTIFY", Kept::registry, L"2", 0, 2), integer(L"XREFCTL", Kept::registry, L"0", 0, 1),
    integer(L"TEXTED", Kept::registry, L"2", 0, 2), integer(L"ACADLSPASDOC", Kept::registry, L"0", 0, 1),
    integer(L"DEMANDLOAD", Kept::registry, L"3", 0, 3), integer(L"UPDATETHUMBNAIL", Kept::registry, L"15", 0, 31),

    // until the program ends
    integer(L"AFLAGS", Kept::session, L"16", 0, 31), integer(L"BLIPMODE", Kept::session, L"0", 0, 1),
    integer(L"CMDECHO", Kept::session, L"1", 0, 1), integer(L"EXPERT", Kept::session, L"0", 0, 5),
    integer(L"EXPLMODE", Kept::session, L"1", 0, 1),
    text(L"INSNAME", Kept::session), integer(L"NOMUTT", Kept::session, L"0", 0, 1),
    real(L"OFFSETDIST", Kept::session, L"1"), integer(L"OFFSETGAPTYPE", Kept::registry, L"0", 0, 2),
    integer(L"POLYSIDES", Kept::session, L"4", 3, 1024), real(L"CIRCLERAD", Kept::session, L"0", 0),
    real(L"DONUTID", Kept::session, L"0.5", 0), real(L"DONUTOD", Kept::session, L"1", 0),
    integer(L"TEXTEVAL", Kept::session, L"0", 0, 1), integer(L"TEXTQLTY", Kept::session, L"50", 0, 100),
    integer(L"TREEMAX", Kept::session, L"10000000", 0, any),
    text(L"MODEMACRO", Kept::session), integer(L"ERRNO", Kept::session, L"0", -32768, 32767),
    text(L"USERS1", Kept::document), text(L"USERS2", Kept::document), text(L"USERS3", Kept::document),
    text(L"USERS4", Kept::document), text(L"USERS5", Kept::document), text(L"SHPNAME", Kept::session),
    text(L"SAVENAME", Kept::session, L"", readOnly),

    // of the open document
    integer(L"CVPORT", Kept::document, L"2", 1, 32767),
    integer(L"SNAPISOPAIR", Kept::document, L"0", 0, 2),
    integer(L"UCSICON", Kept::document, L"3", 0, 3), integer(L"UCSFOLLOW", Kept::document, L"0", 0, 1),
    integer(L"COORDS", Kept::registry, L"1", 0, 2), point(L"LASTPOINT", Kept::document, L"0 0 0"),
    real(L"LASTANGLE", Kept::document, L"0", -any, any, readOnly), real(L"DISTANCE", Kept::document, L"0", -any, any, readOnly),
    real(L"AREA", Kept::document, L"0", -any, any, readOnly), real(L"PERIMETER", Kept::document, L"0", -any, any, readOnly),

    real(L"FACETRES", Kept::document, L"0.5", 0.01, 10), integer(L"ISOLINES", Kept::document, L"4", 0, 2047),
    text(L"CANNOSCALE", Kept::document, L"1:1"),
    integer(L"ANNOALLVISIBLE", Kept::document, L"1", 0, 1), integer(L"ANNOAUTOSCALE", Kept::registry, L"4", -4, 4),
    integer(L"MSLTSCALE", Kept::document, L"1", 0, 1),
    text(L"CPLOTSTYLE", Kept::document, L"ByColor"), text(L"CETRANSPARENCY", Kept::document, L"ByLayer"),
    text(L"REFEDITNAME", Kept::document, L"", readOnly),
    integer(L"BLOCKEDITOR", Kept::document, L"0", 0, 1, readOnly), integer(L"LAYERFILTERALERT", Kept::registry, L"2", 0, 3),

    // of the program
    text(L"ACADVER", Kept::session, L"24.0s (LMS Tech)", readOnly), text(L"_VERNUM", Kept::session, L"R.47.0.0", readOnly),
    text(L"PLATFORM", Kept::session, L"Microsoft Windows NT Version 10.0 (x64)", readOnly), text(L"PRODUCT", Kept::session, L"AutoCAD", readOnly),
    text(L"PROGRAM", Kept::session, L"acad", readOnly), text(L"LOCALE", Kept::session, L"CHS", readOnly),
    text(L"_PKSER", Kept::session, L"000-00000000", readOnly), text(L"SYSCODEPAGE", Kept::session, L"ANSI_936", readOnly),
    text(L"CPROFILE", Kept::session, L"<<Unnamed Profile>>", readOnly), text(L"MENUNAME", Kept::session, L"acad", readOnly),
    integer(L"FULLOPEN", Kept::document, L"1", 0, 1, readOnly),
    integer(L"DIASTAT", Kept::session, L"0", 0, 1, readOnly), integer(L"POPUPS", Kept::session, L"1", 0, 1, readOnly),
    integer(L"TABMODE", Kept::session, L"0", 0, 1),
    integer(L"SCREENMODE", Kept::session, L"3", 0, 3, readOnly), integer(L"SCREENBOXES", Kept::session, L"0", 0, 100, readOnly),
    integer(L"HANDLES", Kept::session, L"1", 1, 1, readOnly),
    integer(L"ENTEXTS", Kept::session, L"1", 0, 2), integer(L"ENTMODS", Kept::session, L"0", 0, 32767, readOnly),
};

/// Ranges, types and guards of those in the header of the drawing, where the format of the file does not say them.
struct Limits { const wchar_t* name; double least, most; bool isReadOnly; };
const Limits limits[] = {
    {L"ANGDIR", 0, 1, false}, {L"ATTMODE", 0, 2, false}, {L"AUNITS", 0, 4, false}, {L"AUPREC", 0, 8, false},
    {L"CELTSCALE", positive, any, false}, {L"CMLJUST", 0, 2, false}, {L"DIMADEC", -1, 8, false}, {L"DIMALTD", 0, 8, false},
    {L"DIMALTU", 1, 8, false}, {L"DIMASSOC", 0, 2, false}, {L"DIMATFIT", 0, 3, false}, {L"DIMAUNIT", 0, 3, false},
    {L"DIMAZIN", 0, 3, false}, {L"DIMCLRD", 0, 256, false}, {L"DIMCLRE", 0, 256, false}, {L"DIMCLRT", 0, 256, false},
    {L"DIMDEC", 0, 8, false}, {L"DIMFRAC", 0, 2, false}, {L"DIMJUST", 0, 4, false}, {L"DIMLUNIT", 1, 6, false},
    {L"DIMSCALE", 0, any, false}, {L"DIMTAD", 0, 4, false}, {L"DIMTDEC", 0, 8, false}, {L"DIMTMOVE", 0, 2, false},
    {L"DIMTOLJ", 0, 2, false}, {L"DIMTXT", positive, any, false}, {L"DIMZIN", 0, 15, false}, {L"DISPSILH", 0, 1, false},
    {L"DWGCODEPAGE", -any, any, readOnly},
    {L"FILLETRAD", 0, any, false}, {L"FILLMODE", 0, 1, false}, {L"HALOGAP", 0, 100, false}, {L"INDEXCTL", 0, 3, false},
    {L"INSUNITS", 0, 24, false}, {L"LIMCHECK", 0, 1, false},
    {L"LTSCALE", positive, any, false}, {L"LUNITS", 1, 5, false}, {L"LUPREC", 0, 8, false}, {L"LWDISPLAY", 0, 1, false},
    {L"MAXACTVP", 2, 64, false}, {L"MEASUREMENT", 0, 1, false}, {L"MIRRTEXT", 0, 1, false}, {L"ORTHOMODE", 0, 1, false},
    {L"OSMODE", 0, 32767, false}, {L"PDMODE", 0, 100, false}, {L"PLINEGEN", 0, 1, false}, {L"PLINEWID", 0, any, false},
    {L"PSLTSCALE", 0, 1, false}, {L"PSTYLEMODE", 0, 1, readOnly}, {L"QTEXTMODE", 0, 1, false}, {L"REGENMODE", 0, 1, false},
    {L"SKPOLY", 0, 2, false}, {L"SORTENTS", 0, 127, false}, {L"SPLFRAME", 0, 1, false}, {L"SPLINESEGS", -32768, 32767, false},
    {L"SPLINETYPE", 5, 6, false}, {L"SURFTAB1", 2, 32766, false}, {L"SURFTAB2", 2, 32766, false}, {L"SURFTYPE", 5, 8, false},
    {L"SURFU", 2, 200, false}, {L"SURFV", 2, 200, false}, {L"TDCREATE", -any, any, readOnly}, {L"TDINDWG", -any, any, readOnly},
    {L"TDUCREATE", -any, any, readOnly}, {L"TDUPDATE", -any, any, readOnly}, {L"TDUSRTIMER", -any, any, readOnly},
    {L"TDUUPDATE", -any, any, readOnly}, {L"TEXTSIZE", positive, any, false}, {L"TILEMODE", 0, 1, false},
    {L"TRACEWID", 0, any, false},
    {L"UNITMODE", 0, 1, false},
    {L"VISRETAIN", 0, 1, false}, {L"WORLDVIEW", 0, 1, false}, {L"XCLIPFRAME", 0, 2, false}, {L"XEDIT", 0, 1, false},
    {L"FINGERPRINTGUID", -any, any, readOnly}, {L"VERSIONGUID", -any, any, readOnly}, {L"PSVPSCALE", 0, any, false},
};

/// Header variables that are no system variables.
constexpr const wchar_t* fileOnly[] = {
    L"ACADVER", L"ACADMAINTVER", L"HANDSEED", L"LASTSAVEDBY", L"REQUIREDVERSIONS", L"MENU", L"EXTNAMES",
    L"CEPSNTYPE", L"INTERFEREOBJVS", L"INTERFEREVPVS", L"CMATERIAL", L"UCSORTHOREF", L"PUCSORTHOREF",
};
// clang-format on

short typeOf(const HeaderVariable& variable)
{
    switch (dxfKindOf(variable.code)) {
    case DxfKind::real:
        break;
    case DxfKind::integer:
        return RTSHORT;
    default:
        return RTSTR;
    }
    const std::string text = variable.value;
    const auto blanks = std::count(text.begin(), text.end(), ' ');
    return variable.code >= 40 ? RTREAL : blanks == 1 ? RTPOINT : RT3DPOINT;
}

bool isFileOnly(const std::wstring& name)
{
    return std::any_of(std::begin(fileOnly), std::end(fileOnly),
                       [&](const wchar_t* one) { return name == one; });
}

using Table = std::map<std::wstring, VariableInfo>;

void addOfHeader(Table& table)
{
    for (int i = 0; const HeaderVariable* variable = HeaderVariables::known(i); ++i) {
        const std::string narrow = variable->name + 1;
        const std::wstring name(narrow.begin(), narrow.end());
        if (isFileOnly(name)) continue;
        VariableInfo info{nullptr, typeOf(*variable), Kept::drawing, L"", -any, any, false};
        if (info.type == RTSHORT) info.least = -32768, info.most = 32767;
        const auto added = table.emplace(name, info).first;
        added->second.name = added->first.c_str();
    }
    for (const Limits& limit : limits) {
        const auto at = table.find(limit.name);
        if (at == table.end()) continue;
        at->second.least = limit.least;
        at->second.most = limit.most;
        at->second.readOnly = limit.isReadOnly;
    }
}

struct BoundEntry {
    ed::BoundVariable bound;
    short type;
};

std::map<std::wstring, BoundEntry>& boundOnes()
{
    static std::map<std::wstring, BoundEntry>& all = *new std::map<std::wstring, BoundEntry>;
    return all;
}

const Table& table()
{
    static const Table all = [] {
        Table made;
        addOfHeader(made);
        for (const VariableInfo& info : others)
            made[info.name] = info;
        for (const VariableInfo& info : ed::settingVariables())
            made.emplace(info.name, info);
        return made;
    }();
    return all;
}
} // namespace

namespace ed
{
std::vector<std::wstring> variableNames()
{
    std::set<std::wstring> names;
    for (const auto& [name, info] : table())
        names.insert(name);
    for (const auto& [name, entry] : boundOnes())
        names.insert(name);
    return {names.begin(), names.end()};
}

std::optional<VariableInfo> variableInfo(const std::wstring& name)
{
    const auto known = table().find(name);
    const auto bound = boundOnes().find(name);
    if (bound == boundOnes().end())
        return known == table().end() ? std::nullopt : std::optional(known->second);
    VariableInfo info{bound->first.c_str(), bound->second.type, Kept::bound, L"", -any, any, false};
    if (known != table().end()) {
        info.least = known->second.least;
        info.most = known->second.most;
    }
    info.readOnly = !bound->second.bound.write;
    return info;
}

void bindVariable(const std::wstring& name, short type, BoundVariable bound)
{
    boundOnes()[name] = {std::move(bound), type};
}

void bindSwitch(const std::wstring& name, std::function<bool()> read, std::function<bool(bool)> write)
{
    bindVariable(name, RTSHORT,
                 {[read = std::move(read)] { return VariableValue::ofInteger(read()); },
                  [write = std::move(write)](const VariableValue& value) {
                      return (value.integer == 0 || value.integer == 1) && write(value.integer == 1);
                  }});
}

const BoundVariable* boundVariable(const std::wstring& name)
{
    const auto found = boundOnes().find(name);
    return found == boundOnes().end() ? nullptr : &found->second.bound;
}
} // namespace ed
