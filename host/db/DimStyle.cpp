#include "dbdimsty.h"

#include "DxfFields.h"
#include "SymbolTableMembers.h"

ACDB_DXF_CLASS(AcDbDimStyleTableRecord, AcDbSymbolTableRecord, DIMSTYLE)
ACDB_SYMBOL_TABLE_MEMBERS(DimStyle)

struct DimStyleAccess {
    static void readSeventy(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        auto& style = static_cast<AcDbDimStyleTableRecord&>(object);
        const std::int64_t value = source.peek()->integer;
        if (style.mReadSeventies++ == 0) {
            style.mFlags = static_cast<int>(value);
        } else {
            style.mDimtfillclr = static_cast<std::int16_t>(value);
        }
        source.take();
    }

    static void writeFillColor(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        const auto& style = static_cast<const AcDbDimStyleTableRecord&>(object);
        if (style.mDimtfillclr != 0 || style.mReadSeventies > 1) sink.integer(field.code, style.mDimtfillclr);
    }
};

namespace
{
/// Up to R14 arrows are named; since then they are referred to.
template <auto Arrow>
DxfField arrowName(int code)
{
    return dxf::custom(
        code,
        [](AcDbObject& object, const DxfField&, DxfSource& source) {
            constexpr int blockName = 2;
            const DxfGroup& group = *source.peek();
            const bool isNamed = group.kind == DxfKind::text && !group.text.empty();
            if (isNamed) dxf::MemberTraits<Arrow>::of(object) = AcDbObjectId(source.recordOf(blockName, group.text));
            source.take();
        },
        nullptr);
}

/// The version that brought a variable, by its code: R12 ends with DIMCLRT.
DxfField since(DxfField field)
{
    const bool isNew = field.code == 49 || field.code == 50 || field.code == 69 || field.code == 79 ||
                       field.code == 90 || field.code == 148 || field.code > 178;
    return isNew ? field.from(DxfVersion::r2000) : field;
}
} // namespace

#define ACDB_DIM_REAL_FIELD(NAME, SET, CODE, VALUE) since(dxf::real<&AcDbDimStyleTableRecord::m##SET>(CODE)),
#define ACDB_DIM_ANGLE_FIELD(NAME, SET, CODE, VALUE) since(dxf::angle<&AcDbDimStyleTableRecord::m##SET>(CODE)),
#define ACDB_DIM_INTEGER_FIELD(NAME, SET, CODE, VALUE) since(dxf::integer<&AcDbDimStyleTableRecord::m##SET>(CODE)),
#define ACDB_DIM_TEXT_FIELD(NAME, SET, CODE, VALUE) dxf::text<&AcDbDimStyleTableRecord::m##SET>(CODE),
#define ACDB_DIM_REFERENCE_FIELD(NAME, SET, CODE, VALUE)                                                     \
    since(dxf::reference<&AcDbDimStyleTableRecord::m##SET>(CODE).unlessDefault()),

const DxfClass AcDbDimStyleTableRecord::dxf(
    "AcDbDimStyleTableRecord", &AcDbSymbolTableRecord::dxf,
    {
        dxf::text<&AcDbDimStyleTableRecord::mName>(2),
        dxf::custom(70, DimStyleAccess::readSeventy,
                    [](const AcDbObject& object, const DxfField& field, DxfSink& sink) {
                        sink.integer(field.code, static_cast<const AcDbDimStyleTableRecord&>(object).flags());
                    }),
        arrowName<&AcDbDimStyleTableRecord::mDimblk>(5), arrowName<&AcDbDimStyleTableRecord::mDimblk1>(6),
        arrowName<&AcDbDimStyleTableRecord::mDimblk2>(7),
        ACDB_DIM_TEXTS(ACDB_DIM_TEXT_FIELD) ACDB_DIM_REALS(ACDB_DIM_REAL_FIELD) ACDB_DIM_ANGLES(ACDB_DIM_ANGLE_FIELD)
            dxf::custom(70, nullptr, DimStyleAccess::writeFillColor)
                .from(DxfVersion::r2007),
        ACDB_DIM_INTEGERS(ACDB_DIM_INTEGER_FIELD) ACDB_DIM_SWITCHES(ACDB_DIM_INTEGER_FIELD)
            ACDB_DIM_COLORS(ACDB_DIM_INTEGER_FIELD) ACDB_DIM_REFERENCES(ACDB_DIM_REFERENCE_FIELD)
                ACDB_DIM_LINEWEIGHTS(ACDB_DIM_INTEGER_FIELD)
    });

AcCmColor AcDbDimStyleTableRecord::colorOf(int index)
{
    AcCmColor color;
    color.setColorIndex(index);
    return color;
}
