#pragma once

/// How readers and owners reach into dictionaries.

#include "dbdict.h"

struct DictionaryAccess {
    using Entry = AcDbDictionary::Entry;

    /// Lists an object that has an owner already; `code` is the group that named it.
    static void list(AcDbDictionary& dictionary, const CString& name, AcDbObjectId id, int code = 0)
    {
        dictionary.add(name, id, code);
    }
    /// Calls `visit(name, id, code)` for each entry, erased ones too, in the order they were added.
    template <class Visit>
    static void forEach(const AcDbDictionary& dictionary, Visit visit)
    {
        for (const AcDbDictionary::Entry& entry : dictionary.mEntries) visit(entry.name, entry.id, entry.code);
    }
    /// Puts what `choose(id)` gives in the place of each entry's object.
    template <class Choose>
    static void retarget(AcDbDictionary& dictionary, Choose choose)
    {
        std::vector<AcDbDictionary::Entry> entries;
        entries.swap(dictionary.mEntries);
        dictionary.mByName.clear();
        for (const AcDbDictionary::Entry& entry : entries) dictionary.add(entry.name, choose(entry.id), entry.code);
    }
    static const std::vector<Entry>& entries(const AcDbDictionary& dictionary) { return dictionary.mEntries; }
    static void swapEntries(AcDbDictionary& dictionary, std::vector<Entry>& entries);
    static void insert(AcDbDictionary& dictionary, const Entry& entry, std::size_t place);
    /// Takes the entry of an object and a name out; false when there is none.
    static bool drop(AcDbDictionary& dictionary, const Entry& entry);
    /// Forgets the entries whose objects are erased.
    static void dropErased(AcDbDictionary& dictionary);
};
