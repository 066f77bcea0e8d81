#include "DictionaryEdit.h"

#include <utility>

void RemovedEntry::exchange(AcDbDatabase&)
{
    if (!DictionaryAccess::drop(mDictionary, mEntry)) DictionaryAccess::insert(mDictionary, mEntry, mPlace);
}

void AllEntries::exchange(AcDbDatabase&)
{
    DictionaryAccess::swapEntries(mDictionary, mEntries);
}
