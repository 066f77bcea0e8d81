#pragma once

/// How readers fill blocks.

#include "dbblock.h"

struct BlockAccess {
    /// Lists an entity that has an owner and a stub already.
    static void list(AcDbBlockTableRecord& block, AcDbObjectId entity) { block.mEntities.push_back(entity); }
    static std::vector<AcDbObjectId>& entities(AcDbBlockTableRecord& block) { return block.mEntities; }
    static AcDbObjectId& begin(AcDbBlockTableRecord& block) { return block.mBegin; }
    static AcDbObjectId& end(AcDbBlockTableRecord& block) { return block.mEnd; }
    /// Gives a block of a drawing the head and end that files show around its entities.
    static void addMarks(AcDbBlockTableRecord& block);
    /// What shows the block, and what once did.
    static std::vector<AcDbObjectId>& references(AcDbBlockTableRecord& block) { return block.mReferences; }
    static const std::vector<AcDbObjectId>& references(const AcDbBlockTableRecord& block) { return block.mReferences; }
    /// Whether a listed object still shows the block.
    static bool isShownBy(const AcDbBlockTableRecord& block, AcDbObjectId reference);
    /// Those that show it now, each once.
    static std::vector<AcDbObjectId> livingReferences(const AcDbBlockTableRecord& block);
    /// After reading: those that are listed are told so.
    static void checkReferences(AcDbBlockTableRecord& block);
    static AcDbObjectId& layout(AcDbBlockTableRecord& block) { return block.mLayout; }
    static const CString& comments(const AcDbBlockTableRecord& block) { return block.mComments; }
    static const CString& pathName(const AcDbBlockTableRecord& block) { return block.mPathName; }
    /// Group 70 of the block's head.
    static int flagsFor(const AcDbBlockTableRecord& block);
    /// Takes over what the block's head in a file says.
    static void takeHead(AcDbBlockTableRecord& block, const AcDbBlockBegin& head);
    /// Takes over what the record of another block says: units, and whether it may be exploded and scaled.
    static void takeRecord(AcDbBlockTableRecord& block, const AcDbBlockTableRecord& other)
    {
        block.mInsertUnits = other.mInsertUnits;
        block.mExplodable = other.mExplodable;
        block.mUniformScale = other.mUniformScale;
    }
    static const CString& nameOf(const AcDbBlockBegin& head) { return head.mName; }
    static int flagsOf(const AcDbBlockBegin& head) { return head.mFlags; }
};
