#pragma once

/// Short ways to the records of symbol tables and their names.

#include "acadstrc.h"
#include "dbid.h"

namespace AcDbSymbolUtilities
{
/// Ids are null when there is no such record, or for a null database. Names are compared without regard to
/// case.
class Services
{
public:
    // The record of a name: eKeyNotFound, eNoDatabase for a null database.

    Acad::ErrorStatus getBlockId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const;
    Acad::ErrorStatus getDimStyleId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const;
    Acad::ErrorStatus getLayerId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const;
    Acad::ErrorStatus getLinetypeId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const;
    Acad::ErrorStatus getRegAppId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const;
    Acad::ErrorStatus getTextStyleId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const;
    Acad::ErrorStatus getUCSId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const;
    Acad::ErrorStatus getViewId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const;
    Acad::ErrorStatus getViewportId(AcDbObjectId& id, const ACHAR* name, AcDbDatabase* database) const;
    /// The name of a record, as a copy that the caller releases with acutDelString. The statuses of
    /// acdbOpenObject.
    Acad::ErrorStatus getSymbolName(ACHAR*& name, AcDbObjectId id) const;

    // Records that every drawing has.

    AcDbObjectId blockModelSpaceId(AcDbDatabase* database) const;
    /// Of the current layout, or the last that was.
    AcDbObjectId blockPaperSpaceId(AcDbDatabase* database) const;
    AcDbObjectId dimStyleStandardId(AcDbDatabase* database) const;
    AcDbObjectId layerZeroId(AcDbDatabase* database) const;
    AcDbObjectId layerDefpointsId(AcDbDatabase* database) const;
    AcDbObjectId linetypeByBlockId(AcDbDatabase* database) const;
    AcDbObjectId linetypeByLayerId(AcDbDatabase* database) const;
    AcDbObjectId linetypeContinuousId(AcDbDatabase* database) const;
    AcDbObjectId regAppAcadId(AcDbDatabase* database) const;
    AcDbObjectId textStyleStandardId(AcDbDatabase* database) const;
    AcDbObjectId viewportActiveId(AcDbDatabase* database) const;

    // Their names.

    const ACHAR* blockModelSpaceName() const { return L"*Model_Space"; }
    const ACHAR* blockPaperSpaceName() const { return L"*Paper_Space"; }
    const ACHAR* dimStyleStandardName() const { return L"Standard"; }
    const ACHAR* layerZeroName() const { return L"0"; }
    const ACHAR* layerDefpointsName() const { return L"Defpoints"; }
    const ACHAR* linetypeByBlockName() const { return L"ByBlock"; }
    const ACHAR* linetypeByLayerName() const { return L"ByLayer"; }
    const ACHAR* linetypeContinuousName() const { return L"Continuous"; }
    const ACHAR* regAppAcadName() const { return L"ACAD"; }
    const ACHAR* textStyleStandardName() const { return L"Standard"; }
    const ACHAR* viewportActiveName() const { return L"*Active"; }

    bool isBlockModelSpaceName(const ACHAR* name) const { return areSame(name, blockModelSpaceName()); }
    bool isBlockPaperSpaceName(const ACHAR* name) const { return areSame(name, blockPaperSpaceName()); }
    /// True for the names of the blocks of layouts: model space, paper space, and "*Paper_Space" with a
    /// number.
    bool isBlockLayoutName(const ACHAR* name) const;
    bool isLayerZeroName(const ACHAR* name) const { return areSame(name, layerZeroName()); }
    bool isLayerDefpointsName(const ACHAR* name) const { return areSame(name, layerDefpointsName()); }
    bool isLinetypeByBlockName(const ACHAR* name) const { return areSame(name, linetypeByBlockName()); }
    bool isLinetypeByLayerName(const ACHAR* name) const { return areSame(name, linetypeByLayerName()); }
    bool isLinetypeContinuousName(const ACHAR* name) const { return areSame(name, linetypeContinuousName()); }
    bool isRegAppAcadName(const ACHAR* name) const { return areSame(name, regAppAcadName()); }
    bool isViewportActiveName(const ACHAR* name) const { return areSame(name, viewportActiveName()); }

    // Names in general.

    /// 255, or 31 for drawings before R2000.
    std::size_t getMaxSymbolNameLength(bool isExtended = true) const { return isExtended ? 255 : 31; }
    bool hasVerticalBar(const ACHAR* name) const;
    /// Whether a table takes a name that users give: eInvalidInput for one that it does not (null and empty
    /// ones, the
    /// "*" of the system's own), and for one with "|" unless that is allowed.
    Acad::ErrorStatus validateSymbolName(const ACHAR* name, bool allowVerticalBar) const;
    /// Below, at or above 0 as the first name stands before, with or behind the second.
    int compareSymbolName(const ACHAR* name, const ACHAR* other) const;

private:
    bool areSame(const ACHAR* name, const ACHAR* other) const
    {
        return name && compareSymbolName(name, other) == 0;
    }
};
} // namespace AcDbSymbolUtilities

/// The one object of these services; never null.
const AcDbSymbolUtilities::Services* acdbSymUtil();
