#pragma once

#include "CurrentSettings.h"
#include "HeaderVariables.h"
#include "StubTable.h"
#include "UndoHistory.h"
#include "dbdatabase.h"
#include "gemat3d.h"

class AcTransactionManager;

/// What a database holds.
struct DatabaseState : CurrentSettings {
    explicit DatabaseState(AcDbDatabase* database);
    ~DatabaseState();

    StubTable stubs;
    AcDbObjectId blockTable, layerTable, linetypeTable, textStyleTable, dimStyleTable, ucsTable, viewTable,
        viewportTable, regAppTable;
    AcDbObjectId layerZero, byLayer, byBlock, continuous, modelSpace;
    AcDbObjectId namedObjects; ///< the dictionary of all dictionaries

    HeaderVariables header;
    std::vector<PackedGroups> classes;      ///< the file's list of application classes, an entry each
    std::vector<PackedGroups> keptSections; ///< sections of a file that the host has no use for, whole
    unsigned codePage = 0;                  ///< of texts in versions before R2007
    int originalVersion = 0;                ///< of the file that was read, as $ACADVER has it; 0: none
    int lastSavedVersion = 0;
    CString fileName;
    double openedAt = 0.0; ///< a Julian date of universal time; 0: the time in the drawing is not counted
    bool isBare = false;       ///< holds nothing but what a file will replace
    bool needsRecovery = false; ///< the file had faults that were repaired

    std::vector<AcDbDatabaseReactor*> reactors;

    /// The map out of the user's coordinates, of the space that is current, as long as the header stays as it is.
    struct Frame {
        std::uint64_t revision = 0; ///< of the header; 0: none
        AcGeMatrix3d toWorld;
    };
    mutable Frame modelFrame, paperFrame;

    std::unique_ptr<UndoHistory> history;               ///< null until something is to be recorded
    std::unique_ptr<AcTransactionManager> transactions; ///< null until it is asked for
};

struct DatabaseAccess {
    static DatabaseState& of(AcDbDatabase& database) { return *database.mState; }
    /// Throws everything away; ids of its objects may not be used any more.
    static void reset(AcDbDatabase& database);
    static const DatabaseState& of(const AcDbDatabase& database) { return *database.mState; }
};
