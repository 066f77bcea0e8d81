#include "dbvport.h"

#include "DxfFields.h"
#include "SymbolTableMembers.h"

ACDB_DXF_CLASS(AcDbViewportTableRecord, AcDbAbstractViewTableRecord, VPORT)
ACDB_SYMBOL_TABLE_MEMBERS(Viewport)

struct ViewportAccess {
    static AcDbViewportTableRecord& of(AcDbObject& object) { return static_cast<AcDbViewportTableRecord&>(object); }

    /// Files give the width as its ratio to the height, which stands before it.
    static void readAspect(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        of(object).mWidth = source.peek()->real * of(object).mHeight;
        source.take();
    }

    static void writeAspect(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        const auto& viewport = static_cast<const AcDbViewportTableRecord&>(object);
        sink.real(field.code, viewport.mHeight != 0.0 ? viewport.mWidth / viewport.mHeight : viewport.mWidth);
    }
};

const DxfClass AcDbViewportTableRecord::dxf(
    "AcDbViewportTableRecord", &AcDbSymbolTableRecord::dxf,
    {
        dxf::text<&AcDbViewportTableRecord::mName>(2),
        dxf::integer<&AcDbViewportTableRecord::mFlags>(70),
        dxf::point2d<&AcDbViewportTableRecord::mLowerLeft>(10),
        dxf::point2d<&AcDbViewportTableRecord::mUpperRight>(11),
        dxf::point2d<&AcDbViewportTableRecord::mCenter>(12),
        dxf::point2d<&AcDbViewportTableRecord::mSnapBase>(13),
        dxf::point2d<&AcDbViewportTableRecord::mSnapIncrements>(14),
        dxf::point2d<&AcDbViewportTableRecord::mGridIncrements>(15),
        dxf::point<&AcDbViewportTableRecord::mDirection>(16),
        dxf::point<&AcDbViewportTableRecord::mTarget>(17),
        dxf::real<&AcDbViewportTableRecord::mHeight>(40),
        dxf::custom(41, ViewportAccess::readAspect, ViewportAccess::writeAspect),
        dxf::real<&AcDbViewportTableRecord::mLensLength>(42),
        dxf::real<&AcDbViewportTableRecord::mFrontClip>(43),
        dxf::real<&AcDbViewportTableRecord::mBackClip>(44),
        dxf::angle<&AcDbViewportTableRecord::mSnapAngle>(50),
        dxf::angle<&AcDbViewportTableRecord::mTwist>(51),
        dxf::integer<&AcDbViewportTableRecord::mMode>(71),
        dxf::integer<&AcDbViewportTableRecord::mCircleSides>(72),
        dxf::integer<&AcDbViewportTableRecord::mFastZooms>(73),
        dxf::integer<&AcDbViewportTableRecord::mUcsIcon>(74),
        dxf::integer<&AcDbViewportTableRecord::mSnapOn>(75),
        dxf::integer<&AcDbViewportTableRecord::mGridOn>(76),
        dxf::integer<&AcDbViewportTableRecord::mIsometricSnap>(77),
        dxf::integer<&AcDbViewportTableRecord::mSnapPair>(78),
        dxf::integer<&AcDbViewportTableRecord::mRenderMode>(281).from(DxfVersion::r2000),
        dxf::integer<&AcDbViewportTableRecord::mHasUcs>(65).from(DxfVersion::r2000),
        dxf::point<&AcDbViewportTableRecord::mUcsOrigin>(110).from(DxfVersion::r2000),
        dxf::point<&AcDbViewportTableRecord::mUcsXAxis>(111).from(DxfVersion::r2000),
        dxf::point<&AcDbViewportTableRecord::mUcsYAxis>(112).from(DxfVersion::r2000),
        dxf::integer<&AcDbViewportTableRecord::mOrthographicType>(79).from(DxfVersion::r2000),
        dxf::real<&AcDbViewportTableRecord::mElevation>(146).from(DxfVersion::r2000),
        dxf::reference<&AcDbViewportTableRecord::mUcsName>(345).unlessDefault().from(DxfVersion::r2000),
        dxf::reference<&AcDbViewportTableRecord::mUcsBase>(346).unlessDefault().from(DxfVersion::r2000),
        dxf::reference<&AcDbViewportTableRecord::mVisualStyle>(348).unlessDefault().from(DxfVersion::r2007),
    });
