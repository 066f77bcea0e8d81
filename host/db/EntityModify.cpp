/// Changing objects through lists.

#include "DbObjectAccess.h"
#include "DxfFields.h"
#include "EntityLists.h"
#include "ResbufSource.h"
#include "acdbads.h"
#include "dbentity.h"
#include "dbsymtb.h"

#include <cstring>
#include <set>

namespace
{
using Nodes = std::vector<const resbuf*>;
/// The groups of each section of a list, in order, under its mark. What stands before the first section is under the empty
/// one.
using Sections = std::vector<std::pair<std::string, Nodes>>;

Nodes& sectionIn(Sections& sections, const std::string& mark)
{
    for (auto& [known, nodes] : sections) {
        if (known == mark) return nodes;
    }
    sections.push_back({mark, {}});
    return sections.back().second;
}

/// The mark of the section that the fields of a class stand in: its own or that of the nearest base; empty without.
std::string markOf(const DxfClass* section)
{
    while (section && !section->marker()) section = section->base();
    return section ? section->marker() : std::string();
}

/// The section that a group outside of sections belongs to: that of the innermost class which knows its code.
std::string sectionKnowing(const DxfClass* innermost, int code)
{
    const DxfClass* known = innermost;
    while (known && !known->fieldOf(code)) known = known->base();
    return markOf(known ? known : innermost);
}

bool hasSections(const resbuf* list)
{
    while (list && list->restype != 100 && list->restype != -3) list = list->rbnext;
    return list && list->restype == 100;
}

/// The groups of a list that classes hold, by section: names, kind, handle, owner and lists in braces before the
/// sections are left out.
Sections sectionsOf(const resbuf* list, const DxfClass* innermost)
{
    Sections sections;
    const bool isMarked = hasSections(list);
    bool isInSection = false;
    std::string section;
    for (; list && list->restype != -3; list = list->rbnext) {
        const int code = list->restype;
        if (code == 100) {
            section = utf8Of(list->resval.rstring);
            isInSection = true;
        } else if (isInSection || (!isMarked && code != 5 && code != 102 && code != 330 && code > 0)) {
            sectionIn(sections, isInSection ? section : sectionKnowing(innermost, code)).push_back(list);
        }
    }
    return sections;
}

/// The changed groups of a section and those of the old ones whose codes are not among them.
Nodes mergedNodes(const Nodes& old, const Nodes& changed)
{
    std::set<short> codes;
    for (const resbuf* node : changed) codes.insert(node->restype);
    Nodes merged = changed;
    for (const resbuf* node : old) {
        if (!codes.count(node->restype)) merged.push_back(node);
    }
    return merged;
}

void readSections(AcDbObject& fresh, const Sections& old, Sections changed, AcDbDatabase* database, bool& hasFault)
{
    for (const auto& [section, nodes] : old) {
        resbuf marker{};
        CString name = wideOf(section);
        marker.restype = 100;
        marker.resval.rstring = name.GetBuffer();
        Nodes all = mergedNodes(nodes, sectionIn(changed, section));
        if (!section.empty()) all.insert(all.begin(), &marker);
        ResbufSource source(std::move(all), database);
        dxfRead(fresh, source);
        hasFault |= source.hasFault();
    }
}

/// Puts the contents of a fresh object in place of those of an open one.
Acad::ErrorStatus take(AcDbObject& object, AcDbObject& fresh)
{
    if (auto* record = AcDbSymbolTableRecord::cast(&object)) {
        const CString name = static_cast<AcDbSymbolTableRecord&>(fresh).name();
        const Acad::ErrorStatus named = name == record->name() ? Acad::eOk : record->setName(name);
        if (named != Acad::eOk) return named;
    }
    const Acad::ErrorStatus status = object.copyFrom(&fresh);
    if (status != Acad::eOk) return status;
    if (DbObjectExtras* extras = DbObjectAccess::extras(fresh))
        DbObjectAccess::needExtras(object).keptGroups = std::move(extras->keptGroups);
    if (auto* entity = AcDbEntity::cast(&object)) {
        entity->completeRead();
        entity->recordGraphicsModified();
    }
    return status;
}

int modify(AcDbObject& object, const resbuf* list)
{
    const DxfClass* innermost = object.dxfClass();
    const std::unique_ptr<AcDbObject> fresh(static_cast<AcDbObject*>(object.isA()->create()));
    if (!innermost || !fresh) return RTERROR;
    const ResbufList now = listOf(object);
    bool hasFault = false;
    readSections(*fresh, sectionsOf(now.get(), innermost), sectionsOf(list, innermost), object.database(), hasFault);
    if (hasFault) return RTREJ;
    if (const resbuf* data = xdataOf(list)) {
        if (data->rbnext && object.setXData(data) != Acad::eOk) return RTREJ;
    }
    return take(object, *fresh) == Acad::eOk ? RTNORM : RTERROR;
}
} // namespace

int acdbEntMod(const resbuf* list)
{
    const resbuf* name = list;
    while (name && name->restype != -1) name = name->rbnext;
    AcDbObject* object = nullptr;
    if (!name || acdbOpenAcDbObject(object, idOf(name->resval.rlname), AcDb::kForWrite) != Acad::eOk) return RTERROR;
    const int result = modify(*object, list);
    if (result == RTNORM) {
        object->close();
    } else {
        object->cancel();
    }
    return result;
}

int acdbEntDel(const ads_name name)
{
    AcDbObject* object = nullptr;
    const AcDbObjectId id = idOf(name);
    if (acdbOpenAcDbObject(object, id, AcDb::kForWrite, true) != Acad::eOk) return RTERROR;
    const bool isEntity = AcDbEntity::cast(object) != nullptr;
    const Acad::ErrorStatus status = isEntity ? object->erase(!id.isErased()) : Acad::eNotAnEntity;
    object->close();
    return status == Acad::eOk ? RTNORM : RTERROR;
}

int acdbEntUpd(const ads_name name) { return idOf(name).isValid() && !idOf(name).isErased() ? RTNORM : RTERROR; }
