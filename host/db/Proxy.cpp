#include "dbproxy.h"

#include "ClassRegistration.h"
#include "DatabaseState.h"
#include "DxfFields.h"

#include <map>

ACDB_DXF_CLASS(AcDbProxyObject, AcDbObject, ACAD_PROXY_OBJECT)
ACDB_DXF_CLASS(AcDbProxyEntity, AcDbEntity, ACAD_PROXY_ENTITY)

// Its own groups stand in sections that no table names, and are kept.
const DxfClass AcDbProxyEntity::dxf(nullptr, &AcDbEntity::dxf, {});

const ProxyClassName& ProxyClassName::of(std::string_view recordName)
{
    static std::map<std::string, ProxyClassName, std::less<>> all;
    const auto at = all.find(recordName);
    if (at != all.end()) return at->second;
    const std::string name(recordName);
    return all.emplace(name, ProxyClassName{name, wideOf(recordName)}).first->second;
}

namespace
{
/// A text of the entry that the drawing's list of classes has for an object's record name.
CString classEntryText(const AcDbObject& object, int code)
{
    if (!object.database()) return CString();
    for (const PackedGroups& entry : DatabaseAccess::of(*object.database()).classes) {
        DxfGroup group;
        CString found;
        bool isOfObject = false;
        for (std::size_t at = 0; entry.read(at, group);) {
            if (group.is(1)) isOfObject = group.text == object.dxfRecordName();
            if (group.is(code)) found = group.wide();
        }
        if (isOfObject) return found;
    }
    return CString();
}
} // namespace

CString AcDbProxyObject::originalClassName() const { return classEntryText(*this, 2); }
CString AcDbProxyObject::applicationDescription() const { return classEntryText(*this, 3); }
CString AcDbProxyEntity::originalClassName() const { return classEntryText(*this, 2); }
CString AcDbProxyEntity::applicationDescription() const { return classEntryText(*this, 3); }

DbSubentities* AcDbProxyEntity::subentities()
{
    if (!mSubentities) mSubentities = std::make_unique<DbSubentities>();
    return mSubentities.get();
}
