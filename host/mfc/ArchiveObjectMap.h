#pragma once

#include "afxarchive.h"

#include <unordered_map>
#include <vector>

/// What an archive has stored or loaded so far. Objects and classes share one sequence of indices; index 0
/// is the null pointer.
struct CArchive::ObjectMap {
    struct Entry {
        CObject* object = nullptr;
        CRuntimeClass* runtimeClass = nullptr; ///< for an entry that is a class
        UINT schema = 0;                       ///< of that class, as the data have it
    };

    std::unordered_map<const void*, DWORD> indices; ///< storing
    std::vector<Entry> entries{Entry{}};            ///< loading
    DWORD count = 1;
    int depth = 0; ///< objects that are being stored or loaded within one another

    DWORD take();
};
