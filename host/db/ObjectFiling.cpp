#include "ObjectFiling.h"

#include "CopyFiler.h"
#include "DbObjectAccess.h"
#include "DxfFields.h"
#include "DxfFiler.h"
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
void passOn(const AcDbObject& from, AcDbObject& to)
{
    CopyFiler filer(from.database());
    from.dwgOutFields(&filer);
    filer.seek(0, AcDb::kSeekFromStart);
    to.dwgInFields(&filer);
}
} // namespace

std::unique_ptr<AcDbObject> copyOf(const AcDbObject& object)
{
    if (object.isA()->isBuiltIn()) return std::unique_ptr<AcDbObject>(DbObjectAccess::newCopy(object));
    std::unique_ptr<AcDbObject> copy(static_cast<AcDbObject*>(object.isA()->create()));
    if (copy) passOn(object, *copy);
    return copy;
}

void assign(AcDbObject& to, const AcDbObject& from)
{
    if (to.isA()->isBuiltIn()) {
        DbObjectAccess::assignState(to, from);
    } else {
        passOn(from, to);
    }
}
} // namespace filing
