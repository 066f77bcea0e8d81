#pragma once

#include "acdb.h"
#include "dbidar.h"
#include "dblayoutmanager.h"
#include "dbplotsettings.h"
#include "gepnt3d.h"
#include "gevec3d.h"

/// A tab of the drawing: a space (a block) and how it is plotted. Layouts are in the layout dictionary under their
/// names.
class AcDbLayout : public AcDbPlotSettings
{
public:
    ACRX_DECLARE_MEMBERS(AcDbLayout);
    ACDB_STATE_MEMBERS(AcDbLayout)
    /// `modelType`: the layout of model space.
    explicit AcDbLayout(bool modelType = false) : AcDbPlotSettings(modelType) {}

    Acad::ErrorStatus getLayoutName(const ACHAR*& name) const;
    /// A copy that the caller releases with acutDelString.
    Acad::ErrorStatus getLayoutName(ACHAR*& name) const;
    /// Renames the entry of the dictionary too: eInvalidKey for an empty name, eDuplicateKey when another layout has
    /// it, eRenameIsModelSpace for the model layout; nothing is changed then.
    Acad::ErrorStatus setLayoutName(const ACHAR* name);
    /// From 1; the model layout has 0.
    int getTabOrder() const { return mTabOrder; }
    void setTabOrder(int order) { assign(mTabOrder, order); }
    bool getTabSelected() const { return mIsTabSelected; }
    void setTabSelected(bool selected) { assign(mIsTabSelected, selected); }

    AcDbObjectId getBlockTableRecordId() const { return mBlock; }
    /// Names the block; it is not told.
    Acad::ErrorStatus setBlockTableRecordId(AcDbObjectId block) { return assign(mBlock, block); }
    /// Puts a new layout in the layout dictionary of a database under its name and links it with its block; it stays
    /// open. The statuses of AcDbDictionary::setAt; eInvalidInput for a null database, eDuplicateKey for a name that
    /// is taken, eWrongObjectType for an id that is no block.
    Acad::ErrorStatus addToLayoutDict(AcDbDatabase* database, AcDbObjectId block);
    /// Makes the viewport that shows the sheet itself, when the space has no viewport yet. `paperViewport` is given its id.
    /// eNotInDatabase for a layout without a block, eNotApplicable for the model's.
    Acad::ErrorStatus initialize(AcDbObjectId* paperViewport = nullptr);
    /// The viewports of the space, the one that is the sheet itself first.
    AcDbObjectIdArray getViewportArray() const;

    void getLimits(AcGePoint2d& minPoint, AcGePoint2d& maxPoint) const;
    void getExtents(AcGePoint3d& minPoint, AcGePoint3d& maxPoint) const;

    const DxfClass* dxfClass() const override { return &dxf; }
    static const DxfClass dxf;
    Acad::ErrorStatus subErase(bool erasing) override;
    void subCancel(const AcDbObject& before) override;

private:
    friend struct LayoutAccess;
    Acad::ErrorStatus renameEntry(const CString& from, const CString& to) const;

    CString mName;
    int mFlags = 1; ///< 1: line types are scaled in paper space (PSLTSCALE), 2: limits are checked
    int mTabOrder = 0;
    bool mIsTabSelected = false;
    AcGePoint2d mLimMin{0.0, 0.0}, mLimMax{12.0, 9.0};
    AcGePoint3d mInsertionBase, mExtMin{1e20, 1e20, 1e20}, mExtMax{-1e20, -1e20, -1e20};
    double mElevation = 0.0;
    AcGePoint3d mUcsOrigin;
    AcGeVector3d mUcsXAxis{1.0, 0.0, 0.0}, mUcsYAxis{0.0, 1.0, 0.0};
    std::int16_t mOrthographicType = 0;
    AcDbObjectId mBlock, mLastViewport, mUcsName, mUcsBase;
};
