#pragma once

/// Changes of the entries of dictionaries. An entry of a new object needs none: it counts as absent while the object is
/// erased.

#include "DictionaryAccess.h"
#include "UndoEdit.h"

/// An entry that is taken out of its place.
class RemovedEntry final : public UndoEdit
{
public:
    RemovedEntry(AcDbDictionary& dictionary, const DictionaryAccess::Entry& entry, std::size_t place)
        : mDictionary(dictionary), mEntry(entry), mPlace(place)
    {
    }
    void exchange(AcDbDatabase& database) override;

private:
    AcDbDictionary& mDictionary;
    DictionaryAccess::Entry mEntry;
    std::size_t mPlace;
};

/// All entries as they were.
class AllEntries final : public UndoEdit
{
public:
    explicit AllEntries(AcDbDictionary& dictionary)
        : mDictionary(dictionary), mEntries(DictionaryAccess::entries(dictionary))
    {
    }
    void exchange(AcDbDatabase& database) override;

private:
    AcDbDictionary& mDictionary;
    std::vector<DictionaryAccess::Entry> mEntries;
};
