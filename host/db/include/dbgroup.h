#pragma once

#include "AcString.h"
#include "acdb.h"
#include "adesk.h"
#include "dbidar.h"
#include "dbobject.h"

#include <atlstr.h>

#include <vector>

class AcCmColor;
class AcDbEntity;
class AcDbGroup;

/// Walks the entities of a group in their order; erased ones are passed over. It may not outlive the opening of the
/// group.
class AcDbGroupIterator
{
public:
    /// Opens the entity; eIteratorDone past the end.
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDb::OpenMode mode) const;
    AcDbObjectId objectId() const;
    bool done() const { return mAt >= mIds.size(); }
    /// Moves on; false when that was the last one.
    bool next();

private:
    friend class AcDbGroup;
    std::vector<AcDbObjectId> mIds;
    std::size_t mAt = 0;
};

/// An ordered set of entities. Each of them has the group as a persistent reactor while it belongs to it.
///
/// An entity is taken in only where it is open for write or can be opened so; the status of opening it otherwise. A
/// single entity that belongs to the group already is eAlreadyInGroup, a null id eNullObjectId, another object
/// eNotAnEntity; lists of ids leave out null ids and those that belong already.
class AcDbGroup : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbGroup);
    ACDB_STATE_MEMBERS(AcDbGroup)
    AcDbGroup() = default;
    explicit AcDbGroup(const ACHAR* description, bool selectable = true)
        : mDescription(description), mIsSelectable(selectable)
    {
    }

    /// A new iterator that the caller deletes.
    AcDbGroupIterator* newIterator();
    const CString& description() const { return mDescription; }
    Acad::ErrorStatus setDescription(const ACHAR* description) { return assign(mDescription, CString(description)); }
    /// Whether picking one entity selects all.
    bool isSelectable() const { return mIsSelectable != 0; }
    Acad::ErrorStatus setSelectable(bool selectable) { return assign(mIsSelectable, std::int16_t(selectable)); }
    /// The name in the group dictionary, empty for a group that is in none.
    CString name() const;
    /// The same as a copy that the caller releases with acutDelString; eNotInDatabase, and nothing, for a group that is in
    /// no dictionary.
    Acad::ErrorStatus getName(ACHAR*& name) const;
    Acad::ErrorStatus getName(AcString& name) const;
    /// Renames the entry of the group dictionary: eInvalidKey, eDuplicateKey; eNotInDatabase.
    Acad::ErrorStatus setName(const ACHAR* name);
    bool isAnonymous() const;
    /// Gives the next free name of the system's own ("*A1", "*A2" ...).
    Acad::ErrorStatus setAnonymous();
    bool isNotAccessible() const { return false; }

    std::uint32_t numEntities() const;
    bool has(const AcDbEntity* entity) const;
    /// Appends the entities, in order.
    std::uint32_t allEntityIds(AcDbObjectIdArray& ids) const;
    /// The place of an entity, from 0: eNotInGroup.
    Acad::ErrorStatus getIndex(AcDbObjectId id, std::uint32_t& index) const;

    Acad::ErrorStatus append(AcDbObjectId id);
    Acad::ErrorStatus append(const AcDbObjectIdArray& ids);
    Acad::ErrorStatus prepend(AcDbObjectId id);
    Acad::ErrorStatus prepend(const AcDbObjectIdArray& ids);
    /// At a place from 0 to the number of entities: eInvalidIndex.
    Acad::ErrorStatus insertAt(std::uint32_t index, AcDbObjectId id);
    Acad::ErrorStatus insertAt(std::uint32_t index, const AcDbObjectIdArray& ids);
    /// eNotInGroup; with several, nothing is removed then.
    Acad::ErrorStatus remove(AcDbObjectId id);
    Acad::ErrorStatus remove(const AcDbObjectIdArray& ids);
    Acad::ErrorStatus removeAt(std::uint32_t index);
    /// Puts an entity in the place of another: eNotInGroup, eAlreadyInGroup.
    Acad::ErrorStatus replace(AcDbObjectId oldId, AcDbObjectId newId);
    /// Moves `count` entities from one place on, so that the first comes to stand at `to`: eInvalidIndex.
    Acad::ErrorStatus transfer(std::uint32_t from, std::uint32_t to, std::uint32_t count);
    Acad::ErrorStatus clear();
    Acad::ErrorStatus reverse();

    // The same property for every entity. Those that cannot be opened for write are left as they are, and the first
    // status of those is returned; one that the caller holds open for write is set as it is.

    Acad::ErrorStatus setColor(const AcCmColor& color);
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 color);
    Acad::ErrorStatus setLayer(const ACHAR* name);
    Acad::ErrorStatus setLayer(AcDbObjectId layer);
    Acad::ErrorStatus setLinetype(const ACHAR* name);
    Acad::ErrorStatus setLinetype(AcDbObjectId linetype);
    Acad::ErrorStatus setLinetypeScale(double scale);
    Acad::ErrorStatus setVisibility(AcDb::Visibility visibility);
    /// Shows every entity as selected, or none.
    Acad::ErrorStatus setHighlight(bool on);

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;
    Acad::ErrorStatus subErase(bool erasing) override;
    Acad::ErrorStatus subClose() override;
    void subCancel(const AcDbObject& before) override;

private:
    friend struct GroupAccess;
    bool holds(AcDbObjectId id) const;
    void tellAll(AcDbObjectId group, bool belongs) const;

    CString mDescription;
    std::int16_t mIsAnonymous = 0;
    std::int16_t mIsSelectable = 1;
    std::vector<AcDbObjectId> mEntities;
};
