#pragma once

/// Proxies: records of drawing files whose class is not in memory. They keep every group and are written back
/// unchanged.

#include "dbentity.h"

#include <memory>

/// The names of a class that is absent, as drawing files give them; they live as long as the program.
struct ProxyClassName {
    std::string record;
    CString dxfName;

    /// The one object of a record name.
    static const ProxyClassName& of(std::string_view recordName);
};

/// An object of an absent class. It can be erased and moved to another owner; it has no members to change.
class AcDbProxyObject : public AcDbObject
{
public:
    ACRX_DECLARE_MEMBERS(AcDbProxyObject);
    ACDB_STATE_MEMBERS(AcDbProxyObject)
    AcDbProxyObject() : AcDbProxyObject("ACAD_PROXY_OBJECT") {}
    explicit AcDbProxyObject(std::string_view recordName) : mClass(&ProxyClassName::of(recordName)) {}

    /// The names of the absent class, from the drawing's list of classes: empty when it does not list the class.
    CString originalClassName() const;
    CString originalDxfName() const { return mClass->dxfName; }
    CString applicationDescription() const;

    std::string_view dxfRecordName() const override { return mClass->record; }

private:
    const ProxyClassName* mClass;
};

/// An entity of an absent class: its layer, colour and other common properties can be read and changed, its geometry
/// cannot (eNotAllowedForThisProxy).
class AcDbProxyEntity : public AcDbEntity
{
public:
    ACRX_DECLARE_MEMBERS(AcDbProxyEntity);
    AcDbProxyEntity() : AcDbProxyEntity("ACAD_PROXY_ENTITY") {}
    explicit AcDbProxyEntity(std::string_view recordName) : mClass(&ProxyClassName::of(recordName)) {}

    CString originalClassName() const;
    CString originalDxfName() const { return mClass->dxfName; }
    CString applicationDescription() const;

    const DxfClass* dxfClass() const override { return &dxf; }
    std::string_view dxfRecordName() const override { return mClass->record; }
    static const DxfClass dxf;
    /// What follows the record in files up to its end mark.
    DbSubentities* subentities() override;

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d&) override { return Acad::eNotAllowedForThisProxy; }

private:
    const ProxyClassName* mClass;
    std::unique_ptr<DbSubentities> mSubentities;
};
