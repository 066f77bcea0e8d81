/// Making objects from lists.

#include "acdbads.h"
#include "db3dpl.h"
#include "dbblkref.h"
#include "dbpolymesh.h"
#include "dbvertex.h"
#include "DxfFields.h"
#include "EntityLists.h"
#include "RecordClass.h"
#include "ResbufSource.h"
#include "UnfinishedEntities.h"

#include <optional>

namespace
{
/// A list for making: what names an object that was is passed over, and the space is noted.
class MakingSource : public ResbufSource
{
public:
    MakingSource(std::vector<const resbuf*> nodes, AcDbDatabase& database)
        : ResbufSource(std::move(nodes), &database)
    {
    }
    void paperSpace(bool isPaperSpace) override { mIsPaperSpace = isPaperSpace; }
    bool isPaperSpace() const { return mIsPaperSpace; }

private:
    bool mIsPaperSpace = false;
};

/// The groups of a list that describe the object, without those that name it and its owner.
std::vector<const resbuf*> contentsOf(const resbuf* list)
{
    std::vector<const resbuf*> nodes;
    bool isInSection = false;
    for (; list && list->restype != -3; list = list->rbnext) {
        const int code = list->restype;
        isInSection |= code == 100;
        const bool isFrame =
            code <= 0 || (!isInSection && (code == 5 || code == 330 || code == 102 || code == 360));
        if (!isFrame) nodes.push_back(list);
    }
    return nodes;
}

/// A list as what chooses the class of a record.
class ListView : public RecordView
{
public:
    explicit ListView(const resbuf* list) : mNodes(contentsOf(list)) {}
    bool hasSection(std::string_view marker) const override
    {
        return find([=](const DxfGroup& group) { return group.is(100) && group.text == marker; }).has_value();
    }
    std::int64_t integer(int code, std::int64_t otherwise) const override
    {
        return find([=](const DxfGroup& group) { return group.is(code); }).value_or(otherwise);
    }

private:
    /// The number of the first group that is wanted.
    template <class Test>
    std::optional<std::int64_t> find(Test isWanted) const
    {
        ResbufSource source(mNodes, nullptr);
        for (; const DxfGroup* group = source.peek(); source.take()) {
            if (isWanted(*group)) return group->integer;
        }
        return {};
    }

    std::vector<const resbuf*> mNodes;
};

/// The class of the vertices of a polyline or mesh; null where there are several.
const AcRxClass* vertexClassOf(const AcDbEntity& owner)
{
    if (owner.isKindOf(AcDb3dPolyline::desc())) return AcDb3dPolylineVertex::desc();
    return owner.isKindOf(AcDbPolygonMesh::desc()) ? AcDbPolygonMeshVertex::desc() : nullptr;
}

/// The class of the object that a list describes; null for none. A vertex whose list says no more than that
/// takes the class that the polyline before it has use for.
const AcRxClass* classOf(const resbuf* list)
{
    const ACHAR* kind = kindOf(list);
    if (!kind) return nullptr;
    const ListView view(list);
    const AcRxClass* found = recordKindOf(utf8Of(CString(kind).MakeUpper())).classOf(view);
    const AcDbEntity* owner = UnfinishedEntities::current().owner();
    const bool isPlain = found == AcDb2dVertex::desc() && !view.hasSection("AcDb2dVertex");
    const AcRxClass* wanted = isPlain && owner ? vertexClassOf(*owner) : nullptr;
    return wanted ? wanted : found;
}

bool startsSequence(const AcDbEntity& entity, const resbuf* list)
{
    if (entity.isKindOf(AcDbBlockReference::desc())) return ListView(list).integer(66, 0) != 0;
    return CString(kindOf(list)).CompareNoCase(L"POLYLINE") == 0;
}

/// Reads an object of a class; null for a list that it cannot be read from.
std::unique_ptr<AcDbObject> readObject(const AcRxClass& wanted, MakingSource& source)
{
    std::unique_ptr<AcRxObject> made(wanted.create());
    std::unique_ptr<AcDbObject> object(AcDbObject::cast(made.get()));
    if (!object) return object;
    made.release();
    dxfRead(*object, source);
    if (source.hasFault()) object.reset();
    return object;
}

int makeEntity(std::unique_ptr<AcDbObject> object, const resbuf* list, bool isInPaperSpace, AcDbObjectId& id)
{
    MadeEntity made;
    const resbuf* data = xdataOf(list);
    ResbufSource source(data ? data->rbnext : nullptr, workingDatabase());
    for (; const DxfGroup* group = source.peek(); source.take())
        made.xdata.append(*group);
    if (data && data->rbnext && !isXData(data, *workingDatabase())) return RTREJ;
    made.entity.reset(static_cast<AcDbEntity*>(object.release()));
    made.isInPaperSpace = isInPaperSpace;
    const bool isFirst = startsSequence(*made.entity, list);
    return UnfinishedEntities::current().take(std::move(made), isFirst, id);
}

/// Makes an object that nothing owns yet.
int makeObject(std::unique_ptr<AcDbObject> object, const resbuf* list, AcDbObjectId& id)
{
    if (!UnfinishedEntities::current().isEmpty()) return RTREJ;
    if (workingDatabase()->addAcDbObject(id, object.get()) != Acad::eOk) return RTERROR;
    AcDbObject* made = object.release();
    const resbuf* data = xdataOf(list);
    const bool isWhole = !data || !data->rbnext || made->setXData(data) == Acad::eOk;
    if (isWhole) {
        made->close();
    } else {
        made->cancel();
    }
    return isWhole ? RTNORM : RTREJ;
}

int beginBlock(const resbuf* list)
{
    AcDbBlockBegin head;
    ResbufSource source(contentsOf(list), workingDatabase());
    dxfRead(head, source);
    return source.hasFault() ? RTREJ : UnfinishedEntities::current().beginBlock(head);
}

int make(const resbuf* list, bool mayBeNoEntity, AcDbObjectId& id)
{
    const CString kind = kindOf(list);
    if (kind.CompareNoCase(L"BLOCK") == 0) return beginBlock(list);
    if (kind.CompareNoCase(L"ENDBLK") == 0) return UnfinishedEntities::current().endBlock(id);
    const AcRxClass* wanted = classOf(list);
    const bool isEntity = wanted && wanted->isDerivedFrom(AcDbEntity::desc());
    if (!wanted || !(isEntity || mayBeNoEntity)) return RTREJ;
    MakingSource source(contentsOf(list), *workingDatabase());
    std::unique_ptr<AcDbObject> object = readObject(*wanted, source);
    if (!object) return RTREJ;
    return isEntity ? makeEntity(std::move(object), list, source.isPaperSpace(), id)
                    : makeObject(std::move(object), list, id);
}

int makeOrGiveUp(const resbuf* list, bool mayBeNoEntity, ads_name name)
{
    AcDbObjectId id;
    const int result = make(list, mayBeNoEntity, id);
    if (result != RTNORM && result != RTKWORD) {
        UnfinishedEntities::current().clear();
        return result;
    }
    name[0] = name[1] = 0;
    if (!id.isNull()) giveName(id, name);
    return result;
}
} // namespace

int acdbEntMakeX(const resbuf* list, ads_name result)
{
    return workingDatabase() && list && result ? makeOrGiveUp(list, true, result) : RTERROR;
}

int acdbEntMake(const resbuf* list)
{
    ads_name name;
    return workingDatabase() ? makeOrGiveUp(list, false, name) : RTERROR;
}
