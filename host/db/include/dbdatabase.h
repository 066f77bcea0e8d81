#pragma once

/// AcDbDatabase: one drawing in memory.

#include "dbobject.h"
#include "dbsymtb.h"

#include <atlstr.h>

#include <memory>

struct DatabaseState;

class AcDbDatabase : public AcRxObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabase);

    AcDbDatabase();
    ~AcDbDatabase() override;
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    // Finding objects.

    /// The id of the object under a handle. eUnknownHandle when there is none; with `createIfNotFound` a null handle asks for
    /// the next free one and another is reserved.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle,
                                      std::uint32_t xrefId = 0) const;
    /// The handle that the next new object gets.
    AcDbHandle handseed() const;
    /// How many objects the database holds, erased ones left out.
    int approxNumObjects() const;

    // Adding objects.

    /// Gives a new object an id and a handle, under an owner that the caller links it to. The object stays open for
    /// write. eAlreadyInDb for an object that has a database.
    Acad::ErrorStatus addAcDbObject(AcDbObjectId& id, AcDbObject* object, AcDbObjectId owner = AcDbObjectId::kNull);

    // The tables, opened as asked.

    Acad::ErrorStatus getRegAppTable(AcDbRegAppTable*& table, AcDb::OpenMode mode = AcDb::kForRead);

    AcDbObjectId regAppTableId() const;

private:
    friend struct DatabaseAccess;
    std::unique_ptr<DatabaseState> mState;
};
