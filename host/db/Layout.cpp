#include "dblayout.h"

#include "BlockAccess.h"
#include "ClassRegistration.h"
#include "DxfFields.h"
#include "Stub.h"
#include "UndoRecording.h"
#include "acutads.h"
#include "dbdatabase.h"
#include "dbdict.h"

ACDB_DXF_CLASS(AcDbLayout, AcDbPlotSettings, LAYOUT)

const DxfClass AcDbLayout::dxf("AcDbLayout", &AcDbPlotSettings::dxf,
                               {
                                   dxf::text<&AcDbLayout::mName>(1),
                                   dxf::integer<&AcDbLayout::mFlags>(70),
                                   dxf::integer<&AcDbLayout::mTabOrder>(71),
                                   dxf::point2d<&AcDbLayout::mLimMin>(10),
                                   dxf::point2d<&AcDbLayout::mLimMax>(11),
                                   dxf::point<&AcDbLayout::mInsertionBase>(12),
                                   dxf::point<&AcDbLayout::mExtMin>(14),
                                   dxf::point<&AcDbLayout::mExtMax>(15),
                                   dxf::real<&AcDbLayout::mElevation>(146),
                                   dxf::point<&AcDbLayout::mUcsOrigin>(13),
                                   dxf::point<&AcDbLayout::mUcsXAxis>(16),
                                   dxf::point<&AcDbLayout::mUcsYAxis>(17),
                                   dxf::integer<&AcDbLayout::mOrthographicType>(76),
                                   dxf::reference<&AcDbLayout::mBlock>(330),
                                   dxf::reference<&AcDbLayout::mLastViewport>(331).unlessDefault(),
                                   dxf::reference<&AcDbLayout::mUcsName>(345).unlessDefault(),
                                   dxf::reference<&AcDbLayout::mUcsBase>(346).unlessDefault(),
                               });

namespace
{
constexpr const wchar_t* modelName = L"Model";

/// Tells a block which layout it is the space of; a block that someone has open for write is told as it is.
void linkBlock(AcDbObjectId id, AcDbObjectId layout)
{
    auto* block = AcDbBlockTableRecord::cast(residentObject(id));
    if (!block) return;
    undo::willChange(*block);
    BlockAccess::layout(*block) = layout;
}
} // namespace

Acad::ErrorStatus AcDbLayout::getLayoutName(const ACHAR*& name) const
{
    name = mName;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbLayout::getLayoutName(ACHAR*& name) const
{
    return acutNewString(mName, name) == RTNORM ? Acad::eOk : Acad::eOutOfMemory;
}

Acad::ErrorStatus AcDbLayout::renameEntry(const CString& from, const CString& to) const
{
    AcDbDictionary* layouts = nullptr;
    const Acad::ErrorStatus status = database()->getLayoutDictionary(layouts, AcDb::kForWrite);
    if (status != Acad::eOk) return status;
    const bool isRenamed = layouts->setName(from, to);
    layouts->close();
    return isRenamed ? Acad::eOk : Acad::eDuplicateKey;
}

Acad::ErrorStatus AcDbLayout::setLayoutName(const ACHAR* name)
{
    if (!name || !*name) return Acad::eInvalidKey;
    if (!database()) return assign(mName, CString(name));
    if (mName.CompareNoCase(modelName) == 0) return Acad::eRenameIsModelSpace;
    Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) status = renameEntry(mName, name);
    if (status == Acad::eOk) mName = name;
    return status;
}

Acad::ErrorStatus AcDbLayout::addToLayoutDict(AcDbDatabase* database, AcDbObjectId block)
{
    if (!database) return Acad::eInvalidInput;
    if (!AcDbBlockTableRecord::cast(residentObject(block))) return Acad::eWrongObjectType;
    AcDbDictionary* layouts = nullptr;
    Acad::ErrorStatus status = database->getLayoutDictionary(layouts, AcDb::kForWrite);
    if (status != Acad::eOk) return status;
    AcDbObjectId id;
    status = layouts->has(mName) ? Acad::eDuplicateKey : layouts->setAt(mName, this, id);
    layouts->close();
    if (status != Acad::eOk) return status;
    mBlock = block;
    linkBlock(block, id);
    return status;
}

AcDbObjectIdArray AcDbLayout::getViewportArray() const
{
    AcDbObjectIdArray viewports;
    const auto* block = AcDbBlockTableRecord::cast(residentObject(mBlock));
    static const AcRxClass* viewportClass = acrxClassOfName(L"AcDbViewport");
    if (!block || !viewportClass) return viewports;
    for (const AcDbObjectId id : block->entityIds()) {
        if (!id.isErased() && residentObject(id)->isKindOf(viewportClass)) viewports.append(id);
    }
    return viewports;
}

void AcDbLayout::getLimits(AcGePoint2d& minPoint, AcGePoint2d& maxPoint) const
{
    minPoint = mLimMin;
    maxPoint = mLimMax;
}

void AcDbLayout::getExtents(AcGePoint3d& minPoint, AcGePoint3d& maxPoint) const
{
    minPoint = mExtMin;
    maxPoint = mExtMax;
}

Acad::ErrorStatus AcDbLayout::subErase(bool erasing)
{
    if (erasing && mName.CompareNoCase(modelName) == 0) return Acad::eDelIsModelSpace;
    return AcDbPlotSettings::subErase(erasing);
}

void AcDbLayout::subCancel(const AcDbObject& before)
{
    const CString& name = static_cast<const AcDbLayout&>(before).mName;
    if (name != mName) renameEntry(mName, name);
}

CString acdbLayoutNameOf(const AcDbBlockTableRecord& block)
{
    const ACHAR* name = L"";
    if (const auto* layout = AcDbLayout::cast(residentObject(block.getLayoutId()))) layout->getLayoutName(name);
    return name;
}
