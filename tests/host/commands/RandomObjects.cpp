/// Changes that bring whole objects with what belongs to them: insertions, copies between drawings, pictures, objects of a
/// module.

#include "DrawingText.h"
#include "RandomChanges.h"

#include "dbents.h"
#include "dbgroup.h"
#include "dbidmap.h"
#include "dbobjptr.h"
#include "dbwipe.h"
#include "imgdef.h"
#include "imgent.h"

namespace
{
AcDbObjectId putInto(AcDbObjectId blockId, AcDbEntity* entity)
{
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId, AcDb::kForWrite);
    EXPECT_EQ(block->appendAcDbEntity(id, entity), Acad::eOk);
    entity->close();
    return id;
}

AcDbObjectId definitionIn(AcDbDatabase& drawing)
{
    AcDbObjectId dictionaryId, id;
    AcDbRasterImageDef::createImageDictionary(&drawing, dictionaryId);
    const AcDbDictionaryPointer dictionary(dictionaryId, AcDb::kForWrite);
    if (dictionary->getAt(L"PICTURE", id) == Acad::eOk) return id;
    auto* definition = new AcDbRasterImageDef;
    definition->setSourceFileName(L"nowhere.png");
    EXPECT_EQ(dictionary->setAt(L"PICTURE", definition, id), Acad::eOk);
    definition->close();
    return id;
}

/// An image with the reactor that ties it to its definition.
AcDbObjectId placeImage(AcDbObjectId block, AcDbObjectId definition, const AcGePoint3d& at)
{
    auto* image = new AcDbRasterImage;
    image->setImageDefId(definition);
    image->setOrientation(at, {8, 0, 0}, {0, 4, 0});
    const AcDbObjectId id = putInto(block, image);
    auto* reactor = new AcDbRasterImageDefReactor(id);
    AcDbObjectId reactorId;
    EXPECT_EQ(id.database()->addAcDbObject(reactorId, reactor, id), Acad::eOk);
    reactor->close();
    AcDbObjectPointer<AcDbRasterImage>(id, AcDb::kForWrite)->setReactorId(reactorId);
    AcDbObjectPointer<AcDbRasterImageDef>(definition, AcDb::kForWrite)->addPersistentReactor(reactorId);
    return id;
}

CString temporaryFile()
{
    const std::string path = drawingtext::temporaryFile();
    return CString(std::wstring(path.begin(), path.end()).c_str());
}

void group(AcDbDatabase& drawing, const AcDbObjectIdArray& members)
{
    AcDbDictionary* groups = nullptr;
    AcDbObjectId id;
    ASSERT_EQ(drawing.getGroupDictionary(groups, AcDb::kForWrite), Acad::eOk);
    auto* made = new AcDbGroup(L"side");
    EXPECT_EQ(groups->setAt(L"SIDE", made, id), Acad::eOk);
    made->append(members);
    made->close();
    groups->close();
}
} // namespace

/// Another drawing, with one thing of each kind.
AcDbDatabase& RandomChanges::side()
{
    if (mSide) return *mSide;
    mSide = std::make_unique<AcDbDatabase>();
    AcDbObjectId layerId, blockId;
    {
        const AcDbLayerTablePointer layers(mSide.get(), AcDb::kForWrite);
        auto* layer = new AcDbLayerTableRecord;
        layer->setName(L"SIDE");
        layers->add(layerId, layer);
        layer->close();
        const AcDbBlockTablePointer blocks(mSide.get(), AcDb::kForWrite);
        auto* block = new AcDbBlockTableRecord;
        block->setName(L"SIDEBLOCK");
        blocks->add(blockId, block);
        block->close();
    }
    putInto(blockId, new AcDbAttributeDefinition({0, 0, 0}, L"7", L"TAG", L"?"));
    const AcDbObjectId space = mSide->modelSpaceId();
    AcDbObjectIdArray members;
    members.append(putInto(space, new AcDbCircle({1, 1, 0}, AcGeVector3d::kZAxis, 2)));
    members.append(putInto(space, new AcDbBlockReference({5, 5, 0}, blockId)));
    members.append(placeImage(space, definitionIn(*mSide), {0, 9, 0}));
    members.append(::addValve(space, {4, 4, 0}, layerId, members[0]));
    group(*mSide, members);
    return *mSide;
}

void RandomChanges::insertByCall()
{
    const AcGePoint3d at = place();
    const bool isShown = number(1);
    asCommand([&] {
        AcDbObjectId id;
        if (drawing().insert(id, L"DOOR", &side()) == Acad::eOk && isShown) add(new AcDbBlockReference(at, id));
    });
}

void RandomChanges::typeInsert()
{
    CString keys;
    keys.Format(L"-INSERT %lsSIDEBLOCK %d,%d 2 0\n", number(1) ? L"*" : L"", number(99), number(99));
    typeKeys(keys);
}

void RandomChanges::insertFile()
{
    const CString file = temporaryFile();
    EXPECT_EQ(side().saveAs(file), Acad::eOk);
    typeKeys(L"-INSERT BACK=\"" + file + L"\" 3,3 1 1 0\n");
    DeleteFileW(file);
}

void RandomChanges::typeWblock()
{
    const CString file = temporaryFile();
    typeKeys(L"WBLOCK \"" + file + L"\"\n\n1,1 _L\n\n");
    DeleteFileW(file);
}

void RandomChanges::mergeDrawings()
{
    const int kind = number(2);
    asCommand([&] {
        AcDbDatabase& from = side();
        AcDbObjectIdArray ids;
        for (const AcDbObjectId id : AcDbObjectPointer<AcDbBlockTableRecord>(from.modelSpaceId())->entityIds())
            ids.append(id);
        AcDbIdMapping map;
        AcDbObjectId owner = drawing().modelSpaceId();
        constexpr AcDb::DuplicateRecordCloning ways[] = {AcDb::kDrcIgnore, AcDb::kDrcReplace, AcDb::kDrcMangleName};
        EXPECT_EQ(from.wblockCloneObjects(ids, owner, map, ways[kind]), Acad::eOk);
    });
}

void RandomChanges::insertInPieces()
{
    const AcGeMatrix3d way = AcGeMatrix3d::translation(place().asVector());
    asCommand([&] { EXPECT_EQ(drawing().insert(way, &side()), Acad::eOk); });
}

void RandomChanges::changeImage()
{
    const AcDbObjectId old = some(AcDbRasterImage::desc());
    const AcGePoint3d at = place();
    const int kind = number(4);
    asCommand([&] {
        if (old.isNull() || kind == 0) {
            placeImage(drawing().modelSpaceId(), definitionIn(drawing()), at);
            return;
        }
        const AcDbObjectPointer<AcDbRasterImage> image(old, AcDb::kForWrite);
        if (image.openStatus() != Acad::eOk) return;
        AcGePoint2dArray corners;
        corners.append(AcGePoint2d(0, 0));
        corners.append(AcGePoint2d(0.5, 0.5));
        if (kind == 1) image->setClipBoundary(AcDbRasterImage::kRect, corners);
        if (kind == 2) image->setBrightness(80);
        if (kind == 3) image->erase();
        const AcDbObjectPointer<AcDbRasterImageDef> definition(image->imageDefId(), AcDb::kForWrite);
        if (kind == 4 && definition.openStatus() == Acad::eOk) definition->setActiveFileName(name(L"other"));
    });
}

void RandomChanges::placeWipeout()
{
    const AcGePoint3d at = place();
    asCommand([&] {
        auto* wipeout = new AcDbWipeout;
        wipeout->setOrientation(at, {5, 0, 0}, {0, 5, 0});
        add(wipeout);
    });
}

void RandomChanges::changeValve()
{
    const AcDbObjectId old = some(TestValve::desc()), next = some(AcDbEntity::desc());
    const AcGePoint3d at = place();
    const int kind = number(4);
    asCommand([&] {
        const AcDbObjectId id =
            old.isNull() || kind == 0 ? ::addValve(drawing().modelSpaceId(), at, drawing().clayer(), next) : old;
        const AcDbObjectPointer<TestValve> valve(id, AcDb::kForWrite);
        if (valve.openStatus() != Acad::eOk) return;
        valve->setAt(at);
        valve->setColorIndex(3);
        const AcDbObjectPointer<TestTag> tag(valve->tag, AcDb::kForWrite);
        if (kind == 1 && tag.openStatus() == Acad::eOk) tag->setText(name(L"tag"));
        if (kind == 2) valve->transformBy(AcGeMatrix3d::translation({1, 2, 0}));
        if (kind == 3) valve->erase();
    });
}
