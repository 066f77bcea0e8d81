#pragma once

/// Which copy an object got when objects are copied together.

#include "acadstrc.h"
#include "acdb.h"
#include "dbid.h"

#include <memory>
#include <unordered_map>
#include <vector>

class CopySession;

namespace AcDb
{
/// What the copying was for.
enum DeepCloneType {
    kDcCopy = 0,
    kDcExplode = 1,
    kDcBlock = 2,
    kDcXrefBind = 3,
    kDcSymTableMerge = 4,
    kDcInsert = 6,
    kDcWblock = 7,
    kDcObjects = 8, ///< AcDbDatabase::deepCloneObjects
    kDcXrefInsert = 9,
    kDcInsertCopy = 10, ///< AcDbDatabase::insert, the source kept
    kDcWblkObjects = 11 ///< AcDbDatabase::wblockCloneObjects
};
} // namespace AcDb

/// An original (the key) and its copy (the value).
class AcDbIdPair
{
public:
    AcDbIdPair() = default;
    AcDbIdPair(const AcDbObjectId& key, const AcDbObjectId& value, bool isCloned, bool isPrimary = false,
               bool isOwnerXlated = true)
        : mKey(key), mValue(value), mIsCloned(isCloned), mIsPrimary(isPrimary), mIsOwnerXlated(isOwnerXlated)
    {
    }

    AcDbObjectId key() const { return mKey; }
    AcDbObjectId value() const { return mValue; }
    /// False when the value stands for the original without having been copied from it.
    bool isCloned() const { return mIsCloned; }
    /// True for what the caller asked to copy; false for what came along.
    bool isPrimary() const { return mIsPrimary; }
    /// True when the copy knows its owner.
    bool isOwnerXlated() const { return mIsOwnerXlated; }

    AcDbIdPair& set(const AcDbIdPair& other) { return *this = other; }
    void setKey(const AcDbObjectId& key) { mKey = key; }
    void setValue(const AcDbObjectId& value) { mValue = value; }
    void setIsCloned(bool isCloned) { mIsCloned = isCloned; }
    void setIsPrimary(bool isPrimary) { mIsPrimary = isPrimary; }
    void setIsOwnerXlated(bool isOwnerXlated) { mIsOwnerXlated = isOwnerXlated; }

private:
    AcDbObjectId mKey, mValue;
    bool mIsCloned = false;
    bool mIsPrimary = false;
    bool mIsOwnerXlated = false;
};

class AcDbIdMapping
{
public:
    AcDbIdMapping();
    ~AcDbIdMapping();
    AcDbIdMapping(const AcDbIdMapping&) = delete;
    AcDbIdMapping& operator=(const AcDbIdMapping&) = delete;

    /// Adds a pair, or replaces that of the same key. False for a null key.
    bool assign(const AcDbIdPair& pair);
    /// Fills in the rest of the pair whose key is given; false, and the pair unchanged, when there is none.
    bool compute(AcDbIdPair& pair) const;
    /// False when there is no pair of that key.
    bool del(const AcDbObjectId& key);

    Acad::ErrorStatus destDb(AcDbDatabase*& database) const;
    Acad::ErrorStatus setDestDb(AcDbDatabase* database);
    Acad::ErrorStatus origDb(AcDbDatabase*& database) const;
    AcDb::DeepCloneType deepCloneContext() const { return mContext; }
    AcDb::DuplicateRecordCloning duplicateRecordCloning() const { return mDuplicates; }

private:
    friend class AcDbDatabase;
    friend class CopySession;
    friend struct CopyRun;
    friend class AcDbIdMappingIter;

    std::vector<AcDbIdPair> mPairs; ///< those that were taken out have null keys
    std::unordered_map<AcDbObjectId, std::size_t> mPlaces;
    AcDbDatabase* mDestination = nullptr;
    AcDbDatabase* mOrigin = nullptr;
    AcDb::DeepCloneType mContext = AcDb::kDcCopy;
    AcDb::DuplicateRecordCloning mDuplicates = AcDb::kDrcNotApplicable;
    CopySession* mRunning = nullptr;       ///< that makes copies now
    std::unique_ptr<CopySession> mPending; ///< what was planned and waits for its translation
};

/// Walks the pairs of a map in the order they came. It may not outlive the map.
class AcDbIdMappingIter
{
public:
    explicit AcDbIdMappingIter(const AcDbIdMapping& mapping) : mMapping(mapping) { start(); }

    void start();
    bool done() const { return mAt >= mMapping.mPairs.size(); }
    void next();
    /// False, and `pair` unchanged, past the end.
    bool getMap(AcDbIdPair& pair) const;

private:
    void skipRemoved();

    const AcDbIdMapping& mMapping;
    std::size_t mAt = 0;
};
