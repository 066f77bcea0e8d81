#include "CFamStuGlobe.h"

#include "acdbads.h"
#include "acedads.h"
#include "CFamStuSysVar.h"
#include "geassign.h"

namespace
{
/// A selection set that is freed at the end.
class OwnedSet
{
public:
    OwnedSet() = default;
    ~OwnedSet()
    {
        if (ads_name_nil(m_name) == 0) acedSSFree(m_name);
    }
    OwnedSet(const OwnedSet&) = delete;
    OwnedSet& operator=(const OwnedSet&) = delete;
    ads_name& name() { return m_name; }

private:
    ads_name m_name = {};
};

/// Appends the entities of a set up to the first that has no id.
void appendIds(AcDbObjectIdArray& ids, const ads_name ss)
{
    Adesk::Int32 length = 0;
    if (acedSSLength(ss, &length) != RTNORM) return;
    for (Adesk::Int32 i = 0; i < length; ++i) {
        ads_name entity;
        AcDbObjectId id;
        if (acedSSName(ss, i, entity) != RTNORM || acdbGetObjectId(id, entity) != Acad::eOk) return;
        ids.append(id);
    }
}

int selectByUser(const CString& prompt, const resbuf* filter, ads_name ss)
{
    const ACHAR* const prompts[] = {prompt, prompt}; // to add and to remove
    return acedSSGet(L":$", prompts, nullptr, filter, ss);
}

/// The entity under a point that fits a filter; null when there is none.
AcDbObjectId fittingAt(const ads_point point, const resbuf* filter)
{
    OwnedSet found;
    AcDbObjectIdArray ids;
    if (acedSSGet(nullptr, point, nullptr, filter, found.name()) == RTNORM) appendIds(ids, found.name());
    return ids.isEmpty() ? AcDbObjectId::kNull : ids[0];
}

/// Nothing was under the point, and the user may try again.
bool pickMissed()
{
    constexpr int nothingThere = 7;
    int error = 0;
    return CFamStuSysVar::Get(L"ERRNO", error) && error == nothingThere;
}
} // namespace

int CFamStuGlobe::SetPickStyle(int style)
{
    int before = 0;
    CFamStuSysVar::Get(L"PICKSTYLE", before);
    const CFamStuSysVar kept(L"PICKSTYLE", style, FALSE);
    return before;
}

AcDbObjectId CFamStuGlobe::PickObject(AcGePoint3d& point, resbuf* filter, CString prompt)
{
    const CFamStuSysVar singleObjects(L"PICKSTYLE", 0, TRUE);
    for (;;) {
        ads_name entity;
        ads_point at;
        AcDbObjectId id;
        const int result = acedEntSel(prompt, entity, at);
        if (result == RTNORM) {
            if (filter)
                id = fittingAt(at, filter);
            else
                acdbGetObjectId(id, entity);
        } else if (result != RTERROR || !pickMissed()) {
            return AcDbObjectId::kNull;
        }
        if (id.isNull()) continue;
        point = asPnt3d(at);
        return id;
    }
}

int CFamStuGlobe::SelectObjects(AcDbObjectIdArray& ids, CString prompt, resbuf* filter, AcGePoint3d* p1,
                                AcGePoint3d* p2, int all)
{
    ids.removeAll();
    acedSSSetFirst(nullptr, nullptr);
    const int pickStyle = SetPickStyle(0);
    OwnedSet selected;
    int result = RTERROR;
    if (p1 && p2)
        result = acedSSGet(L"C", asDblArray(*p1), asDblArray(*p2), filter, selected.name());
    else if (all)
        result = acedSSGet(L"X", nullptr, nullptr, filter, selected.name());
    else
        result = selectByUser(prompt, filter, selected.name());
    SetPickStyle(pickStyle);
    if (result == RTNORM) appendIds(ids, selected.name());
    return ids.length();
}

long CFamStuGlobe::Idstoss(ads_name ss, const AcDbObjectIdArray& ids)
{
    ads_name_clear(ss);
    if (acedSSAdd(nullptr, nullptr, ss) != RTNORM) return 0;
    for (int i = 0; i < ids.length(); ++i) {
        ads_name entity;
        if (acdbGetAdsName(entity, ids[i]) == Acad::eOk) acedSSAdd(entity, ss, ss);
    }
    Adesk::Int32 length = 0;
    acedSSLength(ss, &length);
    return length;
}

AcDbObjectIdArray CFamStuGlobe::SStoIds(ads_name ss)
{
    AcDbObjectIdArray ids;
    appendIds(ids, ss);
    return ids;
}
