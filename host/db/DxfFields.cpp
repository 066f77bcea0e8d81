#include "DxfFields.h"

#include "DxfKept.h"
#include "PackedGroups.h"


DxfField DxfField::unless(double value) const
{
    DxfField field = *this;
    field.defaultValue = value;
    field.skipDefault = true;
    return field;
}

DxfField DxfField::unlessDefault() const
{
    DxfField field = *this;
    field.skipDefault = true;
    return field;
}

DxfField DxfField::unlessIs(IsDefault function) const
{
    DxfField field = unlessDefault();
    field.isDefault = function;
    return field;
}

DxfField DxfField::readOnly() const
{
    DxfField field = *this;
    field.write = nullptr;
    return field;
}

DxfField DxfField::from(DxfVersion version) const
{
    DxfField field = *this;
    field.since = version;
    return field;
}

DxfClass::DxfClass(const char* marker, const DxfClass* base, std::initializer_list<DxfField> fields)
    : mMarker(marker), mBase(base), mFields(fields)
{
    for (std::size_t i = 0; i < mFields.size(); ++i) {
        const int code = mFields[i].code;
        if (code == DxfField::any) mAny = &mFields[i];
        if (mFields[i].read && code >= 0 && code < static_cast<int>(sizeof mIndex) && !mIndex[code])
            mIndex[code] = static_cast<unsigned char>(i + 1);
    }
}

const DxfClass* DxfClass::sectionOf(std::string_view marker) const
{
    const DxfClass* innermost = this;
    for (const DxfClass* at = this; at; at = at->mBase) {
        if (!at->mMarker) continue;
        if (marker == at->mMarker) return innermost;
        innermost = at->mBase;
    }
    return nullptr;
}

const DxfField* DxfClass::fieldInSection(int code) const
{
    for (const DxfClass* at = this; at; at = at->mBase) {
        if (const DxfField* field = at->fieldOf(code)) return field;
        if (at->mMarker) break;
    }
    return nullptr;
}

namespace
{
bool isWritten(const DxfField& field, const AcDbObject& object, const DxfSink& sink)
{
    if (!field.write || static_cast<int>(field.since) > sink.version()) return false;
    const bool maySkip = field.skipDefault && field.isDefault && !sink.wantsDefault(field.code);
    return !maySkip || !field.isDefault(object, field);
}

} // namespace

void writeGroups(const PackedGroups& groups, DxfSink& sink)
{
    DxfGroup group;
    for (std::size_t at = 0; groups.read(at, group);) {
        switch (group.kind) {
        case DxfKind::real: sink.real(group.code, group.real); break;
        case DxfKind::integer: sink.integer(group.code, group.integer); break;
        case DxfKind::handle: sink.rawHandle(group.code, static_cast<std::uint64_t>(group.integer)); break;
        case DxfKind::text: sink.text(group.code, group.text); break;
        case DxfKind::binary: sink.binary(group.code, group.text); break;
        }
    }
}

void DxfClass::write(const AcDbObject& object, DxfSink& sink) const
{
    if (mBase) mBase->write(object, sink);
    if (mMarker && sink.version() > static_cast<int>(DxfVersion::r12)) sink.text(100, mMarker);
    for (const DxfField& field : mFields) {
        if (isWritten(field, object, sink)) field.write(object, field, sink);
    }
    writeKeptGroups(object, this, sink);
}

namespace dxf
{
bool takeCoordinate(DxfSource& source, int code, double& value)
{
    const DxfGroup* group = source.peek();
    if (!group || group->code != code) return false;
    value = group->real;
    source.take();
    return true;
}

DxfField custom(int code, DxfField::Read read, DxfField::Write write)
{
    DxfField field;
    field.code = code;
    field.read = read;
    field.write = write;
    field.repeats = true;
    return field;
}
} // namespace dxf
