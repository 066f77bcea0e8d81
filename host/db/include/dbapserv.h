#pragma once

/// The services that the database takes from the program around it.

#include "acadstrc.h"
#include "adesk.h"

class AcDbDatabase;
class AcDbLayoutManager;
class AcDbPlotSettingsValidator;
class AcDbTransactionManager;

/// Shows how far long work is: opening, saving and plotting of drawings. start and stop enclose the work; setLimit says how
/// often meterProgress will be called in between.
class AcDbHostApplicationProgressMeter
{
public:
    virtual ~AcDbHostApplicationProgressMeter() = default;
    virtual void start(const ACHAR* displayString = nullptr) = 0;
    virtual void stop() = 0;
    virtual void meterProgress() = 0;
    virtual void setLimit(int max) = 0;
};

class AcDbHostApplicationServices
{
public:
    virtual ~AcDbHostApplicationServices() = default;

    /// The database that calls without one mean; null when there is none.
    AcDbDatabase* workingDatabase() const { return mWorking; }
    void setWorkingDatabase(AcDbDatabase* database) { mWorking = database; }

    /// The meter that is told of long work; null for none. It stays its maker's.
    AcDbHostApplicationProgressMeter* workingProgressMeter() const { return mMeter; }
    void setWorkingProgressMeter(AcDbHostApplicationProgressMeter* meter) { mMeter = meter; }
    /// The one layout manager, an AcApLayoutManager; never null.
    AcDbLayoutManager* layoutManager() const;
    /// The one validator of plot settings; never null.
    AcDbPlotSettingsValidator* plotSettingsValidator() const;
    /// The transactions of the working database; null when there is none.
    AcDbTransactionManager* workingTransactionManager() const;

private:
    AcDbDatabase* mWorking = nullptr;
    AcDbHostApplicationProgressMeter* mMeter = nullptr;
};

/// The one object of these services; never null.
AcDbHostApplicationServices* acdbHostApplicationServices();
