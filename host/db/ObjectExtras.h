#pragma once

/// What few objects have: kept apart so that the many without it stay small.

#include "PackedGroups.h"
#include "dbobject.h"

#include <memory>
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

struct DbObjectExtras {
    std::vector<AppXData> xdata;
    std::vector<AcDbObjectId> persistentReactors;
    AcDbObjectId extensionDictionary;
    std::vector<AcDbObjectReactor*> transientReactors;
    std::vector<KeptGroups> keptGroups;
    std::unique_ptr<AcDbObject> before; ///< the state when it was opened for write, for cancel()
};
