#pragma once

/// Indexes: what a block knows about its entities so that they can be found without opening each of them.

#include "dbfilter.h"

class AcDbBlockReference;
class AcDbBlockTableRecord;

/// Walks those entities of a block that a filter lets through.
class AcDbFilteredBlockIterator
{
public:
    virtual ~AcDbFilteredBlockIterator() = default;

    virtual Acad::ErrorStatus start() = 0;
    /// Null past the end.
    virtual AcDbObjectId next() = 0;
    /// The part of the block that is expected to pass, 0 to 1; the iterator with the least goes first.
    virtual double estimatedHitFraction() const = 0;
    /// Whether an entity passes.
    virtual Acad::ErrorStatus accepts(AcDbObjectId entity, bool& passes) const = 0;

    /// Whether the iterator wants what the one before it lets through in its buffer, to give it in its own order.
    virtual bool buffersForComposition() const { return false; }
    virtual void addToBuffer(AcDbObjectId) {}
};

/// What an index has to look at: the block that it is made for.
class AcDbIndexUpdateData
{
public:
    explicit AcDbIndexUpdateData(AcDbObjectId block) : mBlock(block) {}
    AcDbObjectId objectBeingIndexedId() const { return mBlock; }

private:
    AcDbObjectId mBlock;
};

/// Lies in the block's extension dictionary, see AcDbIndexFilterManager.
class AcDbIndex : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbIndex);

    /// The entities that a filter lets through, as an iterator that the caller deletes; null when the index cannot answer
    /// the filter.
    virtual AcDbFilteredBlockIterator* newIterator(const AcDbFilter* filter) const = 0;
    /// Looks at the whole block anew.
    virtual Acad::ErrorStatus rebuildFull(AcDbIndexUpdateData* data) = 0;
    /// The block; null for an index that is in no block.
    AcDbObjectId objectBeingIndexedId() const;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

private:
    friend struct IndexAccess;
    double mLastUpdatedAt = 0.0; ///< Julian date, as files have it
};

/// Walks the entities of a block that pass all of several filters: the index that expects the least hits is walked, the
/// others are asked. Filters without an index of theirs in the block let everything pass.
class AcDbCompositeFilteredBlockIterator
{
public:
    /// The caller deletes it.
    static AcDbCompositeFilteredBlockIterator* newIterator();
    virtual ~AcDbCompositeFilteredBlockIterator() = default;

    /// The block and the filters stay open as long as the iterator lives. eNullObjectPointer for a null pointer.
    virtual Acad::ErrorStatus init(AcDbFilter* const* filters, int count, const AcDbBlockTableRecord* block) = 0;
    virtual void start() = 0;
    /// Null past the end.
    virtual AcDbObjectId next() = 0;
    virtual Acad::ErrorStatus accepts(AcDbObjectId entity, bool& passes) const = 0;
};

/// Indexes of blocks and filters of block references, one of a class each: in the extension dictionary under "ACAD_INDEX"
/// and "ACAD_FILTER", by the names of their classes.
namespace AcDbIndexFilterManager
{
/// Rebuilds all indexes of a drawing. The first failure, when all have been tried.
Acad::ErrorStatus updateIndexes(AcDbDatabase* database);

/// Puts a new index into a block that is open for write; it stays open. eDuplicateKey when the block has one of its class.
Acad::ErrorStatus addIndex(AcDbBlockTableRecord* block, AcDbIndex* index);
/// Erases the index of a class. eKeyNotFound.
Acad::ErrorStatus removeIndex(AcDbBlockTableRecord* block, const AcRxClass* key);
/// Opens the index of a class, or the one of a number from 0. eKeyNotFound.
Acad::ErrorStatus getIndex(const AcDbBlockTableRecord* block, const AcRxClass* key, AcDb::OpenMode mode, AcDbIndex*& index);
Acad::ErrorStatus getIndex(const AcDbBlockTableRecord* block, int number, AcDb::OpenMode mode, AcDbIndex*& index);
int numIndexes(const AcDbBlockTableRecord* block);

// The same for filters.

Acad::ErrorStatus addFilter(AcDbBlockReference* reference, AcDbFilter* filter);
Acad::ErrorStatus removeFilter(AcDbBlockReference* reference, const AcRxClass* key);
Acad::ErrorStatus getFilter(const AcDbBlockReference* reference, const AcRxClass* key, AcDb::OpenMode mode,
                            AcDbFilter*& filter);
Acad::ErrorStatus getFilter(const AcDbBlockReference* reference, int number, AcDb::OpenMode mode, AcDbFilter*& filter);
int numFilters(const AcDbBlockReference* reference);
} // namespace AcDbIndexFilterManager
