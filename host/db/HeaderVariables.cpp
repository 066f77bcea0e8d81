#include "HeaderVariables.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <unordered_map>

namespace
{
using V = DxfVersion;

// In the order of files. Defaults are those of a new metric drawing.
// clang-format off
constexpr HeaderVariable table[] = {
    {"$ACADVER", 1, V::r12, "AC1032"}, {"$ACADMAINTVER", 90, V::r2000, "0"}, {"$DWGCODEPAGE", 3, V::r12, "ANSI_936"},
    {"$LASTSAVEDBY", 1, V::r2004, ""}, {"$REQUIREDVERSIONS", 160, V::r2013, "0"}, {"$INSBASE", 10, V::r12, "0 0 0"},
    {"$EXTMIN", 10, V::r12, "1e20 1e20 1e20"}, {"$EXTMAX", 10, V::r12, "-1e20 -1e20 -1e20"},
    {"$LIMMIN", 10, V::r12, "0 0"}, {"$LIMMAX", 10, V::r12, "420 297"}, {"$ORTHOMODE", 70, V::r12, "0"},
    {"$REGENMODE", 70, V::r12, "1"}, {"$FILLMODE", 70, V::r12, "1"}, {"$QTEXTMODE", 70, V::r12, "0"},
    {"$MIRRTEXT", 70, V::r12, "0"}, {"$LTSCALE", 40, V::r12, "1"}, {"$ATTMODE", 70, V::r12, "1"},
    {"$TEXTSIZE", 40, V::r12, "2.5"}, {"$TRACEWID", 40, V::r12, "1"}, {"$TEXTSTYLE", 7, V::r12, "Standard"},
    {"$CLAYER", 8, V::r12, "0"}, {"$CELTYPE", 6, V::r12, "ByLayer"}, {"$CECOLOR", 62, V::r12, "256"},
    {"$CELTSCALE", 40, V::r13, "1"}, {"$DISPSILH", 70, V::r13, "0"}, {"$DIMSCALE", 40, V::r12, "1"},
    {"$DIMASZ", 40, V::r12, "2.5"}, {"$DIMEXO", 40, V::r12, "0.625"}, {"$DIMDLI", 40, V::r12, "3.75"},
    {"$DIMRND", 40, V::r12, "0"}, {"$DIMDLE", 40, V::r12, "0"}, {"$DIMEXE", 40, V::r12, "1.25"},
    {"$DIMTP", 40, V::r12, "0"}, {"$DIMTM", 40, V::r12, "0"}, {"$DIMTXT", 40, V::r12, "2.5"},
    {"$DIMCEN", 40, V::r12, "2.5"}, {"$DIMTSZ", 40, V::r12, "0"}, {"$DIMTOL", 70, V::r12, "0"},
    {"$DIMLIM", 70, V::r12, "0"}, {"$DIMTIH", 70, V::r12, "0"}, {"$DIMTOH", 70, V::r12, "0"},
    {"$DIMSE1", 70, V::r12, "0"}, {"$DIMSE2", 70, V::r12, "0"}, {"$DIMTAD", 70, V::r12, "1"},
    {"$DIMZIN", 70, V::r12, "8"}, {"$DIMBLK", 1, V::r12, ""}, {"$DIMASO", 70, V::r12, "1"},
    {"$DIMSHO", 70, V::r12, "1"}, {"$DIMPOST", 1, V::r12, ""}, {"$DIMAPOST", 1, V::r12, ""},
    {"$DIMALT", 70, V::r12, "0"}, {"$DIMALTD", 70, V::r12, "3"}, {"$DIMALTF", 40, V::r12, "0.0393700787401575"},
    {"$DIMLFAC", 40, V::r12, "1"}, {"$DIMTOFL", 70, V::r12, "1"}, {"$DIMTVP", 40, V::r12, "0"},
    {"$DIMTIX", 70, V::r12, "0"}, {"$DIMSOXD", 70, V::r12, "0"}, {"$DIMSAH", 70, V::r12, "0"},
    {"$DIMBLK1", 1, V::r12, ""}, {"$DIMBLK2", 1, V::r12, ""}, {"$DIMSTYLE", 2, V::r12, "ISO-25"},
    {"$DIMCLRD", 70, V::r12, "0"}, {"$DIMCLRE", 70, V::r12, "0"}, {"$DIMCLRT", 70, V::r12, "0"},
    {"$DIMTFAC", 40, V::r12, "1"}, {"$DIMGAP", 40, V::r12, "0.625"}, {"$DIMJUST", 70, V::r13, "0"},
    {"$DIMSD1", 70, V::r13, "0"}, {"$DIMSD2", 70, V::r13, "0"}, {"$DIMTOLJ", 70, V::r13, "0"},
    {"$DIMTZIN", 70, V::r13, "8"}, {"$DIMALTZ", 70, V::r13, "0"}, {"$DIMALTTZ", 70, V::r13, "0"},
    {"$DIMUPT", 70, V::r13, "0"}, {"$DIMDEC", 70, V::r13, "2"}, {"$DIMTDEC", 70, V::r13, "2"},
    {"$DIMALTU", 70, V::r13, "2"}, {"$DIMALTTD", 70, V::r13, "3"}, {"$DIMTXSTY", 7, V::r13, "Standard"},
    {"$DIMAUNIT", 70, V::r13, "0"}, {"$DIMADEC", 70, V::r2000, "0"}, {"$DIMALTRND", 40, V::r2000, "0"},
    {"$DIMAZIN", 70, V::r2000, "0"}, {"$DIMDSEP", 70, V::r2000, "44"}, {"$DIMATFIT", 70, V::r2000, "3"},
    {"$DIMFRAC", 70, V::r2000, "0"}, {"$DIMLDRBLK", 1, V::r2000, ""}, {"$DIMLUNIT", 70, V::r2000, "2"},
    {"$DIMLWD", 70, V::r2000, "-2"}, {"$DIMLWE", 70, V::r2000, "-2"}, {"$DIMTMOVE", 70, V::r2000, "0"},
    {"$DIMFXL", 40, V::r2007, "1"}, {"$DIMFXLON", 70, V::r2007, "0"},
    {"$DIMJOGANG", 40, V::r2007, "0.785398163397448"}, {"$DIMTFILL", 70, V::r2007, "0"},
    {"$DIMTFILLCLR", 70, V::r2007, "0"}, {"$DIMARCSYM", 70, V::r2007, "0"}, {"$DIMLTYPE", 6, V::r2007, ""},
    {"$DIMLTEX1", 6, V::r2007, ""}, {"$DIMLTEX2", 6, V::r2007, ""}, {"$DIMTXTDIRECTION", 70, V::r2010, "0"},
    {"$LUNITS", 70, V::r12, "2"}, {"$LUPREC", 70, V::r12, "4"}, {"$SKETCHINC", 40, V::r12, "1"},
    {"$FILLETRAD", 40, V::r12, "0"}, {"$AUNITS", 70, V::r12, "0"}, {"$AUPREC", 70, V::r12, "0"},
    {"$MENU", 1, V::r12, "."}, {"$ELEVATION", 40, V::r12, "0"}, {"$PELEVATION", 40, V::r12, "0"},
    {"$THICKNESS", 40, V::r12, "0"}, {"$LIMCHECK", 70, V::r12, "0"}, {"$CHAMFERA", 40, V::r12, "0"},
    {"$CHAMFERB", 40, V::r12, "0"}, {"$CHAMFERC", 40, V::r13, "0"}, {"$CHAMFERD", 40, V::r13, "0"},
    {"$SKPOLY", 70, V::r12, "0"}, {"$TDCREATE", 40, V::r12, "0"}, {"$TDUCREATE", 40, V::r2000, "0"},
    {"$TDUPDATE", 40, V::r12, "0"}, {"$TDUUPDATE", 40, V::r2000, "0"}, {"$TDINDWG", 40, V::r12, "0"},
    {"$TDUSRTIMER", 40, V::r12, "0"}, {"$USRTIMER", 70, V::r12, "1"}, {"$ANGBASE", 50, V::r12, "0"},
    {"$ANGDIR", 70, V::r12, "0"}, {"$PDMODE", 70, V::r12, "0"}, {"$PDSIZE", 40, V::r12, "0"},
    {"$PLINEWID", 40, V::r12, "0"}, {"$SPLFRAME", 70, V::r12, "0"}, {"$SPLINETYPE", 70, V::r12, "6"},
    {"$SPLINESEGS", 70, V::r12, "8"}, {"$HANDSEED", 5, V::r12, "0"}, {"$SURFTAB1", 70, V::r12, "6"},
    {"$SURFTAB2", 70, V::r12, "6"}, {"$SURFTYPE", 70, V::r12, "6"}, {"$SURFU", 70, V::r12, "6"},
    {"$SURFV", 70, V::r12, "6"}, {"$UCSBASE", 2, V::r2000, ""}, {"$UCSNAME", 2, V::r12, ""},
    {"$UCSORG", 10, V::r12, "0 0 0"}, {"$UCSXDIR", 10, V::r12, "1 0 0"}, {"$UCSYDIR", 10, V::r12, "0 1 0"},
    {"$UCSORTHOREF", 2, V::r2000, ""}, {"$UCSORTHOVIEW", 70, V::r2000, "0"}, {"$UCSORGTOP", 10, V::r2000, "0 0 0"},
    {"$UCSORGBOTTOM", 10, V::r2000, "0 0 0"}, {"$UCSORGLEFT", 10, V::r2000, "0 0 0"},
    {"$UCSORGRIGHT", 10, V::r2000, "0 0 0"}, {"$UCSORGFRONT", 10, V::r2000, "0 0 0"},
    {"$UCSORGBACK", 10, V::r2000, "0 0 0"}, {"$PUCSBASE", 2, V::r2000, ""}, {"$PUCSNAME", 2, V::r12, ""},
    {"$PUCSORG", 10, V::r12, "0 0 0"}, {"$PUCSXDIR", 10, V::r12, "1 0 0"}, {"$PUCSYDIR", 10, V::r12, "0 1 0"},
    {"$PUCSORTHOREF", 2, V::r2000, ""}, {"$PUCSORTHOVIEW", 70, V::r2000, "0"}, {"$PUCSORGTOP", 10, V::r2000, "0 0 0"},
    {"$PUCSORGBOTTOM", 10, V::r2000, "0 0 0"}, {"$PUCSORGLEFT", 10, V::r2000, "0 0 0"},
    {"$PUCSORGRIGHT", 10, V::r2000, "0 0 0"}, {"$PUCSORGFRONT", 10, V::r2000, "0 0 0"},
    {"$PUCSORGBACK", 10, V::r2000, "0 0 0"}, {"$USERI1", 70, V::r12, "0"}, {"$USERI2", 70, V::r12, "0"},
    {"$USERI3", 70, V::r12, "0"}, {"$USERI4", 70, V::r12, "0"}, {"$USERI5", 70, V::r12, "0"},
    {"$USERR1", 40, V::r12, "0"}, {"$USERR2", 40, V::r12, "0"}, {"$USERR3", 40, V::r12, "0"},
    {"$USERR4", 40, V::r12, "0"}, {"$USERR5", 40, V::r12, "0"}, {"$WORLDVIEW", 70, V::r12, "1"},
    {"$SHADEDGE", 70, V::r12, "3"}, {"$SHADEDIF", 70, V::r12, "70"}, {"$TILEMODE", 70, V::r12, "1"},
    {"$MAXACTVP", 70, V::r12, "64"}, {"$PINSBASE", 10, V::r13, "0 0 0"}, {"$PLIMCHECK", 70, V::r12, "0"},
    {"$PEXTMIN", 10, V::r12, "1e20 1e20 1e20"}, {"$PEXTMAX", 10, V::r12, "-1e20 -1e20 -1e20"},
    {"$PLIMMIN", 10, V::r12, "0 0"}, {"$PLIMMAX", 10, V::r12, "420 297"}, {"$UNITMODE", 70, V::r12, "0"},
    {"$VISRETAIN", 70, V::r12, "1"}, {"$PLINEGEN", 70, V::r12, "0"}, {"$PSLTSCALE", 70, V::r12, "1"},
    {"$TREEDEPTH", 70, V::r13, "3020"}, {"$CMLSTYLE", 2, V::r13, "Standard"}, {"$CMLJUST", 70, V::r13, "0"},
    {"$CMLSCALE", 40, V::r13, "20"}, {"$PROXYGRAPHICS", 70, V::r13, "1"}, {"$MEASUREMENT", 70, V::r13, "1"},
    {"$CELWEIGHT", 370, V::r2000, "-1"}, {"$ENDCAPS", 280, V::r2000, "0"}, {"$JOINSTYLE", 280, V::r2000, "0"},
    {"$LWDISPLAY", 290, V::r2000, "0"}, {"$INSUNITS", 70, V::r2000, "4"}, {"$HYPERLINKBASE", 1, V::r2000, ""},
    {"$STYLESHEET", 1, V::r2000, ""}, {"$XEDIT", 290, V::r2000, "1"}, {"$CEPSNTYPE", 380, V::r2000, "0"},
    {"$PSTYLEMODE", 290, V::r2000, "1"}, {"$FINGERPRINTGUID", 2, V::r2000, ""}, {"$VERSIONGUID", 2, V::r2000, ""},
    {"$EXTNAMES", 290, V::r2000, "1"}, {"$PSVPSCALE", 40, V::r2000, "0"}, {"$OLESTARTUP", 290, V::r2000, "0"},
    {"$SORTENTS", 280, V::r2004, "127"}, {"$INDEXCTL", 280, V::r2004, "0"}, {"$HIDETEXT", 280, V::r2004, "1"},
    {"$XCLIPFRAME", 280, V::r2004, "2"}, {"$HALOGAP", 280, V::r2004, "0"}, {"$OBSCOLOR", 70, V::r2004, "257"},
    {"$OBSLTYPE", 280, V::r2004, "0"}, {"$INTERSECTIONDISPLAY", 280, V::r2004, "0"},
    {"$INTERSECTIONCOLOR", 70, V::r2004, "257"}, {"$DIMASSOC", 280, V::r2004, "2"}, {"$PROJECTNAME", 1, V::r2004, ""},
    {"$CAMERADISPLAY", 290, V::r2007, "0"}, {"$LENSLENGTH", 40, V::r2007, "50"}, {"$CAMERAHEIGHT", 40, V::r2007, "0"},
    {"$STEPSPERSEC", 40, V::r2007, "2"}, {"$STEPSIZE", 40, V::r2007, "6"}, {"$3DDWFPREC", 40, V::r2007, "2"},
    {"$PSOLWIDTH", 40, V::r2007, "0.25"}, {"$PSOLHEIGHT", 40, V::r2007, "4"},
    {"$LOFTANG1", 40, V::r2007, "1.5707963267949"}, {"$LOFTANG2", 40, V::r2007, "1.5707963267949"},
    {"$LOFTMAG1", 40, V::r2007, "0"}, {"$LOFTMAG2", 40, V::r2007, "0"}, {"$LOFTPARAM", 70, V::r2007, "7"},
    {"$LOFTNORMALS", 280, V::r2007, "1"}, {"$LATITUDE", 40, V::r2007, "37.795"},
    {"$LONGITUDE", 40, V::r2007, "-122.394"}, {"$NORTHDIRECTION", 40, V::r2007, "0"},
    {"$TIMEZONE", 70, V::r2007, "-8000"}, {"$LIGHTGLYPHDISPLAY", 280, V::r2007, "1"},
    {"$TILEMODELIGHTSYNCH", 280, V::r2007, "1"}, {"$CMATERIAL", 347, V::r2007, "0"},
    {"$SOLIDHIST", 280, V::r2007, "0"}, {"$SHOWHIST", 280, V::r2007, "1"}, {"$DWFFRAME", 280, V::r2007, "2"},
    {"$DGNFRAME", 280, V::r2007, "0"}, {"$REALWORLDSCALE", 290, V::r2007, "1"},
    {"$INTERFERECOLOR", 62, V::r2007, "1"}, {"$INTERFEREOBJVS", 345, V::r2007, "0"},
    {"$INTERFEREVPVS", 346, V::r2007, "0"}, {"$CSHADOW", 280, V::r2007, "0"},
    {"$SHADOWPLANELOCATION", 40, V::r2007, "0"},
};
// clang-format on

constexpr int count = static_cast<int>(sizeof table / sizeof *table);

const std::unordered_map<std::string_view, int>& indexes()
{
    static const std::unordered_map<std::string_view, int> all = [] {
        std::unordered_map<std::string_view, int> made;
        for (int i = 0; i < count; ++i) made.emplace(table[i].name, i);
        return made;
    }();
    return all;
}

/// Whether a variable says how to draw, and not what its drawing is.
bool isSetting(const HeaderVariable& variable)
{
    const std::string_view name = variable.name;
    const bool isOfCoordinates = name.substr(0, 4) == "$UCS" || name.substr(0, 5) == "$PUCS";
    const bool isOfMaking = name.substr(0, 3) == "$TD" || name.find("GUID") != std::string_view::npos;
    return !isOfCoordinates && !isOfMaking && dxfKindOf(variable.code) != DxfKind::handle;
}

std::uint64_t nextRevision()
{
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

PackedGroups defaultOf(const HeaderVariable& variable)
{
    PackedGroups groups;
    const char* text = variable.value;
    char* end = nullptr;
    switch (dxfKindOf(variable.code)) {
    case DxfKind::real:
        for (int code = variable.code; *text; code += 10, text = end) groups.appendReal(code, std::strtod(text, &end));
        break;
    case DxfKind::integer: groups.appendInteger(variable.code, std::atoi(text)); break;
    case DxfKind::handle: groups.appendHandle(variable.code, 0); break;
    default: groups.appendText(variable.code, text);
    }
    return groups;
}
} // namespace

const HeaderVariable* HeaderVariables::known(int index)
{
    return index >= 0 && index < count ? &table[index] : nullptr;
}

int HeaderVariables::indexOf(std::string_view name)
{
    const auto at = indexes().find(name);
    return at == indexes().end() ? -1 : at->second;
}

HeaderVariables::HeaderVariables() : mValues(count), mRevision(nextRevision())
{
    for (int i = 0; i < count; ++i) mValues[static_cast<std::size_t>(i)] = defaultOf(table[i]);
}

const PackedGroups* HeaderVariables::find(std::string_view name) const
{
    const int index = indexOf(name);
    if (index >= 0) return &mValues[static_cast<std::size_t>(index)];
    const auto at = std::find_if(mUnknown.begin(), mUnknown.end(), [&](const auto& one) { return one.first == name; });
    return at == mUnknown.end() ? nullptr : &at->second;
}

PackedGroups& HeaderVariables::at(std::string_view name)
{
    PackedGroups& value = place(name);
    if (mWatch.watcher) mWatch.watcher->willSet(name, value);
    mRevision = nextRevision();
    return value;
}

PackedGroups& HeaderVariables::place(std::string_view name)
{
    const int index = indexOf(name);
    if (index >= 0) return mValues[static_cast<std::size_t>(index)];
    for (auto& one : mUnknown) {
        if (one.first == name) return one.second;
    }
    return mUnknown.emplace_back(std::string(name), PackedGroups()).second;
}

DxfGroup HeaderVariables::firstOf(const PackedGroups& groups)
{
    DxfGroup group;
    std::size_t position = 0;
    groups.read(position, group);
    return group;
}

DxfGroup HeaderVariables::first(std::string_view name) const
{
    const PackedGroups* groups = find(name);
    return groups ? firstOf(*groups) : DxfGroup();
}

AcGePoint3d HeaderVariables::pointOf(const PackedGroups& groups)
{
    double values[3] = {0.0, 0.0, 0.0};
    DxfGroup group;
    std::size_t position = 0;
    for (double& value : values) {
        if (groups.read(position, group)) value = group.real;
    }
    return {values[0], values[1], values[2]};
}

AcGePoint3d HeaderVariables::point(std::string_view name) const
{
    const PackedGroups* groups = find(name);
    return groups ? pointOf(*groups) : AcGePoint3d();
}

void HeaderVariables::setReal(std::string_view name, double value)
{
    const int code = first(name).code;
    PackedGroups& groups = at(name);
    groups.clear();
    groups.appendReal(code, value);
}

void HeaderVariables::setInteger(std::string_view name, std::int64_t value)
{
    const int code = first(name).code;
    PackedGroups& groups = at(name);
    groups.clear();
    groups.appendInteger(code, value);
}

void HeaderVariables::setText(std::string_view name, const CString& value)
{
    const int code = first(name).code;
    PackedGroups& groups = at(name);
    groups.clear();
    groups.appendText(code, utf8Of(value));
}

void HeaderVariables::setPoint(std::string_view name, const AcGePoint3d& value)
{
    constexpr std::size_t sizeOfReal = 10; // as PackedGroups.h says
    PackedGroups& groups = at(name);
    const int code = first(name).code;
    const bool isPlanar = groups.size() <= 2 * sizeOfReal;
    groups.clear();
    groups.appendReal(code, value.x);
    groups.appendReal(code + 10, value.y);
    if (!isPlanar) groups.appendReal(code + 20, value.z);
}

void HeaderVariables::takeSettings(const HeaderVariables& other)
{
    for (std::size_t i = 0; i < mValues.size(); ++i) {
        if (isSetting(table[i])) mValues[i] = other.mValues[i];
    }
    mUnknown = other.mUnknown;
    mRevision = nextRevision();
}

void HeaderVariables::write(DxfSink& sink, bool withUnknown) const
{
    for (int i = 0; i < count; ++i) {
        if (sink.version() < static_cast<int>(table[i].since)) continue;
        sink.text(9, table[i].name);
        writeGroups(mValues[static_cast<std::size_t>(i)], sink);
    }
    if (!withUnknown) return;
    for (const auto& [name, groups] : mUnknown) {
        sink.text(9, name);
        writeGroups(groups, sink);
    }
}
