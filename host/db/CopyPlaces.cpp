/// Where copies go in another drawing: the tables and dictionaries that correspond, and what happens to names that both
/// drawings have.

#include "CopySession.h"
#include "dbblkref.h"
#include "dbdict.h"
#include "dblayout.h"
#include "dbsymtb.h"
#include "DictionaryAccess.h"
#include "LayoutAccess.h"
#include "SymbolTableAccess.h"

#include <algorithm>
#include <cwctype>

namespace
{
CString keyOf(const CString& name)
{
    CString key = name;
    return key.MakeLower();
}

/// Names that mean the same in every drawing.
bool isCommonName(const AcDbSymbolTableRecord& record)
{
    if (AcDbRegAppTableRecord::cast(&record)) return true;
    const CString& name = record.name();
    if (AcDbLayerTableRecord::cast(&record)) return name == L"0" || name.CompareNoCase(L"Defpoints") == 0;
    return AcDbLinetypeTableRecord::cast(&record) &&
           (name.CompareNoCase(L"ByLayer") == 0 || name.CompareNoCase(L"ByBlock") == 0 ||
            name.CompareNoCase(L"Continuous") == 0);
}

/// The name before "xref$0$" or "$0$" was put in front of it.
CString unmangled(const CString& name)
{
    for (int at = name.Find(L'$'); at >= 0; at = name.Find(L'$', at + 1)) {
        int digit = at + 1;
        while (digit < name.GetLength() && std::iswdigit(static_cast<std::wint_t>(name[digit])))
            ++digit;
        const bool isMark = digit > at + 1 && digit + 1 < name.GetLength() && name[digit] == L'$';
        if (isMark) return name.Mid(digit + 1);
    }
    return name;
}

/// The name of a drawing as external references have it; empty for one without a file.
CString baseName(const AcDbDatabase& database)
{
    const ACHAR* path = nullptr;
    if (database.getFilename(path) != Acad::eOk) return CString();
    CString name(path);
    name = name.Mid(std::max(name.ReverseFind(L'/'), name.ReverseFind(L'\\')) + 1);
    const int dot = name.ReverseFind(L'.');
    return dot > 0 ? name.Left(dot) : name;
}
} // namespace

void CopySession::addRecord(AcDbObjectId id)
{
    if (isNoted(id)) return;
    auto& record = static_cast<AcDbSymbolTableRecord&>(*residentObject(id));
    auto* block = AcDbBlockTableRecord::cast(&record);
    if (block && block->isLayout()) {
        placeSpace(*block, true);
    } else {
        placeRecord(record, true);
    }
}

void CopySession::addBlock(AcDbObjectId block, const CString& name)
{
    const AcDbObjectId table = DatabaseAccess::of(mTo).blockTable;
    const bool wantsNumber = name.GetLength() == 2 && name[0] == L'*';
    const AcDbObjectId existing = wantsNumber ? AcDbObjectId() : named(table, name);
    AcDbObject& original = *residentObject(block);
    if (existing.isNull()) {
        placeNew(original, table, Place::record, true, wantsNumber ? numbered(table, L"%ls%d", name, 1) : name);
    } else {
        replace(original, existing, true, name);
    }
    mInserted = copyOf(block);
}

void CopySession::addEntry(AcDbObjectId id, AcDbObjectId dictionary)
{
    CString name;
    AcDbObject& object = *residentObject(id);
    const auto* owner = AcDbDictionary::cast(residentObject(object.ownerId()));
    if (owner) owner->nameAt(id, name);
    const bool isCopiedHere = &mFrom == &mTo;
    if (name.IsEmpty() || (isCopiedHere && !named(dictionary, name).isNull()))
        name = numbered(dictionary, L"%ls%d", L"*A", 1);
    placeEntry(object, name, dictionary, true);
}

AcDbObjectId CopySession::tableFor(const AcDbObject& record) const
{
    using Table = AcDbObjectId DatabaseState::*;
    constexpr Table tables[] = {&DatabaseState::blockTable,     &DatabaseState::layerTable,
                                &DatabaseState::linetypeTable,  &DatabaseState::textStyleTable,
                                &DatabaseState::dimStyleTable,  &DatabaseState::ucsTable,
                                &DatabaseState::viewTable,      &DatabaseState::viewportTable,
                                &DatabaseState::regAppTable};
    for (const Table table : tables) {
        if (DatabaseAccess::of(mFrom).*table == record.ownerId()) return DatabaseAccess::of(mTo).*table;
    }
    return AcDbObjectId();
}

void CopySession::reachRecord(AcDbSymbolTableRecord& record)
{
    auto* block = AcDbBlockTableRecord::cast(&record);
    if (block && block->isLayout()) {
        placeSpace(*block, false);
    } else {
        placeRecord(record, false);
    }
}

void CopySession::reachEntry(AcDbObject& object)
{
    CString name;
    const auto* owner = AcDbDictionary::cast(residentObject(object.ownerId()));
    if (!owner || owner->nameAt(object.objectId(), name) != Acad::eOk) return;
    const AcDbObjectId dictionary = dictionaryFor(object.ownerId());
    if (!dictionary.isNull()) placeEntry(object, name, dictionary, false);
}

/// The dictionary under the same names in the destination, which is made when it is not there; null for one that does
/// not hang on the root.
AcDbObjectId CopySession::dictionaryFor(AcDbObjectId original, int depth)
{
    constexpr int deepest = 64; // owners may form a ring in a damaged drawing
    if (original == DatabaseAccess::of(mFrom).namedObjects) return DatabaseAccess::of(mTo).namedObjects;
    if (isNoted(original)) return copyOf(original);
    CString name;
    AcDbObject* dictionary = residentObject(original);
    const auto* parent = dictionary ? AcDbDictionary::cast(residentObject(dictionary->ownerId())) : nullptr;
    if (!parent || depth == deepest || parent->nameAt(original, name) != Acad::eOk) return AcDbObjectId();
    const AcDbObjectId owner = dictionaryFor(parent->objectId(), depth + 1);
    if (owner.isNull()) return owner;
    const AcDbObjectId existing = named(owner, name);
    if (!existing.isNull()) {
        if (!AcDbDictionary::cast(residentObject(existing))) return AcDbObjectId();
        note(original, existing, false);
        return existing;
    }
    placeNew(*dictionary, owner, Place::entry, false, name);
    mPlanned.back().isEmptied = true;
    return copyOf(original);
}

/// What a table or dictionary of the destination has, or will have, under a name.
AcDbObjectId CopySession::named(AcDbObjectId container, const CString& name) const
{
    const auto given = mGiven.find({container, keyOf(name)});
    if (given != mGiven.end()) return given->second;
    AcDbObject* object = residentObject(container);
    AcDbObjectId id;
    if (const auto* table = AcDbSymbolTable::cast(object)) return SymbolTableAccess::find(*table, name);
    if (const auto* dictionary = AcDbDictionary::cast(object)) dictionary->AcDbDictionary::getAt(name, id);
    return id;
}

/// The first name of a form ("%ls%d": the name and a number) that is free.
CString CopySession::numbered(AcDbObjectId container, const wchar_t* format, const CString& name, int first)
{
    CString free;
    int& next = mNextNumbers.emplace(std::make_pair(container, name + format), first).first->second;
    while (free.IsEmpty() || !named(container, free).isNull())
        free.Format(format, static_cast<const wchar_t*>(name), next++);
    return free;
}

CString CopySession::mangled(AcDbObjectId container, const CString& name)
{
    if (mDuplicates == AcDb::kDrcUnmangleName) return unmangled(name);
    if (mDuplicates != AcDb::kDrcMangleName && mDuplicates != AcDb::kDrcXrefMangleName) return name;
    const CString prefix = mDuplicates == AcDb::kDrcXrefMangleName ? baseName(mFrom) : CString();
    CString made;
    for (int number = 0; made.IsEmpty() || !named(container, made).isNull(); ++number)
        made.Format(L"%ls$%d$%ls", static_cast<const wchar_t*>(prefix), number, static_cast<const wchar_t*>(name));
    return made;
}

/// The name that a record asks for. Anonymous blocks are never the same: they get a number of their own.
CString CopySession::recordName(const AcDbSymbolTableRecord& record, AcDbObjectId table)
{
    const CString& name = record.name();
    if (AcDbBlockTableRecord::cast(&record) && name[0] == L'*') return numbered(table, L"%ls%d", name.Left(2), 1);
    return isCommonName(record) ? name : mangled(table, name);
}

void CopySession::placeRecord(AcDbSymbolTableRecord& record, bool isPrimary)
{
    const AcDbObjectId table = tableFor(record);
    if (table.isNull()) return;
    const CString name = recordName(record, table);
    const AcDbObjectId existing = name.IsEmpty() ? AcDbObjectId() : named(table, name);
    if (existing.isNull()) return placeNew(record, table, Place::record, isPrimary, name);
    if (existing == mInserted) return fail(Acad::eSelfReference);
    const bool isReplaced = mDuplicates == AcDb::kDrcReplace && !AcDbRegAppTableRecord::cast(&record);
    if (isReplaced) return replace(record, existing, isPrimary, name);
    note(record.objectId(), existing, false, isPrimary);
}

/// The space of a layout gets a place of its own; model space is the model space.
void CopySession::placeSpace(AcDbBlockTableRecord& block, bool isPrimary)
{
    const DatabaseState& to = DatabaseAccess::of(mTo);
    if (block.objectId() == DatabaseAccess::of(mFrom).modelSpace)
        return note(block.objectId(), to.modelSpace, false, isPrimary);
    placeNew(block, to.blockTable, Place::record, isPrimary, numbered(to.blockTable, L"%ls%d", ACDB_PAPER_SPACE, 0));
}

void CopySession::placeEntry(AcDbObject& object, const CString& asked, AcDbObjectId dictionary, bool isPrimary)
{
    const auto* to = AcDbDictionary::cast(residentObject(dictionary));
    const bool mergesItsWay = to && !isPrimary && mDuplicates == AcDb::kDrcIgnore;
    const AcDb::DuplicateRecordCloning way = mergesItsWay ? to->mergeStyle() : mDuplicates;
    CString name = mangled(dictionary, asked);
    const AcDbObjectId existing = named(dictionary, name);
    if (existing.isNull()) return placeNew(object, dictionary, Place::entry, isPrimary, name);
    const auto* layout = AcDbLayout::cast(&object);
    const bool isReplaced = way == AcDb::kDrcReplace && residentObject(existing) &&
                            existing.objectClass() == object.isA() &&
                            residentObject(existing)->dxfRecordName() == object.dxfRecordName();
    if (isReplaced && !layout) return replace(object, existing, isPrimary, name);
    if (isReplaced && !LayoutAccess::isModel(*layout))
        return placeNew(object, dictionary, Place::entry, isPrimary, numbered(dictionary, L"%ls (%d)", name, 2));
    note(object.objectId(), existing, false, isPrimary);
}

void CopySession::placeNew(AcDbObject& object, AcDbObjectId container, Place place, bool isPrimary,
                           const CString& name)
{
    const bool isOfNewContainer = mNewDictionaries.count(container) != 0;
    if (!isOfNewContainer && !open(container)) return;
    const AcDbObjectId id = add(object, container, isOfNewContainer ? Place::owned : place, isPrimary, name);
    mGiven[{container, keyOf(name)}] = id;
    if (AcDbDictionary::cast(&object)) mNewDictionaries.insert(id);
}

void CopySession::replace(AcDbObject& object, AcDbObjectId existing, bool isPrimary, const CString& name)
{
    if (!open(existing)) return;
    if (const auto* block = AcDbBlockTableRecord::cast(residentObject(existing))) openContents(*block);
    mPlanned.push_back({&object, existing, residentObject(existing)->ownerId(), name, {}, Place::replaced});
    note(object.objectId(), existing, true, isPrimary);
}
