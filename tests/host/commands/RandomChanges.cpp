#include "RandomChanges.h"

#include "acdbads.h"
#include "actrans.h"
#include "dbents.h"
#include "dbgroup.h"
#include "dbhatch.h"
#include "dbidmap.h"
#include "dblayoutmanager.h"
#include "dbobjptr.h"
#include "dbsortentstbl.h"
#include "dbxrecrd.h"
#include "geassign.h"

namespace
{
AcDbLayoutManager& layouts()
{
    return *acdbHostApplicationServices()->layoutManager();
}

void setNumber(AcDbXrecord& record, int value)
{
    resbuf* list = acutBuildList(90, value, RTNONE);
    record.setFromRbChain(*list);
    acutRelRb(list);
}
} // namespace

const std::vector<RandomChanges::Change>& RandomChanges::all()
{
    static const std::vector<Change> changes = {
        {"line", &RandomChanges::typeLine},         {"variable", &RandomChanges::typeVariable},
        {"zoom", &RandomChanges::typeZoom},         {"UCS", &RandomChanges::setUcs},
        {"curve", &RandomChanges::addCurve},        {"move", &RandomChanges::moveEntity},
        {"paint", &RandomChanges::paintEntity},     {"erase", &RandomChanges::eraseAndBringBack},
        {"list", &RandomChanges::modifyByList},     {"data", &RandomChanges::attachData},
        {"vertices", &RandomChanges::addVertices},  {"new layer", &RandomChanges::addLayer},
        {"layer", &RandomChanges::changeLayer},     {"dictionary", &RandomChanges::changeDictionary},
        {"block", &RandomChanges::insertBlock},     {"group", &RandomChanges::changeGroup},
        {"layout", &RandomChanges::changeLayout},   {"hatch", &RandomChanges::hatchCircle},
        {"dimension", &RandomChanges::dimension},   {"order", &RandomChanges::reorder},
        {"extension", &RandomChanges::extend},      {"copy", &RandomChanges::copyEntities},
        {"transaction", &RandomChanges::transact},  {"cancel", &RandomChanges::cancelChange},
        {"insert", &RandomChanges::typeInsert},     {"wblock", &RandomChanges::typeWblock},
        {"merge", &RandomChanges::mergeDrawings},   {"pieces", &RandomChanges::insertInPieces},
        {"image", &RandomChanges::changeImage},     {"wipeout", &RandomChanges::placeWipeout},
        {"valve", &RandomChanges::changeValve},     {"call", &RandomChanges::insertByCall},
        {"file", &RandomChanges::insertFile},
    };
    return changes;
}

const char* RandomChanges::change()
{
    const Change& change = all()[static_cast<std::size_t>(number(static_cast<int>(all().size()) - 1))];
    (this->*change.make)();
    return change.name;
}

CString RandomChanges::name(const wchar_t* stem)
{
    CString made;
    made.Format(L"%ls%d", stem, ++mNames);
    return made;
}

AcDbObjectId RandomChanges::add(AcDbEntity* entity, AcDbObjectId block)
{
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(block.isNull() ? drawing().modelSpaceId() : block,
                                                        AcDb::kForWrite);
    EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
    entity->close();
    return id;
}

std::vector<AcDbObjectId> RandomChanges::living(const AcRxClass* ofClass) const
{
    std::vector<AcDbObjectId> ids;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(drawing().modelSpaceId());
    for (const AcDbObjectId id : space->entityIds()) {
        if (!id.isErased() && id.objectClass()->isDerivedFrom(ofClass)) ids.push_back(id);
    }
    return ids;
}

AcDbObjectId RandomChanges::some(const AcRxClass* ofClass)
{
    const std::vector<AcDbObjectId> ids = living(ofClass);
    return ids.empty() ? AcDbObjectId() : ids[static_cast<std::size_t>(number(static_cast<int>(ids.size()) - 1))];
}

void RandomChanges::typeLine()
{
    CString keys;
    keys.Format(L"LINE %d,%d %d,%d %d,%d \n", number(99), number(99), number(99), number(99), number(99), number(99));
    typeKeys(number(3) ? keys : keys.Left(keys.ReverseFind(L' ')) + L" ^C"); // Esc leaves what is there
}

void RandomChanges::typeVariable()
{
    static constexpr const wchar_t* names[] = {L"LTSCALE", L"TEXTSIZE", L"LUPREC", L"PDMODE", L"CECOLOR", L"LIMMAX"};
    CString keys;
    const int which = number(5);
    keys.Format(which == 5 ? L"%ls %d,7\n" : L"%ls %d\n", names[which], number(6) + 1);
    typeKeys(keys);
}

void RandomChanges::typeZoom()
{
    typeKeys(number(1) ? L"ZOOM E\n" : L"ZOOM 1,2 30,40\n");
}

void RandomChanges::setUcs()
{
    AcGeMatrix3d ucs;
    ucs.setToRotation(coordinate(), AcGeVector3d::kZAxis, place());
    asCommand([&] { acedSetCurrentUCS(ucs); });
}

void RandomChanges::addCurve()
{
    const AcGePoint3d at = place();
    const int kind = number(3);
    asCommand([&] {
        if (kind == 0) add(new AcDbCircle(at, AcGeVector3d::kZAxis, 1.0 + at.x));
        if (kind == 1) add(new AcDbText(at, L"text", AcDbObjectId(), 2.0, 0.5));
        if (kind == 2) add(new AcDbArc(at, 2.0, 0.0, 1.0));
        if (kind == 3) add(new AcDbPoint(at));
    });
}

void RandomChanges::moveEntity()
{
    const AcDbObjectId id = some(AcDbEntity::desc());
    const AcGeVector3d way = place().asVector();
    asCommand([&] {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        if (entity.openStatus() == Acad::eOk) entity->transformBy(AcGeMatrix3d::translation(way));
    });
}

void RandomChanges::paintEntity()
{
    const AcDbObjectId id = some(AcDbEntity::desc());
    const auto color = static_cast<Adesk::UInt16>(number(255) + 1);
    asCommand([&] {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        if (entity.openStatus() != Acad::eOk) return;
        entity->setColorIndex(color);
        entity->setLayer(drawing().clayer());
        entity->setLinetypeScale(color);
    });
}

void RandomChanges::eraseAndBringBack()
{
    const AcDbObjectId id = some(AcDbEntity::desc()), other = some(AcDbEntity::desc());
    asCommand([&] {
        for (const AcDbObjectId each : {id, other, other}) { // the second one comes back
            AcDbObject* entity = nullptr;
            if (acdbOpenAcDbObject(entity, each, AcDb::kForWrite, true) != Acad::eOk) continue;
            entity->erase(!each.isErased());
            entity->close();
        }
    });
}

void RandomChanges::modifyByList()
{
    const AcDbObjectId id = some(AcDbCurve::desc());
    const double thickness = coordinate();
    asCommand([&] {
        ads_name entity;
        if (acdbGetAdsName(entity, id) != Acad::eOk) return;
        resbuf* list = acdbEntGet(entity);
        for (resbuf* at = list; at; at = at->rbnext) {
            if (at->restype == 10) at->resval.rpoint[X] = thickness;
        }
        acdbEntMod(list);
        acutRelRb(list);
        list = acutBuildList(RTDXF0, L"POINT", 10, asDblArray(AcGePoint3d(thickness, 1, 2)), RTNONE);
        acdbEntMake(list);
        acutRelRb(list);
    });
}

void RandomChanges::attachData()
{
    const AcDbObjectId id = some(AcDbEntity::desc());
    const int value = number(99);
    asCommand([&] {
        acdbRegApp(L"RANDOM");
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        if (entity.openStatus() != Acad::eOk) return;
        resbuf* data = acutBuildList(1001, L"RANDOM", 1071, value, RTNONE);
        entity->setXData(data);
        acutRelRb(data);
    });
}

void RandomChanges::addVertices()
{
    const AcDbObjectId old = some(AcDb3dPolyline::desc());
    AcGePoint3dArray places;
    for (int i = 0; i < 4; ++i)
        places.append(place());
    asCommand([&] {
        const AcDbObjectId id = old.isNull() ? add(new AcDb3dPolyline(AcDb::k3dSimplePoly, places)) : old;
        const AcDbObjectPointer<AcDb3dPolyline> polyline(id, AcDb::kForWrite);
        if (polyline.openStatus() != Acad::eOk) return;
        auto* vertex = new AcDb3dPolylineVertex(places[0]);
        if (polyline->appendVertex(vertex) == Acad::eOk) vertex->close();
    });
}

void RandomChanges::addLayer()
{
    const CString layerName = name(L"LAYER");
    asCommand([&] {
        AcDbObjectId id;
        const AcDbLayerTablePointer layers(&drawing(), AcDb::kForWrite);
        auto* layer = new AcDbLayerTableRecord;
        layer->setName(layerName);
        layers->add(id, layer);
        layer->close();
        drawing().setClayer(id);
    });
}

void RandomChanges::changeLayer()
{
    const CString newName = name(L"RENAMED");
    const int kind = number(2);
    asCommand([&] {
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(drawing().clayer(), AcDb::kForWrite);
        if (kind == 0) layer->setName(newName);
        if (kind == 1) layer->setIsFrozen(!layer->isFrozen());
        if (kind == 2) layer->erase();
    });
}

void RandomChanges::changeDictionary()
{
    const CString entry = name(L"ENTRY");
    const int kind = number(4);
    asCommand([&] {
        const AcDbDictionaryPointer root(drawing().namedObjectsDictionaryId(), AcDb::kForWrite);
        AcDbObjectId id;
        if (root->getAt(L"RANDOM", id) != Acad::eOk) {
            auto* made = new AcDbDictionary;
            root->setAt(L"RANDOM", made, id);
            made->setTreatElementsAsHard();
            made->close();
        }
        const AcDbDictionaryPointer own(id, AcDb::kForWrite);
        const std::unique_ptr<AcDbDictionaryIterator> first(own->newIterator());
        if (kind <= 1 || first->done()) {
            auto* record = new AcDbXrecord;
            own->setAt(kind == 1 && !first->done() ? first->name() : entry.GetString(), record, id);
            setNumber(*record, kind);
            record->close();
        } else if (kind == 2) {
            own->setName(CString(first->name()), entry);
        } else if (kind == 3) {
            own->remove(first->objectId());
        } else {
            own->erase();
        }
    });
}

void RandomChanges::insertBlock()
{
    const CString blockName = name(L"BLOCK");
    const AcGePoint3d at = place();
    const AcDbObjectId old = some(AcDbBlockReference::desc());
    asCommand([&] {
        AcDbObjectId id;
        {
            const AcDbBlockTablePointer blocks(&drawing(), AcDb::kForWrite);
            auto* block = new AcDbBlockTableRecord;
            block->setName(blockName);
            blocks->add(id, block);
            block->close();
        }
        add(new AcDbCircle(AcGePoint3d::kOrigin, AcGeVector3d::kZAxis, 3.0), id);
        const AcDbObjectId made = add(new AcDbBlockReference(at, id));
        for (const AcDbObjectId each : {made, old}) {
            const AcDbObjectPointer<AcDbBlockReference> insert(each, AcDb::kForWrite);
            if (insert.openStatus() != Acad::eOk) continue;
            auto* attribute = new AcDbAttribute(at, L"value", L"TAG");
            if (insert->appendAttribute(attribute) == Acad::eOk) attribute->close();
            insert->setBlockTableRecord(id);
        }
    });
}

void RandomChanges::changeGroup()
{
    const AcDbObjectId member = some(AcDbEntity::desc());
    const int kind = number(2);
    asCommand([&] {
        AcDbDictionary* groups = nullptr;
        ASSERT_EQ(drawing().getGroupDictionary(groups, AcDb::kForWrite), Acad::eOk);
        const AcDbDictionaryPointer closing(groups);
        AcDbObjectId id;
        if (closing->getAt(L"GROUP", id) != Acad::eOk) {
            auto* made = new AcDbGroup(L"random");
            closing->setAt(L"GROUP", made, id);
            made->close();
        }
        const AcDbObjectPointer<AcDbGroup> group(id, AcDb::kForWrite);
        if (kind == 0) group->append(member);
        if (kind == 1) group->clear();
        if (kind == 2) group->erase();
    });
}

void RandomChanges::changeLayout()
{
    const CString layoutName = name(L"Sheet");
    const int kind = number(4);
    asCommand([&] {
        const CString current(layouts().findActiveLayout(false));
        AcDbObjectId id, block;
        if (kind == 0) layouts().createLayout(layoutName, id, block);
        if (kind == 1) layouts().renameLayout(current, layoutName);
        if (kind == 2) layouts().copyLayout(current, layoutName);
        if (kind == 3) layouts().setCurrentLayout(current);
        if (kind == 4) layouts().deleteLayout(current);
        layouts().setCurrentLayout(L"Model");
    });
}

void RandomChanges::hatchCircle()
{
    const AcGePoint3d at = place();
    asCommand([&] {
        AcDbObjectIdArray loop;
        loop.append(add(new AcDbCircle(at, AcGeVector3d::kZAxis, 5.0)));
        auto* hatch = new AcDbHatch;
        hatch->setPattern(AcDbHatch::kPreDefined, L"SOLID");
        hatch->setAssociative(true);
        hatch->appendLoop(AcDbHatch::kExternal, loop);
        add(hatch);
        const AcDbObjectPointer<AcDbCircle> circle(loop[0], AcDb::kForWrite);
        circle->setRadius(6.0);
    });
}

void RandomChanges::dimension()
{
    const AcDbObjectId old = some(AcDbAlignedDimension::desc());
    const AcGePoint3d from = place(), to = place(), line = place();
    asCommand([&] {
        if (old.isNull()) {
            add(new AcDbAlignedDimension(from, to, line));
            return;
        }
        const AcDbObjectPointer<AcDbAlignedDimension> dimension(old, AcDb::kForWrite);
        if (dimension.openStatus() == Acad::eOk) dimension->setXLine1Point(from);
    });
}

void RandomChanges::reorder()
{
    const AcDbObjectId id = some(AcDbEntity::desc());
    asCommand([&] {
        if (id.isNull()) return;
        const AcDbObjectPointer<AcDbBlockTableRecord> space(drawing().modelSpaceId(), AcDb::kForWrite);
        if (space->extensionDictionary().isNull()) space->createExtensionDictionary();
        const AcDbDictionaryPointer extension(space->extensionDictionary(), AcDb::kForWrite);
        AcDbObjectId tableId;
        if (extension->getAt(L"ACAD_SORTENTS", tableId) != Acad::eOk) {
            auto* made = new AcDbSortentsTable;
            extension->setAt(L"ACAD_SORTENTS", made, tableId);
            made->close();
        }
        AcDbObjectIdArray ids;
        ids.append(id);
        const AcDbObjectPointer<AcDbSortentsTable> table(tableId, AcDb::kForWrite);
        table->moveToBottom(ids);
    });
}

void RandomChanges::extend()
{
    const AcDbObjectId id = some(AcDbEntity::desc());
    asCommand([&] {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        if (entity.openStatus() == Acad::eOk && entity->createExtensionDictionary() != Acad::eOk)
            entity->releaseExtensionDictionary();
    });
}

void RandomChanges::copyEntities()
{
    const AcDbObjectId id = some(AcDbEntity::desc());
    asCommand([&] {
        AcDbObjectIdArray ids;
        ids.append(id);
        AcDbIdMapping map;
        AcDbObjectId owner = drawing().modelSpaceId();
        drawing().deepCloneObjects(ids, owner, map);
    });
}

void RandomChanges::transact()
{
    const AcDbObjectId id = some(AcDbEntity::desc());
    const AcGePoint3d at = place();
    const bool ends = number(1);
    asCommand([&] {
        actrTransactionManager->startTransaction();
        AcDbObject* object = nullptr;
        if (actrTransactionManager->getObject(object, id, AcDb::kForWrite) == Acad::eOk)
            AcDbEntity::cast(object)->setColorIndex(4);
        actrTransactionManager->startTransaction();
        add(new AcDbPoint(at));
        if (object) object->erase();
        actrTransactionManager->abortTransaction();
        add(new AcDbPoint(at));
        ends ? actrTransactionManager->endTransaction() : actrTransactionManager->abortTransaction();
    });
}

void RandomChanges::cancelChange()
{
    const AcDbObjectId id = some(AcDbEntity::desc());
    asCommand([&] {
        AcDbEntity* entity = nullptr;
        if (acdbOpenObject(entity, id, AcDb::kForWrite) != Acad::eOk) return;
        entity->setColorIndex(1);
        entity->erase();
        entity->cancel();
    });
}
