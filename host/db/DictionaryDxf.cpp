/// Dictionaries in drawing files.

#include "ClassRegistration.h"
#include "DictionaryAccess.h"
#include "DxfFields.h"
#include "Stub.h"
#include "dbdict.h"
#include "dbdictdflt.h"
#include "dbplhldr.h"

ACDB_DXF_CLASS(AcDbDictionary, AcDbObject, DICTIONARY)
ACDB_DXF_CLASS(AcDbDictionaryWithDefault, AcDbDictionary, ACDBDICTIONARYWDFLT)
ACDB_DXF_CLASS(AcDbPlaceHolder, AcDbObject, ACDBPLACEHOLDER)

namespace
{
constexpr int softOwner = 350;
constexpr int hardOwner = 360;

void readEntry(AcDbObject& object, const DxfField&, DxfSource& source)
{
    const CString name = source.peek()->wide();
    source.take();
    const DxfGroup* value = source.peek();
    if (!value || value->kind != DxfKind::handle || value->code < 320 || value->code > 369) return;
    AcDbStub* stub = source.stubOf(static_cast<std::uint64_t>(value->integer));
    if (stub) {
        DictionaryAccess::list(static_cast<AcDbDictionary&>(object), name, stub, value->code);
    } else {
        source.report(*value, "entry of a dictionary without an object");
    }
    source.take();
}

void writeEntries(const AcDbObject& object, const DxfField&, DxfSink& sink)
{
    const auto& dictionary = static_cast<const AcDbDictionary&>(object);
    const int owned = dictionary.isTreatElementsAsHard() ? hardOwner : softOwner;
    DictionaryAccess::forEach(dictionary, [&](const CString& name, AcDbObjectId id, int code) {
        if (id.isErased() || !sink.holds(id)) return;
        sink.wide(3, name);
        sink.handle(code ? code : owned, id);
    });
}
} // namespace

const DxfClass AcDbDictionary::dxf("AcDbDictionary", nullptr,
                                   {
                                       dxf::integer<&AcDbDictionary::mIsHardOwner>(280),
                                       dxf::integer<&AcDbDictionary::mMergeStyle>(281),
                                       dxf::custom(3, readEntry, writeEntries),
                                   });

const DxfClass AcDbDictionaryWithDefault::dxf("AcDbDictionaryWithDefault", &AcDbDictionary::dxf,
                                              {
                                                  dxf::reference<&AcDbDictionaryWithDefault::mDefault>(340),
                                              });

Acad::ErrorStatus AcDbDictionaryWithDefault::getAt(const ACHAR* name, AcDbObjectId& id) const
{
    if (AcDbDictionary::getAt(name, id) == Acad::eOk) return Acad::eOk;
    id = mDefault;
    return id.isNull() ? Acad::eKeyNotFound : Acad::eOk;
}

Acad::ErrorStatus AcDbDictionaryWithDefault::setDefaultId(AcDbObjectId id)
{
    if (id.isNull()) return Acad::eNullObjectId;
    if (database() && id.database() != database()) return Acad::eWrongDatabase;
    const Acad::ErrorStatus status = assertWriteEnabled();
    if (status == Acad::eOk) mDefault = id;
    return status;
}
