#pragma once

/// Blocks: named lists of entities. Model space and the paper spaces are blocks too.

#include "dbentity.h"
#include "dbidar.h"
#include "dbsymtb.h"
#include "NotCopied.h"
#include "gepnt3d.h"

class AcDbBlockTableRecord;
class AcDbSortentsTable;

constexpr const wchar_t* ACDB_MODEL_SPACE = L"*Model_Space";
constexpr const wchar_t* ACDB_PAPER_SPACE = L"*Paper_Space";

/// The head of a block in drawing files.
class AcDbBlockBegin : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockBegin);
    ACDB_STATE_MEMBERS(AcDbBlockBegin)
    AcDbBlockBegin() = default;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

private:
    friend class AcDbBlockTableRecord;
    friend struct BlockAccess;
    // What files say here belongs to the record; it is kept until the record takes it over.
    CString mName, mPathName, mComments;
    AcGePoint3d mOrigin;
    int mFlags = 0;
};

class AcDbBlockEnd : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockEnd);
    ACDB_STATE_MEMBERS(AcDbBlockEnd)
    AcDbBlockEnd() = default;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;
};

/// The end mark of a list of vertices or attributes.
class AcDbSequenceEnd : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcDbSequenceEnd);
    ACDB_STATE_MEMBERS(AcDbSequenceEnd)
    AcDbSequenceEnd() = default;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;
};

/// Walks the entities of a block in drawing order (that of their addition). It may not outlive the opening of the block.
/// Entities that are added during the walk are reached.
class AcDbBlockTableRecordIterator
{
public:
    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const { return mAt >= mIds->size(); }
    void step(bool forward = true, bool skipDeleted = true);
    Acad::ErrorStatus seek(AcDbObjectId id);
    Acad::ErrorStatus seek(const AcDbEntity* entity);
    Acad::ErrorStatus getEntityId(AcDbObjectId& id) const;
    /// Opens the entity that the iterator stands on; eIteratorDone past the end.
    Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErased = false) const;

private:
    friend class AcDbBlockTableRecord;
    AcDbBlockTableRecordIterator(const std::vector<AcDbObjectId>& ids, bool atBeginning, bool skipDeleted)
        : mIds(&ids)
    {
        start(atBeginning, skipDeleted);
    }

    const std::vector<AcDbObjectId>* mIds;
    std::size_t mAt = 0;
};

class AcDbBlockTableRecord : public AcDbSymbolTableRecord
{
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord);
    ACDB_STATE_MEMBERS(AcDbBlockTableRecord)
    AcDbBlockTableRecord() = default;

    /// Adds a new entity, which stays open for write. eAlreadyInDb, eNullEntityPointer, eNotInDatabase for a block
    /// that is in no drawing; the entity stays the caller's then.
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    /// Takes entities over from other blocks of the drawing; they come behind those that are here, in the order of the
    /// list, and keep id and handle. The other blocks must be open for write or closed, the entities too. eWrongDatabase,
    /// eNotAnEntity, eWasErased, eIllegalReplacement for an entity that belongs to another entity (a vertex, an
    /// attribute) or to none of the blocks; the status of opening otherwise. Nothing is changed then.
    Acad::ErrorStatus assumeOwnershipOf(const AcDbObjectIdArray& entitiesToMove);
    /// The block's draw order, opened. eKeyNotFound when it has none and none is to be made; making one needs the block
    /// open for write.
    Acad::ErrorStatus getSortentsTable(AcDbSortentsTable*& table, AcDb::OpenMode mode = AcDb::kForRead,
                                       bool createIfNecessary = false);
    /// A new iterator that the caller deletes.
    Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;
    /// Every entity, erased ones too, in drawing order.
    const std::vector<AcDbObjectId>& entityIds() const { return mEntities; }

    AcGePoint3d origin() const { return mOrigin; }
    Acad::ErrorStatus setOrigin(const AcGePoint3d& origin);
    Acad::ErrorStatus comments(ACHAR*& text) const;
    Acad::ErrorStatus comments(AcString& text) const;
    Acad::ErrorStatus setComments(const ACHAR* text);
    Acad::ErrorStatus pathName(ACHAR*& path) const;
    Acad::ErrorStatus pathName(AcString& path) const;
    Acad::ErrorStatus setPathName(const ACHAR* path);

    bool isAnonymous() const { return (mFlags & 1) != 0; }
    bool isFromExternalReference() const { return (mFlags & 4) != 0; }
    bool isFromOverlayReference() const { return (mFlags & 8) != 0; }
    /// External references are not read here: what is one is kXrfUnresolved.
    AcDb::XrefStatus xrefStatus() const { return isFromExternalReference() ? AcDb::kXrfUnresolved : AcDb::kXrfNotAnXref; }
    bool isUnloaded() const { return false; }
    /// Whether an entity of the block is an attribute definition that is not constant.
    bool hasAttributeDefinitions() const;
    /// Whether the block is model space or the space of a layout.
    bool isLayout() const;
    AcDbObjectId getLayoutId() const { return mLayout; }
    Acad::ErrorStatus setLayoutId(AcDbObjectId layout);

    AcDb::UnitsValue blockInsertUnits() const { return static_cast<AcDb::UnitsValue>(mInsertUnits); }
    Acad::ErrorStatus setBlockInsertUnits(AcDb::UnitsValue units);
    bool explodable() const { return mExplodable; }
    Acad::ErrorStatus setExplodable(bool explodable);
    enum BlockScaling { kAny = 0, kUniform = 1 };
    BlockScaling blockScaling() const { return mUniformScale ? kUniform : kAny; }
    Acad::ErrorStatus setBlockScaling(BlockScaling scaling);

    /// The ids of the references to the block; `directOnly` leaves out those inside other blocks' references.
    Acad::ErrorStatus getBlockReferenceIds(AcDbObjectIdArray& ids, bool directOnly = true,
                                           bool forceValidity = false) const;

    Acad::ErrorStatus openBlockBegin(AcDbBlockBegin*& begin, AcDb::OpenMode mode = AcDb::kForRead) const;
    Acad::ErrorStatus openBlockEnd(AcDbBlockEnd*& end, AcDb::OpenMode mode = AcDb::kForRead) const;

    /// Lists give a record no more than its name: what else they could change is the block's own matter.
    Acad::ErrorStatus copyFrom(const AcRxObject* other) override;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

protected:
    bool isPermanent() const override;
    /// The names that anonymous blocks ask for a number with: *U, *D, *X, *T, *E, *A.
    CString nameIn(const AcDbSymbolTable& table) const override;
    void addedToTable() override;
    Acad::ErrorStatus subErase(bool erasing) override;

private:
    friend struct BlockAccess;
    friend class AcDbBlockTable;

    // Copies of a record, which undo keeps, have its properties alone.
    NotCopied<std::vector<AcDbObjectId>> mEntities;
    NotCopied<std::vector<AcDbObjectId>> mReferences; ///< what has ever shown the block; some do not any more
    NotCopied<AcDbObjectId> mBegin, mEnd;
    AcDbObjectId mLayout;
    AcGePoint3d mOrigin;
    CString mPathName, mComments;
    std::int16_t mInsertUnits = 0;
    bool mExplodable = true;
    bool mUniformScale = false;
};

/// The name of the layout whose space a block is; empty for other blocks.
CString acdbLayoutNameOf(const AcDbBlockTableRecord& block);
