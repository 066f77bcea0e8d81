#include "dbxrecrd.h"

#include "ClassRegistration.h"
#include "DxfFields.h"
#include "PackedGroups.h"
#include "ResbufSink.h"
#include "ResbufSource.h"

ACDB_DXF_CLASS(AcDbXrecord, AcDbObject, XRECORD)

struct XrecordAccess {
    static AcDbXrecord& of(AcDbObject& object) { return static_cast<AcDbXrecord&>(object); }

    /// The first 280 of the record says how it merges.
    static void takeGroup(AcDbXrecord& record, const DxfGroup& group)
    {
        if (group.is(280) && record.mGroups->empty() && !record.mHasReadMergeStyle) {
            record.mMergeStyle = static_cast<std::uint8_t>(group.integer);
            record.mHasReadMergeStyle = true;
        } else {
            record.mGroups->append(group);
        }
    }

    static const PackedGroups& groups(const AcDbObject& object)
    {
        return *static_cast<const AcDbXrecord&>(object).mGroups;
    }
};

namespace
{
void readGroup(AcDbObject& object, const DxfField&, DxfSource& source)
{
    XrecordAccess::takeGroup(XrecordAccess::of(object), *source.peek());
    source.take();
}

void writeMergeStyle(const AcDbObject& object, const DxfField& field, DxfSink& sink)
{
    sink.integer(field.code, static_cast<const AcDbXrecord&>(object).mergeStyle());
}

void writeAll(const AcDbObject& object, const DxfField&, DxfSink& sink)
{
    writeGroups(XrecordAccess::groups(object), sink);
}

bool isXrecordCode(int code) { return code >= 1 && code <= 481 && code != 5 && code != 100 && code != 105; }
} // namespace

const DxfClass AcDbXrecord::dxf("AcDbXrecord", nullptr,
                                {
                                    dxf::custom(280, nullptr, writeMergeStyle),
                                    dxf::custom(DxfField::any, readGroup, writeAll),
                                });

AcDbXrecord::AcDbXrecord() : mGroups(std::make_unique<PackedGroups>()) {}

AcDbXrecord::AcDbXrecord(const AcDbXrecord& other)
    : AcDbObject(other), mGroups(std::make_unique<PackedGroups>(*other.mGroups)), mMergeStyle(other.mMergeStyle),
      mXlateReferences(other.mXlateReferences)
{
}

AcDbXrecord& AcDbXrecord::operator=(const AcDbXrecord& other)
{
    AcDbObject::operator=(other);
    *mGroups = *other.mGroups;
    mMergeStyle = other.mMergeStyle;
    mXlateReferences = other.mXlateReferences;
    return *this;
}

AcDbXrecord::~AcDbXrecord() = default;

bool AcDbXrecord::isEmpty() const { return mGroups->empty(); }

Acad::ErrorStatus AcDbXrecord::rbChain(resbuf** chain, AcDbDatabase* auxDb) const
{
    if (!chain) return Acad::eInvalidInput;
    ResbufSink sink(auxDb ? auxDb : database());
    writeGroups(*mGroups, sink);
    *chain = sink.release();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf& chain, AcDbDatabase* auxDb)
{
    PackedGroups groups;
    ResbufSource source(&chain, auxDb ? auxDb : database());
    for (; const DxfGroup* group = source.peek(); source.take()) {
        if (!isXrecordCode(group->code)) return Acad::eInvalidDxfCode;
        groups.append(*group);
    }
    if (source.hasFault()) return Acad::eInvalidResBuf;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) *mGroups = std::move(groups);
    return status;
}

Acad::ErrorStatus AcDbXrecord::setMergeStyle(AcDb::DuplicateRecordCloning style)
{
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) mMergeStyle = static_cast<std::uint8_t>(style);
    return status;
}

void AcDbXrecord::setXlateReferences(bool translate)
{
    if (assertWriteEnabled() == Acad::eOk) mXlateReferences = translate;
}
