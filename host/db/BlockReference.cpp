#include "dbblkref.h"

#include "BlockAccess.h"
#include "EntityAccess.h"
#include "PlanarCoords.h"
#include "Stub.h"
#include "dbattrib.h"
#include "dbblock.h"
#include "dbdatabase.h"
#include "dbobjiter.h"

#include <cmath>

AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRec)
    : mBlock(blockTableRec), mPosition(position)
{
}

// The attributes are objects of the drawing: a copy has none.
AcDbBlockReference::AcDbBlockReference(const AcDbBlockReference& other)
    : AcDbEntity(other), mBlock(other.mBlock), mPosition(other.mPosition), mScale(other.mScale),
      mRotation(other.mRotation), mNormal(other.mNormal)
{
}

AcDbBlockReference& AcDbBlockReference::operator=(const AcDbBlockReference& other)
{
    AcDbEntity::operator=(other);
    mIsListed = mIsListed && mBlock == other.mBlock;
    mBlock = other.mBlock;
    mPosition = other.mPosition;
    mScale = other.mScale;
    mRotation = other.mRotation;
    mNormal = other.mNormal;
    return *this;
}

AcDbBlockReference::~AcDbBlockReference() = default;

Acad::ErrorStatus AcDbBlockReference::setBlockTableRecord(AcDbObjectId block)
{
    if (!block.isValid() || !block.objectClass()->isDerivedFrom(AcDbBlockTableRecord::desc()))
        return Acad::eWrongObjectType;
    if (database() && block.database() != database()) return Acad::eWrongDatabase;
    if (block == ownerId()) return Acad::eSelfReference;
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk || mBlock == block) return status;
    mBlock = block;
    mIsListed = false;
    listInBlock();
    return status;
}

void AcDbBlockReference::listInBlock()
{
    auto* block = AcDbBlockTableRecord::cast(residentObject(mBlock));
    if (mIsListed || !block || !database()) return;
    BlockAccess::references(*block).push_back(objectId());
    mIsListed = true;
}

// What lists change comes here without a setter.
Acad::ErrorStatus AcDbBlockReference::subClose()
{
    listInBlock();
    return AcDbEntity::subClose();
}

AcGePoint3d AcDbBlockReference::position() const { return ocsToWorld(mNormal) * mPosition; }

Acad::ErrorStatus AcDbBlockReference::setPosition(const AcGePoint3d& position)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mPosition = worldToOcs(mNormal) * position;
    return status;
}

Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& scale)
{
    for (const double factor : {scale.sx, scale.sy, scale.sz}) {
        if (factor == 0.0 || !std::isfinite(factor)) return Acad::eInvalidInput;
    }
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mScale = scale;
    return status;
}

Acad::ErrorStatus AcDbBlockReference::setRotation(double rotation)
{
    if (!std::isfinite(rotation)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mRotation = rotation;
    return status;
}

Acad::ErrorStatus AcDbBlockReference::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength()) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mNormal = normal.normal();
    return status;
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbAttribute* attribute)
{
    AcDbObjectId id;
    return appendAttribute(id, attribute);
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute)
{
    id.setNull();
    if (!attribute) return Acad::eNullEntityPointer;
    if (attribute->database()) return Acad::eAlreadyInDb;
    if (!database()) return Acad::eNotInDatabase;
    const Acad::ErrorStatus writable = assertWriteEnabled();
    if (writable != Acad::eOk) return writable;
    const Acad::ErrorStatus status = database()->addAcDbObject(id, attribute, objectId());
    if (status != Acad::eOk) return status;
    EntityAccess::resolveProperties(*attribute);
    subentities()->ids.push_back(id);
    EntityAccess::endSubentities(*this);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::openAttribute(AcDbAttribute*& attribute, AcDbObjectId id, AcDb::OpenMode mode,
                                                    bool openErased)
{
    attribute = nullptr;
    const AcDbObject* object = residentObject(id);
    if (object && object->ownerId() != objectId()) return Acad::eInvalidInput;
    return acdbOpenObject(attribute, id, mode, openErased);
}

AcDbObjectIterator* AcDbBlockReference::attributeIterator() const
{
    static const std::vector<AcDbObjectId> none;
    return new AcDbObjectIterator(mAttributes ? mAttributes->ids : none);
}

DbSubentities* AcDbBlockReference::subentities()
{
    if (!mAttributes) mAttributes = std::make_unique<DbSubentities>();
    return mAttributes.get();
}

AcDbMInsertBlock::AcDbMInsertBlock(const AcGePoint3d& position, AcDbObjectId block, std::uint16_t columns,
                                   std::uint16_t rows, double columnSpacing, double rowSpacing)
    : AcDbBlockReference(position, block), mColumns(columns), mRows(rows), mColumnSpacing(columnSpacing),
      mRowSpacing(rowSpacing)
{
}

Acad::ErrorStatus AcDbMInsertBlock::setColumns(std::uint16_t columns)
{
    if (columns == 0) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mColumns = columns;
    return status;
}

Acad::ErrorStatus AcDbMInsertBlock::setRows(std::uint16_t rows)
{
    if (rows == 0) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mRows = rows;
    return status;
}

Acad::ErrorStatus AcDbMInsertBlock::setColumnSpacing(double spacing)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mColumnSpacing = spacing;
    return status;
}

Acad::ErrorStatus AcDbMInsertBlock::setRowSpacing(double spacing)
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mRowSpacing = spacing;
    return status;
}
