#include "CFamStuGlobe.h"

#include "acdbads.h"
#include "dbmtext.h"
#include "dbobjptr.h"
#include "dbtext.h"

namespace
{
AcDbObjectId idOf(const ads_name entity)
{
    AcDbObjectId id;
    return acdbGetObjectId(id, entity) == Acad::eOk ? id : AcDbObjectId::kNull;
}
} // namespace

CString CFamStuGlobe::GetObjectHandle(ads_name entity)
{
    wchar_t text[17] = L""; // 16 digits
    const AcDbObjectId id = idOf(entity);
    if (!id.isNull()) id.handle().getIntoAsciiBuffer(text);
    return text;
}

CString CFamStuGlobe::GetTextVal(ads_name entity)
{
    const AcDbObjectPointer<AcDbEntity> object(idOf(entity), AcDb::kForRead);
    CString text;
    if (const auto* line = AcDbText::cast(object)) text = line->textStringConst();
    if (const auto* paragraph = AcDbMText::cast(object)) paragraph->contents(text);
    return text;
}

Acad::ErrorStatus CFamStuGlobe::SetTextVal(ads_name entity, const wchar_t* text)
{
    if (!text) return Acad::eInvalidInput;
    const AcDbObjectPointer<AcDbEntity> object(idOf(entity), AcDb::kForWrite);
    if (object.openStatus() != Acad::eOk) return object.openStatus();
    if (auto* line = AcDbText::cast(object)) return line->setTextString(text);
    auto* paragraph = AcDbMText::cast(object);
    if (!paragraph) return Acad::eNotThatKindOfClass;
    paragraph->setContents(text);
    return Acad::eOk;
}
