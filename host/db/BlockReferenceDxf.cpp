/// The groups of block references.

#include "ClassRegistration.h"
#include "dbblkref.h"
#include "DxfFields.h"
#include "RecordClass.h"

#include <algorithm>

ACDB_DXF_CLASS(AcDbBlockReference, AcDbEntity, INSERT)
ACDB_DXF_CLASS(AcDbMInsertBlock, AcDbBlockReference, INSERT)

struct BlockReferenceFields {
    static AcDbBlockReference& of(AcDbObject& object) { return static_cast<AcDbBlockReference&>(object); }
    static const AcDbBlockReference& of(const AcDbObject& object)
    {
        return static_cast<const AcDbBlockReference&>(object);
    }

    /// Attributes that follow: the reader sees them come.
    static void skip(AcDbObject&, const DxfField&, DxfSource& source) { source.take(); }
    static void writeFollows(const AcDbObject& object, const DxfField&, DxfSink& sink)
    {
        const DbSubentities* list = of(object).subentities();
        const auto lives = [](AcDbObjectId id) { return !id.isErased(); };
        if (list && std::any_of(list->ids.begin(), list->ids.end(), lives)) sink.integer(66, 1);
    }

    template <double AcGeScale3d::*Factor>
    static void readScale(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        of(object).mScale.*Factor = source.peek()->real;
        source.take();
    }
    template <double AcGeScale3d::*Factor>
    static void writeScale(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        sink.real(field.code, of(object).mScale.*Factor);
    }

    static constexpr auto block = &AcDbBlockReference::mBlock;
    static constexpr auto position = &AcDbBlockReference::mPosition;
    static constexpr auto rotation = &AcDbBlockReference::mRotation;
    static constexpr auto normal = &AcDbBlockReference::mNormal;
    static constexpr auto columns = &AcDbMInsertBlock::mColumns;
    static constexpr auto rows = &AcDbMInsertBlock::mRows;
    static constexpr auto columnSpacing = &AcDbMInsertBlock::mColumnSpacing;
    static constexpr auto rowSpacing = &AcDbMInsertBlock::mRowSpacing;
};

namespace
{
using Fields = BlockReferenceFields;

const std::initializer_list<DxfField> referenceFields = {
    dxf::custom(66, Fields::skip, Fields::writeFollows),
    dxf::record<Fields::block>(2),
    dxf::point<Fields::position>(10),
    dxf::custom(41, Fields::readScale<&AcGeScale3d::sx>, Fields::writeScale<&AcGeScale3d::sx>),
    dxf::custom(42, Fields::readScale<&AcGeScale3d::sy>, Fields::writeScale<&AcGeScale3d::sy>),
    dxf::custom(43, Fields::readScale<&AcGeScale3d::sz>, Fields::writeScale<&AcGeScale3d::sz>),
    dxf::angle<Fields::rotation>(50),
    dxf::direction<Fields::normal>(210).unlessZAxis(),
};
} // namespace

const DxfClass AcDbBlockReference::dxf("AcDbBlockReference", &AcDbEntity::dxf, referenceFields);

// A record in rows and columns has one section, with the fields of both.
static const DxfClass referenceInRows("AcDbMInsertBlock", &AcDbEntity::dxf, referenceFields);
const DxfClass AcDbMInsertBlock::dxf(nullptr, &referenceInRows,
                                     {
                                         dxf::integer<Fields::columns>(70),
                                         dxf::integer<Fields::rows>(71),
                                         dxf::real<Fields::columnSpacing>(44),
                                         dxf::real<Fields::rowSpacing>(45),
                                     });

namespace
{
// Some programs write rows and columns into the section of an ordinary reference.
AcRxClass* classOfInsert(const RecordView& record)
{
    const bool isInRows =
        record.hasSection("AcDbMInsertBlock") || record.integer(70, 1) > 1 || record.integer(71, 1) > 1;
    return isInRows ? AcDbMInsertBlock::desc() : AcDbBlockReference::desc();
}

const RecordChoice inserts("INSERT", classOfInsert);
} // namespace
