#include "dbindex.h"

#include "ClassRegistration.h"
#include "DxfFields.h"
#include "Stub.h"
#include "dbblock.h"

ACDB_ABSTRACT_CLASS(AcDbFilter, AcDbObject)
ACDB_ABSTRACT_CLASS(AcDbIndex, AcDbObject)

struct IndexAccess {
    static DxfField lastUpdate() { return dxf::real<&AcDbIndex::mLastUpdatedAt>(40); }
};

const DxfClass AcDbFilter::dxf("AcDbFilter", nullptr, {});
const DxfClass AcDbIndex::dxf("AcDbIndex", nullptr, {IndexAccess::lastUpdate()});

AcDbObjectId AcDbIndex::objectBeingIndexedId() const
{
    // The index lies in a dictionary of the block's extension dictionary.
    AcDbObjectId owner = ownerId();
    for (int i = 0; i < 2; ++i) {
        const AcDbObject* dictionary = residentObject(owner);
        owner = dictionary ? dictionary->ownerId() : AcDbObjectId();
    }
    return AcDbBlockTableRecord::cast(residentObject(owner)) ? owner : AcDbObjectId();
}
