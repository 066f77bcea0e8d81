#pragma once

/// Fields that files may leave out at their default or write all the same: what was given is written back.

#include "DxfFields.h"

namespace dxf
{
/// `Mask` is a member whose bit `Bit` remembers that the file gave the value.
template <auto Member, auto Mask, unsigned Bit>
DxfField givenReal(int code)
{
    using M = MemberTraits<Member>;
    DxfField field = real<Member>(code);
    field.read = [](AcDbObject& o, const DxfField&, DxfSource& s) {
        M::of(o) = s.peek()->real;
        MemberTraits<Mask>::of(o) |= Bit;
        s.take();
    };
    field.isDefault = [](const AcDbObject& o, const DxfField& f) {
        return M::of(o) == f.defaultValue && !(MemberTraits<Mask>::of(o) & Bit);
    };
    return field.unless(0.0);
}

template <auto Member, auto Mask, unsigned Bit>
DxfField givenInteger(int code)
{
    using M = MemberTraits<Member>;
    DxfField field = integer<Member>(code);
    field.read = [](AcDbObject& o, const DxfField&, DxfSource& s) {
        M::of(o) = static_cast<typename M::Value>(s.peek()->integer);
        MemberTraits<Mask>::of(o) |= Bit;
        s.take();
    };
    field.isDefault = [](const AcDbObject& o, const DxfField& f) {
        return static_cast<double>(M::of(o)) == f.defaultValue && !(MemberTraits<Mask>::of(o) & Bit);
    };
    return field.unless(0.0);
}
} // namespace dxf
