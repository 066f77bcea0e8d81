#pragma once

#include "dbdict.h"

/// A dictionary that gives a default for every name it does not have.
class AcDbDictionaryWithDefault : public AcDbDictionary
{
public:
    ACRX_DECLARE_MEMBERS(AcDbDictionaryWithDefault);
    ACDB_STATE_MEMBERS(AcDbDictionaryWithDefault)
    AcDbDictionaryWithDefault() = default;

    using AcDbDictionary::getAt;
    /// The default's id for a name that is not there; eKeyNotFound when there is no default either.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id) const override;
    AcDbObjectId defaultId() const { return mDefault; }
    /// eNullObjectId, eWrongDatabase.
    Acad::ErrorStatus setDefaultId(AcDbObjectId id);

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;

private:
    AcDbObjectId mDefault;
};
