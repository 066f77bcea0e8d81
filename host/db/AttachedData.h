#pragma once

/// What others attach to an object, and what its class does not know.

#include "dbobject.h"
#include "PackedGroups.h"

#include <vector>

/// Groups that the class of their object does not know, kept as read so that saving loses nothing.
struct KeptGroups {
    const DxfClass* section; ///< the section they stood in; null: sections of an unknown name, markers included
    PackedGroups groups;
};

/// The extended data of one application: the groups after its 1001 group.
struct AppXData {
    AcDbObjectId regapp;
    PackedGroups groups;
};

struct AttachedData {
    std::vector<AppXData> xdata;
    std::vector<AcDbObjectId> persistentReactors;
    AcDbObjectId extensionDictionary;
    std::vector<KeptGroups> keptGroups;

    bool empty() const
    {
        return xdata.empty() && persistentReactors.empty() && extensionDictionary.isNull() &&
               keptGroups.empty();
    }
};
