#include "ObjectFiling.h"

#include "CopyFiler.h"
#include "DbObjectAccess.h"
#include "DxfFields.h"
#include "DxfFiler.h"
#include "EntityAccess.h"
#include "FilerGroups.h"

Acad::ErrorStatus AcDbObject::dwgOutFields(AcDbDwgFiler* filer) const
{
    if (!filer) return Acad::eInvalidInput;
    FilerSink sink(*filer);
    if (const DxfClass* own = dxfClass()) own->write(*this, sink);
    sink.end();
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbObject::dwgInFields(AcDbDwgFiler* filer)
{
    if (!filer) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status != Acad::eOk) return status;
    FilerSource source(*filer);
    dxfReadSections(*this, source);
    return filer->filerStatus();
}

Acad::ErrorStatus AcDbObject::dxfOutFields(AcDbDxfFiler* filer) const
{
    auto* const out = dynamic_cast<DxfOutFiler*>(filer);
    if (!out) return Acad::eNotApplicable;
    if (const DxfClass* own = dxfClass()) own->write(*this, out->sink());
    return out->filerStatus();
}

Acad::ErrorStatus AcDbObject::dxfInFields(AcDbDxfFiler* filer)
{
    auto* const in = dynamic_cast<DxfInFiler*>(filer);
    if (!in) return Acad::eNotApplicable;
    in->readBase();
    return in->filerStatus();
}

Acad::ErrorStatus AcDbObject::dwgOut(AcDbDwgFiler* filer) const { return dwgOutFields(filer); }
Acad::ErrorStatus AcDbObject::dwgIn(AcDbDwgFiler* filer) { return dwgInFields(filer); }

namespace filing
{
namespace
{
void passOn(const AcDbObject& from, AcDbObject& to, AcDb::FilerType type)
{
    CopyFiler filer(from.database() ? from.database() : to.database(), type);
    from.dwgOutFields(&filer);
    filer.seek(0, AcDb::kSeekFromStart);
    const DbObjectAccess::Filling filling(to);
    to.dwgInFields(&filer);
}
/// As a new object is: what is read next leaves out what it has then.
void reset(AcDbObject& object)
{
    const std::unique_ptr<AcDbObject> fresh(static_cast<AcDbObject*>(object.isA()->create()));
    if (!fresh) return;
    DbObjectAccess::assignState(object, *fresh);
    if (auto* entity = AcDbEntity::cast(&object))
        EntityAccess::takeProperties(*entity, static_cast<const AcDbEntity&>(*fresh));
}
} // namespace

bool isOfModule(const AcDbObject& object) { return !object.isA()->isBuiltIn(); }

std::unique_ptr<AcDbObject> copyOf(const AcDbObject& object, AcDb::FilerType type)
{
    if (!isOfModule(object)) return std::unique_ptr<AcDbObject>(DbObjectAccess::newCopy(object));
    std::unique_ptr<AcDbObject> copy(static_cast<AcDbObject*>(object.isA()->create()));
    if (copy) passOn(object, *copy, type);
    return copy;
}

void assign(AcDbObject& to, const AcDbObject& from, AcDb::FilerType type)
{
    if (isOfModule(to)) {
        reset(to);
        passOn(from, to, type);
    } else {
        DbObjectAccess::assignState(to, from);
    }
}
} // namespace filing
