#pragma once

/// The layout manager of the program: acdbHostApplicationServices()->layoutManager() is of this class.

#include "dblayoutmanager.h"

class AcApLayoutManager : public AcDbLayoutManager
{
public:
    ACRX_DECLARE_MEMBERS(AcApLayoutManager);
    /// The name of the tab that is shown; null when there is none. The text is the layout's.
    virtual const ACHAR* getActiveTab(const AcDbDatabase* database = nullptr) const
    {
        return findActiveLayout(true, database);
    }
};
