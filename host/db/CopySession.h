#pragma once

/// Copies of objects with what belongs to them, inside a drawing or from one to another.
///
/// A copy is made in two steps. Planning gives every object its place and id in the destination, and follows what it
/// owns; from one drawing to another also what it cannot be without: layers, styles, blocks, entries of dictionaries.
/// Nothing is changed by it. Carrying out reads each copy from the groups of its original, with the references
/// exchanged (CopyGroups.h), and lists it at its place.
///
/// Inside a drawing references to what is not copied stay, between drawings they become null; reactors that are not
/// copied are left behind in both cases. Entities are copied because they were asked for, or with their block or
/// owner: a reference to one does not copy it.

#include "CopyGroups.h"
#include "dbblock.h"
#include "dbidmap.h"

#include <map>
#include <unordered_map>
#include <unordered_set>
#include <vector>

class AcDbDictionary;
class AcDbLayout;

class CopySession : protected CopyTranslation
{
public:
    /// Copies are noted in the map, which outlives the session.
    CopySession(AcDbDatabase& from, AcDbDatabase& to, AcDbIdMapping& map,
                AcDb::DuplicateRecordCloning duplicates = AcDb::kDrcIgnore);
    ~CopySession() override;
    CopySession(const CopySession&) = delete;
    CopySession& operator=(const CopySession&) = delete;

    /// Takes an object that the caller has open for write, and leaves it so.
    void lend(AcDbObject& object) { mLent[object.objectId()] = &object; }
    /// Closes what is open until plan() comes.
    void suspend();
    Acad::ErrorStatus status() const { return mStatus; }

    AcDbDatabase& from() const { return mFrom; }
    AcDbDatabase& to() const { return mTo; }

    // Planning of what was asked for; an object that is planned already is passed over.

    /// Into a block of the destination.
    void addEntity(AcDbObjectId entity, AcDbObjectId block);
    void addRecord(AcDbObjectId record);
    /// The contents of a block, or of a space, as the block of a name, new or in place of that one's contents.
    void addBlock(AcDbObjectId block, const CString& name);
    /// Into a dictionary of the destination, under the name that it has.
    void addEntry(AcDbObjectId object, AcDbObjectId dictionary);

    /// Follows the references of what was added. The status of the first thing that is in the way: a container that
    /// cannot be opened for write, or eSelfReference for a block that would show itself.
    Acad::ErrorStatus plan();
    /// Makes the copies; plan() comes before it.
    void carryOut();
    /// The copy that a class is asked for. eInvalidContext when it is not this object's turn.
    static Acad::ErrorStatus makeCopy(const AcDbObject& original, AcDbObject*& copy, AcDbIdMapping& map);
    /// Takes what was noted out of the map again.
    void giveUp();

    /// What was copied into a block, without what belongs to it.
    std::vector<AcDbObjectId> copiedEntities(AcDbObjectId block) const;
    /// The copy of an object, or what it is taken for; null when there is none.
    AcDbObjectId copyOf(AcDbObjectId original) const;

protected:
    enum class Place : std::uint8_t { owned, entity, record, entry, replaced };
    struct Planned {
        AcDbObject* original;
        AcDbObjectId copy, owner;
        CString name;      ///< of records and entries
        PackedGroups groups;
        Place place;
        std::string filed = {}; ///< by an object of a module's class; its groups hold what is attached to it
        bool isEmptied = false; ///< a dictionary that is there for the sake of one entry
    };

    virtual AcDbObjectId newId(const AcDbObject& original);
    virtual void reachRecord(AcDbSymbolTableRecord& record);
    virtual void reachEntry(AcDbObject& object);
    virtual bool followsSoftOwners() const { return &mFrom == &mTo; }

    AcDbObjectId add(AcDbObject& original, AcDbObjectId owner, Place place, bool isPrimary = false,
                     const CString& name = CString());
    void note(AcDbObjectId original, AcDbObjectId copy, bool isCloned, bool isPrimary = false);
    bool isNoted(AcDbObjectId original) const { return !copyOf(original).isNull(); }

    AcDbStub* translate(AcDbStub* original) const override;
    AcDbStub* translateReactor(AcDbStub* original) const override { return copyOf(original); }
    CString nameOf(AcDbStub* translated) const override;

    AcDbDatabase& mFrom;
    AcDbDatabase& mTo;
    std::vector<Planned> mPlanned;
    Acad::ErrorStatus mStatus = Acad::eOk;

private:
    // CopyPlan.cpp
    void expand(std::size_t index);
    std::vector<CopyReference> writeOriginal(Planned& one);
    void addParts(AcDbObject& original, AcDbObjectId copy);
    void addPart(AcDbObjectId part, AcDbObjectId owner, Place place = Place::owned);
    void follow(const CopyReference& reference, std::size_t from);
    bool open(AcDbObjectId id);
    void fail(Acad::ErrorStatus status);
    void openContents(const AcDbBlockTableRecord& block);
    bool showsItself() const;

    // CopyPlaces.cpp
    AcDbObjectId tableFor(const AcDbObject& record) const;
    AcDbObjectId dictionaryFor(AcDbObjectId original, int depth = 0);
    void placeRecord(AcDbSymbolTableRecord& record, bool isPrimary);
    void placeSpace(AcDbBlockTableRecord& block, bool isPrimary);
    void placeEntry(AcDbObject& object, const CString& name, AcDbObjectId dictionary, bool isPrimary);
    void placeNew(AcDbObject& object, AcDbObjectId container, Place place, bool isPrimary, const CString& name);
    void replace(AcDbObject& object, AcDbObjectId existing, bool isPrimary, const CString& name);
    AcDbObjectId named(AcDbObjectId container, const CString& name) const;
    CString mangled(AcDbObjectId container, const CString& name);
    CString numbered(AcDbObjectId container, const wchar_t* format, const CString& name, int first);
    CString recordName(const AcDbSymbolTableRecord& record, AcDbObjectId table);

    // CopySession.cpp
    void eraseReplaced();
    void make(Planned& one);
    void read(Planned& one);
    void readContents(Planned& one, AcDbObject& copy);
    void settle(const Planned& one, AcDbObject* read);
    void takeState(AcDbObject& existing, AcDbObject& fresh);
    void finish(const Planned& one);
    void finishEntity(AcDbEntity& copy, const AcDbEntity& original);
    void finishLayout(AcDbLayout& copy);
    void finishBlock(AcDbBlockTableRecord& copy, const Planned& one);
    void copyClasses();
    void close();

    AcDbIdMapping& mMap;
    std::size_t mFirstPair;
    AcDb::DuplicateRecordCloning mDuplicates;
    std::size_t mExpanded = 0;
    Planned* mAsked = nullptr; ///< what a class is asked to copy
    std::map<std::pair<AcDbObjectId, CString>, AcDbObjectId> mGiven; ///< what new names will stand for, in lower case
    std::map<std::pair<AcDbObjectId, CString>, int> mNextNumbers;   ///< by the form of the name
    std::unordered_map<AcDbObjectId, CString> mNames;              ///< of what is new
    std::unordered_set<AcDbObjectId> mNewDictionaries;
    AcDbObjectId mInserted;                        ///< what addBlock makes
    std::unordered_set<AcDbObjectId> mShown; ///< blocks of the destination that copies show
    std::unordered_map<AcDbObjectId, AcDbObject*> mOpened, mLent;
    std::vector<AcDbObjectId> mSuspended;
    std::vector<AcDbObjectId> mReplacedContents;
};
