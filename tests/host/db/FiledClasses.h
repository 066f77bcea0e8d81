#pragma once

/// Classes as a module would write them, whose objects hold others in each of the four ways.

#include "dbdatabase.h"
#include "dbfiler.h"
#include "dbproxy.h"
#include "dbsymtb.h"

/// What a valve owns, and an entry of dictionaries.
class TestTag : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(TestTag);
    AcString text;
    AcDbObjectId valve; ///< soft pointer

    Acad::ErrorStatus setText(const wchar_t* value)
    {
        const Acad::ErrorStatus status = assertWriteEnabled();
        if (status == Acad::eOk) text = value;
        return status;
    }
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;
};

class TestValve : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(TestValve);
    AcGePoint3d at;
    AcDbObjectId series; ///< hard pointer: a layer
    AcDbObjectId next;   ///< soft pointer
    AcDbObjectId tag;    ///< hard owner
    AcDbObjectId spare;  ///< soft owner

    static AcDb::FilerType lastFiler;  ///< that an object was read from
    enum class Copying { asFiled, painted, leftOut, refused };
    static Copying copying;

    Acad::ErrorStatus setAt(const AcGePoint3d& value)
    {
        const Acad::ErrorStatus status = assertWriteEnabled();
        if (status == Acad::eOk) at = value;
        return status;
    }
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;
    Acad::ErrorStatus dxfOutFields(AcDbDxfFiler* filer) const override;
    Acad::ErrorStatus dxfInFields(AcDbDxfFiler* filer) override;

    Acad::ErrorStatus subDeepClone(AcDbObject* owner, AcDbObject*& copy, AcDbIdMapping& map,
                                   bool isPrimary) const override;

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& xform) override { return setAt(xform * at); }
};

/// Both classes are known while it lives.
class FiledClasses
{
public:
    FiledClasses();
    ~FiledClasses();
    FiledClasses(const FiledClasses&) = delete;
    FiledClasses& operator=(const FiledClasses&) = delete;
};

/// A valve in a block with a tag of its own.
AcDbObjectId addValve(AcDbObjectId block, const AcGePoint3d& at, AcDbObjectId series, AcDbObjectId next);
