#pragma once

#include "dbobjptr.h"

#include <gtest/gtest.h>

/// Adds a new entity to a block and closes it.
inline AcDbObjectId addTo(AcDbObjectId block, AcDbEntity* entity)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForWrite);
    AcDbObjectId id;
    EXPECT_EQ(record->appendAcDbEntity(id, entity), Acad::eOk);
    entity->close();
    return id;
}
