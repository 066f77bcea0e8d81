#include "EntityLists.h"

#include "DxfFields.h"
#include "DxfKept.h"
#include "StubPool.h"
#include "acdbads.h"
#include "dbapserv.h"
#include "dbdatabase.h"

#include <memory>

AcDbDatabase* workingDatabase() { return acdbHostApplicationServices()->workingDatabase(); }

AcDbObjectId idOf(const ads_name name)
{
    // Names come from lists and LISP, where anything may stand.
    const AcDbObjectId id = name ? AcDbObjectId().setFromOldId(static_cast<std::intptr_t>(name[0])) : AcDbObjectId();
    return StubPool::holds(id) ? id : AcDbObjectId();
}

int giveName(AcDbObjectId id, ads_name result)
{
    if (!id.isValid() || !result) return RTERROR;
    result[0] = id.asOldId();
    result[1] = 0;
    return RTNORM;
}

ResbufList listOf(const AcDbObject& object)
{
    ResbufSink sink(object.database());
    sink.name(-1, object.objectId());
    dxfWriteFrame(object, sink);
    dxfWrite(object, sink);
    return ResbufList(sink.release());
}

const resbuf* xdataOf(const resbuf* list)
{
    while (list && list->restype != -3) list = list->rbnext;
    return list;
}

const ACHAR* kindOf(const resbuf* list)
{
    while (list && list->restype != 0) list = list->rbnext;
    return list ? list->resval.rstring : nullptr;
}

namespace
{
/// Adds the extended data that a list of applications asks for.
void appendXData(const AcDbObject& object, const resbuf* applications, resbuf* tail)
{
    resbuf* mark = nullptr;
    for (; applications; applications = applications->rbnext) {
        const bool isName = applications->restype == 1001 || applications->restype == RTSTR;
        if (!isName || !applications->resval.rstring) continue;
        const bool isAll = CString(applications->resval.rstring) == L"*";
        resbuf* data = object.xData(isAll ? nullptr : applications->resval.rstring);
        if (!data) continue;
        if (!mark) tail = tail->rbnext = mark = acutNewRb(-3);
        tail->rbnext = data;
        while (tail->rbnext) tail = tail->rbnext;
    }
}
} // namespace

Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id)
{
    if (id.isNull()) return Acad::eNullObjectId;
    giveName(id, name);
    return Acad::eOk;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name)
{
    id = idOf(name);
    return id.isValid() ? Acad::eOk : Acad::eInvalidAdsName;
}

int acdbHandEnt(const ACHAR* handle, ads_name result)
{
    AcDbObjectId id;
    const AcDbDatabase* database = workingDatabase();
    if (!database || !handle || database->getAcDbObjectId(id, false, AcDbHandle(handle)) != Acad::eOk) return RTERROR;
    return giveName(id, result);
}

resbuf* acdbEntGet(const ads_name name) { return acdbEntGetX(name, nullptr); }

resbuf* acdbEntGetX(const ads_name name, const resbuf* applications)
{
    AcDbObject* object = nullptr;
    if (acdbOpenAcDbObject(object, idOf(name), AcDb::kForRead) != Acad::eOk) return nullptr;
    ResbufList list = listOf(*object);
    resbuf* tail = list.get();
    while (tail->rbnext) tail = tail->rbnext;
    appendXData(*object, applications, tail);
    object->close();
    return list.release();
}
