#pragma once

/// The transactions of documents.

#include "dbtrans.h"

class AcTransactionManager : public AcDbTransactionManager
{
public:
    ACRX_DECLARE_MEMBERS(AcTransactionManager);
    /// Nothing waits to be drawn here: eOk.
    virtual Acad::ErrorStatus enableGraphicsFlush(bool doEnable) = 0;
    virtual void flushGraphics() = 0;
};

/// The transactions of the working database, which is the current document's; null when there is none.
AcTransactionManager* acTransactionManagerPtr();
#define actrTransactionManager acTransactionManagerPtr()
