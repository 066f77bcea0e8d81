/// Extended data: the groups that applications attach to objects under their registered names.

#include "DatabaseState.h"
#include "DbObjectAccess.h"
#include "EntityLists.h"
#include "RecordNames.h"
#include "ResbufSink.h"
#include "ResbufSource.h"

#include <algorithm>

namespace
{
constexpr std::size_t mostBytes = 16 * 1024;

const CString& nameOf(AcDbObjectId regapp)
{
    return static_cast<AcDbSymbolTableRecord*>(static_cast<AcDbStub*>(regapp)->object)->name();
}

bool isXDataCode(int code) { return code >= 1000 && code <= 1071; }

/// Splits a chain at its 1001 groups and packs it. The status of the first fault; nothing is kept then.
Acad::ErrorStatus packChain(const resbuf* chain, AcDbDatabase* database, std::vector<AppXData>& packed)
{
    // Entity lists put -3 before the extended data.
    if (chain && chain->restype == -3) chain = chain->rbnext;
    if (!chain || chain->restype != 1001) return Acad::eInvalidResBuf;
    ResbufSource source(chain, database);
    for (; const DxfGroup* group = source.peek(); source.take()) {
        if (!isXDataCode(group->code)) return Acad::eInvalidResBuf;
        if (!group->is(1001)) {
            packed.back().groups.append(*group);
            continue;
        }
        const AcDbObjectId regapp = database ? recordNamed(*database, 1001, group->text) : AcDbObjectId();
        if (regapp.isNull()) return Acad::eRegappIdNotFound;
        packed.push_back({regapp, {}});
    }
    return source.hasFault() ? Acad::eInvalidResBuf : Acad::eOk;
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
} // namespace

resbuf* AcDbObject::xData(const ACHAR* regappName) const
{
    if (!mExtras) return nullptr;
    ResbufSink sink(database());
    for (const AppXData& data : mExtras->xdata) {
        if (regappName && nameOf(data.regapp).CompareNoCase(regappName) != 0) continue;
        sink.record(1001, data.regapp);
        writeGroups(data.groups, sink);
    }
    return sink.release();
}

bool isXData(const resbuf* list, AcDbDatabase& database)
{
    std::vector<AppXData> packed;
    return packChain(list, &database, packed) == Acad::eOk && sizeOf(packed) <= mostBytes;
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
