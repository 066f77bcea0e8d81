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

/// What a class lets others do with its objects while it is absent: flags for the definition of the class.
struct AcDbProxyFlags {
    enum : int {
        kNoOperation = 0,
        kEraseAllowed = 0x1,
        kTransformAllowed = 0x2,
        kColorChangeAllowed = 0x4,
        kLayerChangeAllowed = 0x8,
        kLinetypeChangeAllowed = 0x10,
        kLinetypeScaleChangeAllowed = 0x20,
        kVisibilityChangeAllowed = 0x40,
        kCloningAllowed = 0x80,
        kLineWeightChangeAllowed = 0x100,
        kPlotStyleNameChangeAllowed = 0x200,
        kAllButCloningAllowed = 0x37F,
        kAllAllowedBits = 0x3FF,
        kMergeIgnore = 0,
        kMergeReplace = 0x4000,
        kMergeMangleName = 0x8000
    };
};

/// An object of an absent class. It can be erased and moved to another owner; it has no members to change.
class AcDbProxyObject : public AcDbObject, public AcDbProxyFlags
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
    bool isAProxy() const override { return true; }

private:
    const ProxyClassName* mClass;
};

/// An entity of an absent class: its layer, colour and other common properties can be read and changed, its geometry
/// cannot (eNotAllowedForThisProxy).
class AcDbProxyEntity : public AcDbEntity, public AcDbProxyFlags
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
    bool isAProxy() const override { return true; }
    static const DxfClass dxf;
    /// What follows the record in files up to its end mark.
    DbSubentities* subentities() override;

protected:
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d&) override { return Acad::eNotAllowedForThisProxy; }

private:
    const ProxyClassName* mClass;
    std::unique_ptr<DbSubentities> mSubentities;
};
