#pragma once

/// The services that the database takes from the program around it.

#include "acadstrc.h"

class AcDbDatabase;

class AcDbHostApplicationServices
{
public:
    virtual ~AcDbHostApplicationServices() = default;

    /// The database that calls without one mean; null when there is none.
    AcDbDatabase* workingDatabase() const { return mWorking; }
    void setWorkingDatabase(AcDbDatabase* database) { mWorking = database; }

private:
    AcDbDatabase* mWorking = nullptr;
};

/// The one object of these services; never null.
AcDbHostApplicationServices* acdbHostApplicationServices();
