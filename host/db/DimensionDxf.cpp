/// The groups that all dimensions have.

#include "dbdimension.h"
#include "DxfFields.h"

struct DimensionFields {
    static AcDbDimension& of(AcDbObject& object) { return static_cast<AcDbDimension&>(object); }
    static const AcDbDimension& of(const AcDbObject& object)
    {
        return static_cast<const AcDbDimension&>(object);
    }

    /// A field that is left out while it has its default, unless the file stated it.
    template <DxfField (*Make)(int), int bit>
    static DxfField unlessStated(int code, double value = 0.0)
    {
        DxfField field = Make(code).unless(value);
        field.read = [](AcDbObject& object, const DxfField& self, DxfSource& source) {
            of(object).mGiven = static_cast<std::uint8_t>(of(object).mGiven | bit);
            Make(self.code).read(object, self, source);
        };
        field.isDefault = [](const AcDbObject& object, const DxfField& self) {
            return !(of(object).mGiven & bit) && Make(self.code).isDefault(object, self);
        };
        return field;
    }

    static void readMeasure(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        of(object).mFileMeasure = source.peek()->real;
        of(object).mHasFileMeasure = true;
        source.take();
    }
    static void writeMeasure(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        const AcDbDimension& dimension = of(object);
        sink.real(field.code, dimension.mHasFileMeasure ? dimension.mFileMeasure : dimension.measurement());
    }

    /// The block stands when the file names it.
    static void readBlock(AcDbObject& object, const DxfField& field, DxfSource& source)
    {
        dxf::record<&AcDbDimension::mBlock>(field.code).read(object, field, source);
        of(object).mIsStale = of(object).mBlock.isNull();
        of(object).mMadeBlock = false;
    }

    static bool isBlockAtOrigin(const AcDbObject& object, const DxfField&)
    {
        const AcDbDimension& dimension = of(object);
        const AcGePoint3d& at = dimension.mBlockPosition;
        return !(dimension.mGiven & 32) && at.x == 0.0 && at.y == 0.0 && at.z == 0.0;
    }
    static void readBlockPosition(AcDbObject& object, const DxfField& field, DxfSource& source)
    {
        of(object).mGiven |= 32;
        dxf::point<&AcDbDimension::mBlockPosition>(field.code).read(object, field, source);
    }

    static DxfField block()
    {
        DxfField field = dxf::record<&AcDbDimension::mBlock>(2);
        field.read = readBlock;
        return field;
    }
    static DxfField blockPosition()
    {
        DxfField field = dxf::point<&AcDbDimension::mBlockPosition>(12);
        field.read = readBlockPosition;
        return field.unlessIs(isBlockAtOrigin);
    }

    static constexpr auto defPoint = &AcDbDimension::mDefPoint;
    static constexpr auto textPosition = &AcDbDimension::mTextPosition;
    static constexpr auto flags = &AcDbDimension::mFlags;
    static constexpr auto text = &AcDbDimension::mText;
    static constexpr auto attachment = &AcDbDimension::mAttachment;
    static constexpr auto spacingStyle = &AcDbDimension::mSpacingStyle;
    static constexpr auto spacingFactor = &AcDbDimension::mSpacingFactor;
    static constexpr auto flipsFirst = &AcDbDimension::mFlipsFirst;
    static constexpr auto flipsSecond = &AcDbDimension::mFlipsSecond;
    static constexpr auto textRotation = &AcDbDimension::mTextRotation;
    static constexpr auto horizontalRotation = &AcDbDimension::mHorizontalRotation;
    static constexpr auto normal = &AcDbDimension::mNormal;
    static constexpr auto style = &AcDbDimension::mStyle;
};

using Fields = DimensionFields;

// Groups 280 and 73, which nothing is known to depend on, are kept as they are read.
const DxfClass AcDbDimension::dxf(
    "AcDbDimension", &AcDbEntity::dxf,
    {
        Fields::block(),
        dxf::point<Fields::defPoint>(10),
        dxf::point<Fields::textPosition>(11),
        Fields::blockPosition(),
        dxf::integer<Fields::flags>(70),
        Fields::unlessStated<dxf::text<Fields::text>, 1>(1),
        dxf::integer<Fields::attachment>(71).from(DxfVersion::r2000),
        Fields::unlessStated<dxf::integer<Fields::spacingStyle>, 2>(72, 1.0).from(DxfVersion::r2000),
        Fields::unlessStated<dxf::real<Fields::spacingFactor>, 4>(41, 1.0).from(DxfVersion::r2000),
        dxf::custom(42, Fields::readMeasure, Fields::writeMeasure).from(DxfVersion::r2000),
        dxf::integer<Fields::flipsFirst>(74).from(DxfVersion::r2007),
        dxf::integer<Fields::flipsSecond>(75).from(DxfVersion::r2007),
        Fields::unlessStated<dxf::angle<Fields::horizontalRotation>, 8>(51),
        Fields::unlessStated<dxf::angle<Fields::textRotation>, 16>(53),
        dxf::direction<Fields::normal>(210).unlessZAxis(),
        dxf::record<Fields::style>(3),
    });
