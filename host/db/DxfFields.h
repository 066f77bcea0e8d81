#pragma once

/// The description of a class as DXF groups: one table per class, beside the class, that reading, writing, the
/// entity lists and the audit all walk.
///
///     const DxfClass AcDbCircle::dxf("AcDbCircle", &AcDbEntity::dxf, {
///         real<&AcDbCircle::mThickness>(39).unless(0.0),
///         point<&AcDbCircle::mCenter>(10),
///         real<&AcDbCircle::mRadius>(40),
///         direction<&AcDbCircle::mNormal>(210).unlessZAxis(),
///     });

#include "DxfGroup.h"
#include "dbobject.h"


#include <initializer_list>
#include <vector>

/// Drawing file versions by their number in $ACADVER.
enum class DxfVersion : int { r12 = 1009, r13 = 1012, r14 = 1014, r2000 = 1015, r2004 = 1018, r2007 = 1021,
                              r2010 = 1024, r2013 = 1027, r2018 = 1032 };

struct DxfField {
    using Read = void (*)(AcDbObject&, const DxfField&, DxfSource&);
    using Write = void (*)(const AcDbObject&, const DxfField&, DxfSink&);
    using IsDefault = bool (*)(const AcDbObject&, const DxfField&);

    static constexpr int any = -1; ///< the code of a field that takes every group no other field takes

    int code = 0;             ///< the first code of the field
    Read read = nullptr;      ///< takes the groups of the field, at least one; null: written only
    Write write = nullptr;    ///< null: read only
    IsDefault isDefault = nullptr;
    double defaultValue = 0.0;
    bool repeats = false;     ///< may stand several times in one section; otherwise a second one is kept as it is
    bool skipDefault = false; ///< left out of files and lists while it has its default
    DxfVersion since = DxfVersion::r12;

    /// Left out while it has this value.
    DxfField unless(double value) const;
    /// Left out while empty (texts), null (references) or the Z axis (directions).
    DxfField unlessDefault() const;
    DxfField unlessZAxis() const { return unlessDefault(); }
    /// Left out while a function says so.
    DxfField unlessIs(IsDefault isDefault) const;
    /// Read, and written in another way.
    DxfField readOnly() const;
    /// Not in files before this version.
    DxfField from(DxfVersion version) const;
};

class DxfClass
{
public:
    /// `marker` is the text of the class's group 100; null for a class without a section of its own, whose fields
    /// stand in that of its base.
    DxfClass(const char* marker, const DxfClass* base, std::initializer_list<DxfField> fields);

    const char* marker() const { return mMarker; }
    const DxfClass* base() const { return mBase; }
    const std::vector<DxfField>& fields() const { return mFields; }

    /// The field that begins with a code, in this class alone; null when there is none.
    const DxfField* fieldOf(int code) const
    {
        const int at = code >= 0 && code < static_cast<int>(sizeof mIndex) ? mIndex[code] : 0;
        return at ? &mFields[at - 1] : mAny;
    }
    /// The innermost class whose fields stand in the section that a marker names: the class with the marker, or one that
    /// derives from it without a section of its own. Null when no class has the marker.
    const DxfClass* sectionOf(std::string_view marker) const;
    /// The field that begins with a code, in this class's section.
    const DxfField* fieldInSection(int code) const;

    /// Writes the sections from the outermost class to this one.
    void write(const AcDbObject& object, DxfSink& sink) const;

private:
    const char* mMarker;
    const DxfClass* mBase;
    std::vector<DxfField> mFields;
    const DxfField* mAny = nullptr;
    unsigned char mIndex[512] = {};
};

/// What stands in a record before the sections of its classes.
struct DxfFrame {
    std::uint64_t handle = 0; ///< 0: the record has none
    AcDbStub* owner = nullptr;
};

/// Reads all groups of an object behind its group 0: handle, owner, reactors and extension dictionary, the fields of its
/// classes, extended data. Groups that no field of the section takes are kept with the object; a section of an unknown
/// name is kept whole.
DxfFrame dxfRead(AcDbObject& object, DxfSource& source);
/// Reads the sections of the host's classes alone, all that the source has.
void dxfReadSections(AcDbObject& object, DxfSource& source);
/// Writes all groups of an object's classes, and what was kept, without the frame.
void dxfWrite(const AcDbObject& object, DxfSink& sink);
/// Writes what stands before the classes: group 0, handle, extension dictionary, reactors, owner.
void dxfWriteFrame(const AcDbObject& object, DxfSink& sink);
/// Writes the whole record: group 0, the frame, the classes, extended data.
void dxfWriteRecord(const AcDbObject& object, DxfSink& sink);
/// The same with another object named as the owner.
void dxfWriteRecord(const AcDbObject& object, AcDbObjectId namedOwner, DxfSink& sink);
/// The same without its group 0.
void dxfWriteBody(const AcDbObject& object, DxfSink& sink);

namespace dxf
{
template <auto Member>
struct MemberTraits;

template <class C, class V, V C::*Member>
struct MemberTraits<Member> {
    using Class = C;
    using Value = V;
    static V& of(AcDbObject& object) { return static_cast<C&>(object).*Member; }
    static const V& of(const AcDbObject& object) { return static_cast<const C&>(object).*Member; }
};

constexpr double radiansPerDegree = 3.14159265358979323846 / 180.0;

/// The second and third coordinate, where they follow; `z` keeps its value otherwise.
bool takeCoordinate(DxfSource& source, int code, double& value);

template <auto Member>
DxfField real(int code)
{
    using M = MemberTraits<Member>;
    DxfField field;
    field.code = code;
    field.read = [](AcDbObject& o, const DxfField&, DxfSource& s) {
        M::of(o) = s.peek()->real;
        s.take();
    };
    field.write = [](const AcDbObject& o, const DxfField& f, DxfSink& s) { s.real(f.code, M::of(o)); };
    field.isDefault = [](const AcDbObject& o, const DxfField& f) { return M::of(o) == f.defaultValue; };
    return field;
}

/// An angle: degrees in the file, radians in memory.
template <auto Member>
DxfField angle(int code)
{
    using M = MemberTraits<Member>;
    DxfField field = real<Member>(code);
    field.read = [](AcDbObject& o, const DxfField&, DxfSource& s) {
        M::of(o) = s.angleOf(*s.peek());
        s.take();
    };
    field.write = [](const AcDbObject& o, const DxfField& f, DxfSink& s) { s.angle(f.code, M::of(o)); };
    return field;
}

/// A whole number, a flag or an enumeration.
template <auto Member>
DxfField integer(int code)
{
    using M = MemberTraits<Member>;
    DxfField field;
    field.code = code;
    field.read = [](AcDbObject& o, const DxfField&, DxfSource& s) {
        M::of(o) = static_cast<typename M::Value>(s.peek()->integer);
        s.take();
    };
    field.write = [](const AcDbObject& o, const DxfField& f, DxfSink& s) {
        s.integer(f.code, static_cast<std::int64_t>(M::of(o)));
    };
    field.isDefault = [](const AcDbObject& o, const DxfField& f) {
        return static_cast<double>(M::of(o)) == f.defaultValue;
    };
    return field;
}

template <auto Member>
DxfField text(int code)
{
    using M = MemberTraits<Member>;
    DxfField field;
    field.code = code;
    field.read = [](AcDbObject& o, const DxfField&, DxfSource& s) {
        M::of(o) = s.peek()->wide();
        s.take();
    };
    field.write = [](const AcDbObject& o, const DxfField& f, DxfSink& s) { s.wide(f.code, M::of(o)); };
    field.isDefault = [](const AcDbObject& o, const DxfField&) { return M::of(o).IsEmpty(); };
    return field;
}

/// A point in space: groups code, code + 10 and code + 20.
template <auto Member>
DxfField point(int code)
{
    using M = MemberTraits<Member>;
    DxfField field;
    field.code = code;
    field.read = [](AcDbObject& o, const DxfField& f, DxfSource& s) {
        auto& value = M::of(o);
        takeCoordinate(s, f.code, value.x);
        takeCoordinate(s, f.code + 10, value.y);
        takeCoordinate(s, f.code + 20, value.z);
    };
    field.write = [](const AcDbObject& o, const DxfField& f, DxfSink& s) {
        const auto& value = M::of(o);
        s.point(f.code, value.x, value.y, value.z);
    };
    return field;
}

/// A point in a plane: groups code and code + 10.
template <auto Member>
DxfField point2d(int code)
{
    using M = MemberTraits<Member>;
    DxfField field;
    field.code = code;
    field.read = [](AcDbObject& o, const DxfField& f, DxfSource& s) {
        auto& value = M::of(o);
        takeCoordinate(s, f.code, value.x);
        takeCoordinate(s, f.code + 10, value.y);
    };
    field.write = [](const AcDbObject& o, const DxfField& f, DxfSink& s) {
        s.point(f.code, M::of(o).x, M::of(o).y);
    };
    return field;
}

/// A direction, such as an extrusion (210): its default is the Z axis.
template <auto Member>
DxfField direction(int code)
{
    using M = MemberTraits<Member>;
    DxfField field = point<Member>(code);
    field.isDefault = [](const AcDbObject& o, const DxfField&) {
        const auto& value = M::of(o);
        return value.x == 0.0 && value.y == 0.0 && value.z == 1.0;
    };
    return field;
}

/// A reference by handle.
template <auto Member>
DxfField reference(int code)
{
    using M = MemberTraits<Member>;
    DxfField field;
    field.code = code;
    field.read = [](AcDbObject& o, const DxfField&, DxfSource& s) {
        M::of(o) = AcDbObjectId(s.stubOf(static_cast<std::uint64_t>(s.peek()->integer)));
        s.take();
    };
    field.write = [](const AcDbObject& o, const DxfField& f, DxfSink& s) { s.handle(f.code, M::of(o)); };
    field.isDefault = [](const AcDbObject& o, const DxfField&) { return M::of(o).isNull(); };
    return field;
}

/// A record of a symbol table, by its name.
template <auto Member>
DxfField record(int code)
{
    using M = MemberTraits<Member>;
    DxfField field = reference<Member>(code);
    field.read = [](AcDbObject& o, const DxfField& f, DxfSource& s) {
        M::of(o) = AcDbObjectId(s.recordOf(f.code, s.peek()->text));
        s.take();
    };
    field.write = [](const AcDbObject& o, const DxfField& f, DxfSink& s) { s.record(f.code, M::of(o)); };
    return field;
}

/// A field of a class's own making; it may stand several times.
DxfField custom(int code, DxfField::Read read, DxfField::Write write);
} // namespace dxf
