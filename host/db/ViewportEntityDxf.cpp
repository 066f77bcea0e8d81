/// The groups of viewports.

#include "ClassRegistration.h"
#include "dbdatabase.h"
#include "DbObjectAccess.h"
#include "dbviewport.h"
#include "DxfFields.h"
#include "Stub.h"

ACDB_DXF_CLASS(AcDbViewport, AcDbEntity, VIEWPORT)

struct ViewportFields {
    static AcDbViewport& of(AcDbObject& object) { return static_cast<AcDbViewport&>(object); }
    static const AcDbViewport& of(const AcDbObject& object)
    {
        return static_cast<const AcDbViewport&>(object);
    }

    static void readFrozen(AcDbObject& object, const DxfField& field, DxfSource& source)
    {
        AcDbViewport& viewport = of(object);
        viewport.mFrozenAsHard = field.code == 341;
        viewport.mFrozen.push_back(source.stubOf(static_cast<std::uint64_t>(source.peek()->integer)));
        source.take();
    }
    static void writeFrozen(const AcDbObject& object, const DxfField&, DxfSink& sink)
    {
        const AcDbViewport& viewport = of(object);
        for (const AcDbObjectId id : viewport.mFrozen)
            sink.handle(viewport.mFrozenAsHard ? 341 : 331, id);
    }

    static void readStatus(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        of(object).mStatus = static_cast<std::int32_t>(source.peek()->integer);
        of(object).mHasViewGroups = true;
        source.take();
    }
    static void writeStatus(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        sink.integer(field.code, of(object).mStatus);
    }

    /// The values of the list "MVIEW" in the order of the DXF reference of R12.
    class Mview
    {
    public:
        explicit Mview(const PackedGroups& groups) : mGroups(groups)
        {
            mMore = groups.read(mAt, mGroup);
            mIsThere = mMore && mGroup.code == 1000 && mGroup.text == "MVIEW";
            next();
            if (mIsThere && mMore && mGroup.code == 1002) next();
            integer(); // the version of the list
        }
        explicit operator bool() const { return mIsThere; }
        double real()
        {
            const double value = mMore && mGroup.kind == DxfKind::real ? mGroup.real : 0.0;
            next();
            return value;
        }
        int integer()
        {
            const int value = mMore && mGroup.kind == DxfKind::integer ? static_cast<int>(mGroup.integer) : 0;
            next();
            return value;
        }
        bool isLayer() const { return mMore && mGroup.code == 1003; }
        bool isBrace() const { return mMore && mGroup.code == 1002; }
        CString text() const { return mGroup.wide(); }
        void next() { mMore = mMore && mGroups.read(mAt, mGroup); }

    private:
        const PackedGroups& mGroups;
        std::size_t mAt = 0;
        DxfGroup mGroup;
        bool mMore = false, mIsThere = false;
    };

    static void takeFlag(AcDbViewport& viewport, AcDbViewport::StatusBit bit, bool on)
    {
        viewport.mStatus = on ? viewport.mStatus | bit : viewport.mStatus & ~bit;
    }

    static void takeView(AcDbViewport& viewport, Mview& list)
    {
        double* const target[] = {&viewport.mTarget.x, &viewport.mTarget.y, &viewport.mTarget.z};
        for (double* coordinate : target)
            *coordinate = list.real();
        AcGeVector3d direction;
        direction.x = list.real();
        direction.y = list.real();
        direction.z = list.real();
        if (!direction.isZeroLength()) viewport.mDirection = direction;
        viewport.mTwist = list.real();
        viewport.mViewHeight = list.real();
        viewport.mViewCenter.x = list.real();
        viewport.mViewCenter.y = list.real();
        viewport.mLensLength = list.real();
        viewport.mFrontClip = list.real();
        viewport.mBackClip = list.real();
    }

    static void takeSettings(AcDbViewport& viewport, Mview& list)
    {
        viewport.mStatus = (viewport.mStatus & ~0x1F) | (list.integer() & 0x1F);
        viewport.mCircleSides = static_cast<std::int16_t>(list.integer());
        takeFlag(viewport, AcDbViewport::fastZoomBit, list.integer() != 0);
        const int icon = list.integer();
        takeFlag(viewport, AcDbViewport::iconVisibleBit, (icon & 1) != 0);
        takeFlag(viewport, AcDbViewport::iconAtOriginBit, (icon & 2) != 0);
        takeFlag(viewport, AcDbViewport::snapBit, list.integer() != 0);
        takeFlag(viewport, AcDbViewport::gridBit, list.integer() != 0);
        takeFlag(viewport, AcDbViewport::isometricBit, list.integer() != 0);
        list.integer(); // the plane of isometric snaps
        viewport.mSnapAngle = list.real();
        double* const spacings[] = {&viewport.mSnapBase.x, &viewport.mSnapBase.y, &viewport.mSnap.x,
                                    &viewport.mSnap.y,     &viewport.mGrid.x,     &viewport.mGrid.y};
        for (double* value : spacings)
            *value = list.real();
        takeFlag(viewport, AcDbViewport::hideBit, list.integer() != 0);
    }

    static void takeFrozen(AcDbViewport& viewport, Mview& list)
    {
        const AcDbDatabase* database = viewport.database();
        const auto* layers =
            database ? AcDbLayerTable::cast(residentObject(database->layerTableId())) : nullptr;
        while (list.isBrace())
            list.next();
        for (; list.isLayer(); list.next()) {
            AcDbObjectId layer;
            if (layers && layers->getAt(list.text(), layer) == Acad::eOk) viewport.mFrozen.push_back(layer);
        }
    }

    static constexpr auto center = &AcDbViewport::mCenter;
    static constexpr auto width = &AcDbViewport::mWidth;
    static constexpr auto height = &AcDbViewport::mHeight;
    static constexpr auto displayOrder = &AcDbViewport::mDisplayOrder;
    static constexpr auto number = &AcDbViewport::mNumber;
    static constexpr auto viewCenter = &AcDbViewport::mViewCenter;
    static constexpr auto snapBase = &AcDbViewport::mSnapBase;
    static constexpr auto snap = &AcDbViewport::mSnap;
    static constexpr auto grid = &AcDbViewport::mGrid;
    static constexpr auto direction = &AcDbViewport::mDirection;
    static constexpr auto target = &AcDbViewport::mTarget;
    static constexpr auto lensLength = &AcDbViewport::mLensLength;
    static constexpr auto frontClip = &AcDbViewport::mFrontClip;
    static constexpr auto backClip = &AcDbViewport::mBackClip;
    static constexpr auto viewHeight = &AcDbViewport::mViewHeight;
    static constexpr auto snapAngle = &AcDbViewport::mSnapAngle;
    static constexpr auto twist = &AcDbViewport::mTwist;
    static constexpr auto circleSides = &AcDbViewport::mCircleSides;
    static constexpr auto clip = &AcDbViewport::mClip;
    static constexpr auto plotStyleSheet = &AcDbViewport::mPlotStyleSheet;
    static constexpr auto renderMode = &AcDbViewport::mRenderMode;
    static constexpr auto ucsPerViewport = &AcDbViewport::mUcsPerViewport;
    static constexpr auto ucsIcon = &AcDbViewport::mUcsIconPerViewport;
    static constexpr auto ucsOrigin = &AcDbViewport::mUcsOrigin;
    static constexpr auto ucsXAxis = &AcDbViewport::mUcsXAxis;
    static constexpr auto ucsYAxis = &AcDbViewport::mUcsYAxis;
    static constexpr auto ucsName = &AcDbViewport::mUcsName;
    static constexpr auto ucsBase = &AcDbViewport::mUcsBase;
    static constexpr auto orthographic = &AcDbViewport::mOrthographicType;
    static constexpr auto elevation = &AcDbViewport::mElevation;
    static constexpr auto shadePlot = &AcDbViewport::mShadePlot;
    static constexpr auto gridMajor = &AcDbViewport::mGridMajor;
    static constexpr auto background = &AcDbViewport::mBackground;
    static constexpr auto visualStyle = &AcDbViewport::mVisualStyle;
};

void AcDbViewport::completeRead()
{
    const DbObjectExtras* extras = DbObjectAccess::extras(*this);
    if (mHasViewGroups || !extras) return;
    for (const AppXData& data : extras->xdata) {
        ViewportFields::Mview list(data.groups);
        if (!list) continue;
        ViewportFields::takeView(*this, list);
        ViewportFields::takeSettings(*this, list);
        ViewportFields::takeFrozen(*this, list);
    }
}

namespace
{
using Fields = ViewportFields;
constexpr DxfVersion r2000 = DxfVersion::r2000, r2007 = DxfVersion::r2007;
} // namespace

// Light, background colours and the sun, which nothing here shows, are kept as they are read.
const DxfClass AcDbViewport::dxf("AcDbViewport", &AcDbEntity::dxf,
                                 {
                                     dxf::point<Fields::center>(10),
                                     dxf::real<Fields::width>(40),
                                     dxf::real<Fields::height>(41),
                                     dxf::integer<Fields::displayOrder>(68),
                                     dxf::integer<Fields::number>(69),
                                     dxf::point2d<Fields::viewCenter>(12).from(r2000),
                                     dxf::point2d<Fields::snapBase>(13).from(r2000),
                                     dxf::point2d<Fields::snap>(14).from(r2000),
                                     dxf::point2d<Fields::grid>(15).from(r2000),
                                     dxf::point<Fields::direction>(16).from(r2000),
                                     dxf::point<Fields::target>(17).from(r2000),
                                     dxf::real<Fields::lensLength>(42).from(r2000),
                                     dxf::real<Fields::frontClip>(43).from(r2000),
                                     dxf::real<Fields::backClip>(44).from(r2000),
                                     dxf::real<Fields::viewHeight>(45).from(r2000),
                                     dxf::angle<Fields::snapAngle>(50).from(r2000),
                                     dxf::angle<Fields::twist>(51).from(r2000),
                                     dxf::integer<Fields::circleSides>(72).from(r2000),
                                     dxf::custom(331, Fields::readFrozen, Fields::writeFrozen).from(r2000),
                                     dxf::custom(341, Fields::readFrozen, nullptr),
                                     dxf::custom(90, Fields::readStatus, Fields::writeStatus).from(r2000),
                                     dxf::reference<Fields::clip>(340).unlessDefault().from(r2000),
                                     dxf::text<Fields::plotStyleSheet>(1).from(r2000),
                                     dxf::integer<Fields::renderMode>(281).from(r2000),
                                     dxf::integer<Fields::ucsPerViewport>(71).from(r2000),
                                     dxf::integer<Fields::ucsIcon>(74).from(r2000),
                                     dxf::point<Fields::ucsOrigin>(110).from(r2000),
                                     dxf::point<Fields::ucsXAxis>(111).from(r2000),
                                     dxf::point<Fields::ucsYAxis>(112).from(r2000),
                                     dxf::reference<Fields::ucsName>(345).unlessDefault().from(r2000),
                                     dxf::reference<Fields::ucsBase>(346).unlessDefault().from(r2000),
                                     dxf::integer<Fields::orthographic>(79).from(r2000),
                                     dxf::real<Fields::elevation>(146).from(r2000),
                                     dxf::integer<Fields::shadePlot>(170).from(DxfVersion::r2004),
                                     dxf::integer<Fields::gridMajor>(61).from(r2007),
                                     dxf::reference<Fields::background>(332).unlessDefault().from(r2007),
                                     dxf::reference<Fields::visualStyle>(348).unlessDefault().from(r2007),
                                 });
