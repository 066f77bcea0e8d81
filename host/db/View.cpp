#include "dbview.h"

#include "DxfFields.h"
#include "SymbolTableMembers.h"

ACDB_DXF_CLASS(AcDbViewTableRecord, AcDbAbstractViewTableRecord, VIEW)
ACDB_SYMBOL_TABLE_MEMBERS(View)

struct ViewAccess {
    /// Fields of the coordinate system stand only where there is one.
    static bool hasNoUcs(const AcDbObject& object, const DxfField&)
    {
        return !static_cast<const AcDbViewTableRecord&>(object).mHasUcs;
    }
};

const DxfClass AcDbViewTableRecord::dxf(
    "AcDbViewTableRecord", &AcDbSymbolTableRecord::dxf,
    {
        dxf::text<&AcDbViewTableRecord::mName>(2),
        dxf::integer<&AcDbViewTableRecord::mFlags>(70),
        dxf::real<&AcDbViewTableRecord::mHeight>(40),
        dxf::point2d<&AcDbViewTableRecord::mCenter>(10),
        dxf::real<&AcDbViewTableRecord::mWidth>(41),
        dxf::point<&AcDbViewTableRecord::mDirection>(11),
        dxf::point<&AcDbViewTableRecord::mTarget>(12),
        dxf::real<&AcDbViewTableRecord::mLensLength>(42),
        dxf::real<&AcDbViewTableRecord::mFrontClip>(43),
        dxf::real<&AcDbViewTableRecord::mBackClip>(44),
        dxf::angle<&AcDbViewTableRecord::mTwist>(50),
        dxf::integer<&AcDbViewTableRecord::mMode>(71),
        dxf::integer<&AcDbViewTableRecord::mRenderMode>(281).from(DxfVersion::r2000),
        dxf::integer<&AcDbViewTableRecord::mHasUcs>(72).from(DxfVersion::r2000),
        dxf::integer<&AcDbViewTableRecord::mIsCameraPlottable>(73).unless(0.0).from(DxfVersion::r2007),
        dxf::reference<&AcDbViewTableRecord::mVisualStyle>(348).unlessDefault().from(DxfVersion::r2007),
        dxf::point<&AcDbViewTableRecord::mUcsOrigin>(110)
            .unlessIs(ViewAccess::hasNoUcs)
            .from(DxfVersion::r2000),
        dxf::point<&AcDbViewTableRecord::mUcsXAxis>(111)
            .unlessIs(ViewAccess::hasNoUcs)
            .from(DxfVersion::r2000),
        dxf::point<&AcDbViewTableRecord::mUcsYAxis>(112)
            .unlessIs(ViewAccess::hasNoUcs)
            .from(DxfVersion::r2000),
        dxf::integer<&AcDbViewTableRecord::mOrthographicType>(79)
            .unlessIs(ViewAccess::hasNoUcs)
            .from(DxfVersion::r2000),
        dxf::real<&AcDbViewTableRecord::mElevation>(146)
            .unlessIs(ViewAccess::hasNoUcs)
            .from(DxfVersion::r2000),
        dxf::reference<&AcDbViewTableRecord::mUcsName>(345).unlessDefault().from(DxfVersion::r2000),
        dxf::reference<&AcDbViewTableRecord::mUcsBase>(346).unlessDefault().from(DxfVersion::r2000),
    });
