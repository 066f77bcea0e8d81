#include "FiledClasses.h"

#include "acdbads.h"
#include "dbobjptr.h"
#include "geassign.h"

#include <gtest/gtest.h>

ACRX_DXF_DEFINE_MEMBERS(TestTag, AcDbObject, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, AcDbProxyObject::kNoOperation,
                        TESTTAG, ValveTests)
ACRX_DXF_DEFINE_MEMBERS(TestValve, AcDbEntity, AcDb::kDHL_CURRENT, AcDb::kMReleaseCurrent, AcDbProxyEntity::kNoOperation,
                        TESTVALVE, ValveTests)

AcDb::FilerType TestValve::lastFiler = AcDb::kFileFiler;
TestValve::Copying TestValve::copying = TestValve::Copying::asFiled;

Acad::ErrorStatus TestTag::dwgOutFields(AcDbDwgFiler* filer) const
{
    assertReadEnabled();
    const Acad::ErrorStatus status = AcDbObject::dwgOutFields(filer);
    if (status != Acad::eOk) return status;
    filer->writeItem(text);
    filer->writeItem(AcDbSoftPointerId(valve));
    return filer->filerStatus();
}

Acad::ErrorStatus TestTag::dwgInFields(AcDbDwgFiler* filer)
{
    Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) status = AcDbObject::dwgInFields(filer);
    if (status != Acad::eOk) return status;
    AcDbSoftPointerId id;
    filer->readString(text);
    filer->readItem(&id);
    valve = id;
    return filer->filerStatus();
}

Acad::ErrorStatus TestTag::dxfOutFields(AcDbDxfFiler* filer) const
{
    AcDbObject::dxfOutFields(filer);
    filer->writeItem(AcDb::kDxfSubclass, L"TestTag");
    filer->writeItem(1, static_cast<const wchar_t*>(text));
    filer->writeItem(330, valve);
    return filer->filerStatus();
}

Acad::ErrorStatus TestTag::dxfInFields(AcDbDxfFiler* filer)
{
    AcDbObject::dxfInFields(filer);
    resbuf item;
    if (!filer->atSubclassData(L"TestTag")) return filer->filerStatus();
    while (filer->readResBuf(&item) == Acad::eOk) {
        if (item.restype == 1) text = item.resval.rstring;
        if (item.restype == 330) acdbGetObjectId(valve, item.resval.rlname);
    }
    return filer->filerStatus();
}

Acad::ErrorStatus TestValve::dwgOutFields(AcDbDwgFiler* filer) const
{
    const Acad::ErrorStatus status = AcDbEntity::dwgOutFields(filer);
    if (status != Acad::eOk) return status;
    if (copying == Copying::refused && filer->filerType() == AcDb::kWblockCloneFiler) filer->setFilerStatus(Acad::eNotApplicable);
    filer->writePoint3d(at);
    filer->writeHardPointerId(AcDbHardPointerId(series));
    filer->writeSoftPointerId(AcDbSoftPointerId(next));
    filer->writeHardOwnershipId(AcDbHardOwnershipId(tag));
    filer->writeSoftOwnershipId(AcDbSoftOwnershipId(spare));
    return filer->filerStatus();
}

Acad::ErrorStatus TestValve::dwgInFields(AcDbDwgFiler* filer)
{
    const Acad::ErrorStatus status = AcDbEntity::dwgInFields(filer);
    if (status != Acad::eOk) return status;
    lastFiler = filer->filerType();
    AcDbHardPointerId hard;
    AcDbSoftPointerId soft;
    AcDbHardOwnershipId hardOwned;
    AcDbSoftOwnershipId softOwned;
    filer->readPoint3d(&at);
    filer->readHardPointerId(&hard);
    filer->readSoftPointerId(&soft);
    filer->readHardOwnershipId(&hardOwned);
    filer->readSoftOwnershipId(&softOwned);
    series = hard;
    next = soft;
    tag = hardOwned;
    spare = softOwned;
    return filer->filerStatus();
}

Acad::ErrorStatus TestValve::dxfOutFields(AcDbDxfFiler* filer) const
{
    AcDbEntity::dxfOutFields(filer);
    filer->writeItem(AcDb::kDxfSubclass, L"TestValve");
    filer->writeItem(10, at);
    filer->writeItem(340, series);
    filer->writeItem(330, next);
    filer->writeItem(360, tag);
    filer->writeItem(350, spare);
    return filer->filerStatus();
}

Acad::ErrorStatus TestValve::dxfInFields(AcDbDxfFiler* filer)
{
    AcDbEntity::dxfInFields(filer);
    resbuf item;
    if (!filer->atSubclassData(L"TestValve")) return filer->filerStatus();
    while (filer->readResBuf(&item) == Acad::eOk) {
        switch (item.restype) {
        case 10: at = asPnt3d(item.resval.rpoint); break;
        case 340: acdbGetObjectId(series, item.resval.rlname); break;
        case 330: acdbGetObjectId(next, item.resval.rlname); break;
        case 360: acdbGetObjectId(tag, item.resval.rlname); break;
        case 350: acdbGetObjectId(spare, item.resval.rlname); break;
        }
    }
    return filer->filerStatus();
}

Acad::ErrorStatus TestValve::subDeepClone(AcDbObject* owner, AcDbObject*& copy, AcDbIdMapping& map,
                                          bool isPrimary) const
{
    copy = nullptr;
    if (copying == Copying::leftOut) return Acad::eOk;
    const Acad::ErrorStatus status = AcDbEntity::subDeepClone(owner, copy, map, isPrimary);
    if (auto* valve = TestValve::cast(copy); valve && copying == Copying::painted) valve->setColorIndex(isPrimary ? 6 : 4);
    return status;
}

FiledClasses::FiledClasses()
{
    TestTag::rxInit();
    TestValve::rxInit();
    TestValve::copying = TestValve::Copying::asFiled;
}

FiledClasses::~FiledClasses()
{
    for (AcRxClass** known : {&TestTag::gpDesc, &TestValve::gpDesc}) {
        deleteAcRxClass(*known);
        *known = nullptr;
    }
}

namespace
{
AcDbObjectId addTag(AcDbObjectId owner)
{
    auto* tag = new TestTag;
    AcDbObjectId id;
    tag->text = L"阀门";
    tag->valve = owner;
    EXPECT_EQ(owner.database()->addAcDbObject(id, tag, owner), Acad::eOk);
    tag->close();
    return id;
}
} // namespace

AcDbObjectId addValve(AcDbObjectId block, const AcGePoint3d& at, AcDbObjectId series, AcDbObjectId next)
{
    auto* valve = new TestValve;
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbBlockTableRecord> owner(block, AcDb::kForWrite);
    EXPECT_EQ(owner->appendAcDbEntity(id, valve), Acad::eOk);
    valve->at = at;
    valve->series = series;
    valve->next = next;
    valve->tag = addTag(id);
    valve->spare = addTag(id);
    valve->close();
    return id;
}
