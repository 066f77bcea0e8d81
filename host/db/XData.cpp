/// Extended data: the groups that applications attach to objects under their registered names.

#include "DatabaseState.h"
#include "DbObjectAccess.h"
#include "acutads.h"

#include <algorithm>
#include <cwchar>
#include <string>

namespace
{
constexpr std::size_t mostBytes = 16 * 1024;

AcDbObjectId regappOf(AcDbDatabase* database, const wchar_t* name)
{
    AcDbObjectId id;
    if (!database) return id;
    const auto* stub = static_cast<AcDbStub*>(database->regAppTableId());
    static_cast<AcDbRegAppTable*>(stub->object)->getAt(name, id);
    return id;
}

const CString& nameOf(AcDbObjectId regapp)
{
    return static_cast<AcDbSymbolTableRecord*>(static_cast<AcDbStub*>(regapp)->object)->name();
}

/// Packs one node of a chain; false for a group that extended data cannot hold.
bool pack(const resbuf& node, PackedGroups& groups)
{
    const int code = node.restype;
    if (code < 1000 || code > 1071) return false;
    switch (acdbGroupCodeToType(node.restype)) {
    case RTSTR:
        if (node.resval.rstring && code == 1005) {
            groups.appendHandle(code, AcDbHandle(node.resval.rstring).value());
        } else if (node.resval.rstring) {
            groups.appendText(code, utf8Of(node.resval.rstring));
        }
        return node.resval.rstring != nullptr;
    case RT3DPOINT:
        for (int i = 0; i < 3; ++i) groups.appendReal(code + 10 * i, node.resval.rpoint[i]);
        return true;
    case RTREAL: groups.appendReal(code, node.resval.rreal); return true;
    case RTSHORT: groups.appendInteger(code, node.resval.rint); return true;
    case RTLONG: groups.appendInteger(code, node.resval.rlong); return true;
    case RTLB:
        groups.appendBinary(code, {node.resval.rbinary.buf, static_cast<std::size_t>(node.resval.rbinary.clen)});
        return true;
    default: return false;
    }
}

/// Splits a chain at its 1001 groups and packs it. The status of the first fault; nothing is kept then.
Acad::ErrorStatus packChain(const resbuf* chain, AcDbDatabase* database, std::vector<AppXData>& packed)
{
    if (!chain || chain->restype != 1001) return Acad::eInvalidResBuf;
    for (const resbuf* node = chain; node; node = node->rbnext) {
        if (node->restype != 1001) {
            if (!pack(*node, packed.back().groups)) return Acad::eInvalidResBuf;
            continue;
        }
        const AcDbObjectId regapp = node->resval.rstring ? regappOf(database, node->resval.rstring) : AcDbObjectId();
        if (regapp.isNull()) return Acad::eRegappIdNotFound;
        packed.push_back({regapp, {}});
    }
    return Acad::eOk;
}

AppXData* dataOf(std::vector<AppXData>& all, AcDbObjectId regapp)
{
    const auto at = std::find_if(all.begin(), all.end(), [&](const AppXData& data) { return data.regapp == regapp; });
    return at == all.end() ? nullptr : &*at;
}

/// Puts the data of each application in place of its old ones; an application without groups goes.
std::vector<AppXData> merged(std::vector<AppXData> all, const std::vector<AppXData>& changes)
{
    for (const AppXData& change : changes) {
        if (AppXData* old = dataOf(all, change.regapp)) {
            old->groups = change.groups;
        } else {
            all.push_back(change);
        }
    }
    all.erase(std::remove_if(all.begin(), all.end(), [](const AppXData& data) { return data.groups.empty(); }),
              all.end());
    return all;
}

std::size_t sizeOf(const std::vector<AppXData>& all)
{
    std::size_t bytes = 0;
    for (const AppXData& data : all) bytes += data.groups.size();
    return bytes;
}

resbuf* textNode(int code, const wchar_t* text)
{
    resbuf* node = acutNewRb(code);
    acutNewString(text, node->resval.rstring);
    return node;
}

/// One node for one group; the second and third coordinate of a point go into the node of the first.
resbuf* nodeOf(const DxfGroup& group)
{
    if (group.kind == DxfKind::text) return textNode(group.code, group.wide());
    if (group.kind == DxfKind::handle) {
        wchar_t digits[17];
        AcDbHandle(static_cast<std::uint64_t>(group.integer)).getIntoAsciiBuffer(digits);
        return textNode(group.code, digits);
    }
    if (group.kind == DxfKind::binary) {
        ads_binary chunk{static_cast<short>(group.text.size()), const_cast<char*>(group.text.data())};
        return acutBuildList(group.code, &chunk, RTNONE);
    }
    resbuf* node = acutNewRb(group.code);
    const short type = acdbGroupCodeToType(node->restype);
    if (type == RT3DPOINT) node->resval.rpoint[X] = group.real;
    if (type == RTREAL) node->resval.rreal = group.real;
    if (type == RTSHORT) node->resval.rint = static_cast<short>(group.integer);
    if (type == RTLONG) node->resval.rlong = static_cast<std::int32_t>(group.integer);
    return node;
}

bool isLaterCoordinate(const DxfGroup& group) { return group.code >= 1020 && group.code <= 1039; }

resbuf** appendChain(const AppXData& data, resbuf** tail)
{
    *tail = textNode(1001, nameOf(data.regapp));
    resbuf* last = *tail;
    DxfGroup group;
    for (std::size_t at = 0; data.groups.read(at, group);) {
        if (isLaterCoordinate(group)) {
            last->resval.rpoint[group.code < 1030 ? Y : Z] = group.real;
            continue;
        }
        last = last->rbnext = nodeOf(group);
    }
    return &last->rbnext;
}
} // namespace

resbuf* AcDbObject::xData(const ACHAR* regappName) const
{
    resbuf* chain = nullptr;
    resbuf** tail = &chain;
    if (!mExtras) return nullptr;
    for (const AppXData& data : mExtras->xdata) {
        if (regappName && nameOf(data.regapp).CompareNoCase(regappName) != 0) continue;
        tail = appendChain(data, tail);
    }
    return chain;
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* chain)
{
    std::vector<AppXData> changes;
    const Acad::ErrorStatus fault = packChain(chain, database(), changes);
    if (fault != Acad::eOk) return fault;
    std::vector<AppXData> all = merged(mExtras ? mExtras->xdata : std::vector<AppXData>(), changes);
    if (sizeOf(all) > mostBytes) return Acad::eXdataSizeExceeded;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk) return status;
    DbObjectAccess::needExtras(*this).xdata = std::move(all);
    mModifiedXData = true;
    return Acad::eOk;
}
