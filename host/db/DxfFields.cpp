#include "DxfFields.h"

#include "DbObjectAccess.h"

#include <cstring>

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
        if (mFields[i].read && code >= 0 && code < static_cast<int>(sizeof mIndex) && !mIndex[code])
            mIndex[code] = static_cast<unsigned char>(i + 1);
    }
}

const DxfClass* DxfClass::sectionOf(std::string_view marker) const
{
    for (const DxfClass* at = this; at; at = at->mBase) {
        if (at->mMarker && marker == at->mMarker) return at;
    }
    return nullptr;
}

namespace
{
bool isWritten(const DxfField& field, const AcDbObject& object, const DxfSink& sink)
{
    if (!field.write || static_cast<int>(field.since) > sink.version()) return false;
    return !(field.skipDefault && field.isDefault && field.isDefault(object, field));
}

void writeKept(const AcDbObject& object, const DxfClass* section, DxfSink& sink)
{
    const DbObjectExtras* extras = DbObjectAccess::extras(object);
    if (!extras) return;
    for (const KeptGroups& kept : extras->keptGroups) {
        if (kept.section == section) writeGroups(kept.groups, sink);
    }
}

void keep(AcDbObject& object, const DxfClass* section, const DxfGroup& group)
{
    std::vector<KeptGroups>& kept = DbObjectAccess::needExtras(object).keptGroups;
    if (kept.empty() || kept.back().section != section) kept.push_back({section, {}});
    kept.back().groups.append(group);
}

/// The field that takes a group: of the section, or, in files without sections, of any class from the innermost out.
const DxfField* fieldFor(const DxfClass* section, bool sectionsKnown, int code)
{
    if (sectionsKnown) return section ? section->fieldOf(code) : nullptr;
    for (const DxfClass* at = section; at; at = at->base()) {
        if (const DxfField* field = at->fieldOf(code)) return field;
    }
    return nullptr;
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
    writeKept(object, this, sink);
}

void dxfRead(AcDbObject& object, DxfSource& source)
{
    const DxfClass* own = object.dxfClass();
    const DxfClass* section = own;
    bool sectionsKnown = false;
    while (const DxfGroup* group = source.peek()) {
        if (group->code == 100) {
            const DxfClass* named = own->sectionOf(group->text);
            sectionsKnown = true;
            section = named;
            if (!named) keep(object, nullptr, *group);
            source.take();
        } else if (const DxfField* field = fieldFor(section, sectionsKnown, group->code)) {
            field->read(object, *field, source);
        } else {
            keep(object, section, *group);
            source.take();
        }
    }
}

void dxfWrite(const AcDbObject& object, DxfSink& sink)
{
    if (const DxfClass* own = object.dxfClass()) own->write(object, sink);
    writeKept(object, nullptr, sink);
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
    return field;
}
} // namespace dxf
