/// Variables that name records: the current layer, line type, styles and colour.

#include "Documents.h"
#include "VariableStore.h"

namespace
{
using ed::bindVariable;
using ed::VariableValue;

AcDbDatabase* database()
{
    return acdbHostApplicationServices()->workingDatabase();
}

std::wstring nameOf(AcDbObjectId id)
{
    AcDbSymbolTableRecord* record = nullptr;
    if (acdbOpenObject(record, id, AcDb::kForRead) != Acad::eOk) return {};
    const ACHAR* name = nullptr;
    const std::wstring text = record->getName(name) == Acad::eOk && name ? name : L"";
    record->close();
    return text;
}

template <class Table>
AcDbObjectId idOf(AcDbDatabase& of, const std::wstring& name)
{
    Table* table = nullptr;
    AcDbObjectId id;
    if (of.getSymbolTable(table, AcDb::kForRead) != Acad::eOk) return id;
    table->getAt(name.c_str(), id);
    table->close();
    return id;
}

using IdGetter = AcDbObjectId (AcDbDatabase::*)() const;
using IdSetter = Acad::ErrorStatus (AcDbDatabase::*)(AcDbObjectId);

template <class Table>
void bindRecord(const wchar_t* name, IdGetter get, IdSetter set)
{
    bindVariable(name, RTSTR,
                 {[=] { return VariableValue::ofText(database() ? nameOf((database()->*get)()) : L""); },
                  [=](const VariableValue& value) {
                      AcDbDatabase* of = database();
                      const AcDbObjectId id = of ? idOf<Table>(*of, value.text) : AcDbObjectId();
                      return !id.isNull() && (of->*set)(id) == Acad::eOk;
                  }});
}

std::wstring textOf(const AcCmColor& color)
{
    if (color.isByLayer()) return L"BYLAYER";
    if (color.isByBlock()) return L"BYBLOCK";
    if (!color.isByColor()) return std::to_wstring(color.colorIndex());
    CString text;
    text.Format(L"RGB:%d,%d,%d", color.red(), color.green(), color.blue());
    return text.GetString();
}

bool parseRgb(const std::wstring& text, AcCmColor& color)
{
    int parts[3];
    const wchar_t* at = text.c_str() + (_wcsnicmp(text.c_str(), L"RGB:", 4) == 0 ? 4 : 0);
    for (int i = 0; i < 3; ++i) {
        wchar_t* end = nullptr;
        parts[i] = static_cast<int>(std::wcstol(at, &end, 10));
        if (end == at || parts[i] < 0 || parts[i] > 255 || *end != (i < 2 ? L',' : L'\0')) return false;
        at = end + 1;
    }
    color.setRGB(static_cast<Adesk::UInt8>(parts[0]), static_cast<Adesk::UInt8>(parts[1]),
                 static_cast<Adesk::UInt8>(parts[2]));
    return true;
}

bool parseColor(const std::wstring& text, AcCmColor& color)
{
    static constexpr const wchar_t* names[] = {L"BYBLOCK", L"RED",  L"YELLOW",  L"GREEN",
                                               L"CYAN",    L"BLUE", L"MAGENTA", L"WHITE"};
    if (_wcsicmp(text.c_str(), L"BYLAYER") == 0) return color.setColorIndex(256) == Acad::eOk;
    for (Adesk::UInt16 index = 0; index < 8; ++index) {
        if (_wcsicmp(text.c_str(), names[index]) == 0) return color.setColorIndex(index) == Acad::eOk;
    }
    if (text.find(L',') != std::wstring::npos) return parseRgb(text, color);
    wchar_t* end = nullptr;
    const long index = std::wcstol(text.c_str(), &end, 10);
    if (text.empty() || *end || index < 0 || index > 256) return false;
    return color.setColorIndex(static_cast<Adesk::UInt16>(index)) == Acad::eOk;
}

bool setColor(const VariableValue& value)
{
    AcCmColor color;
    return database() && parseColor(value.text, color) && database()->setCecolor(color) == Acad::eOk;
}

void bindScaleAndWeight()
{
    bindVariable(L"CELTSCALE", RTREAL,
                 {[] { return VariableValue::ofReal(database() ? database()->celtscale() : 1.0); },
                  [](const VariableValue& value) {
                      return database() && database()->setCeltscale(value.real) == Acad::eOk;
                  }});
    bindVariable(L"CELWEIGHT", RTSHORT,
                 {[] { return VariableValue::ofInteger(database() ? database()->celweight() : -1); },
                  [](const VariableValue& value) {
                      return database() && database()->setCelweight(
                                               static_cast<AcDb::LineWeight>(value.integer)) == Acad::eOk;
                  }});
}

[[maybe_unused]] const bool allBound = [] {
    bindRecord<AcDbLayerTable>(L"CLAYER", &AcDbDatabase::clayer, &AcDbDatabase::setClayer);
    bindRecord<AcDbLinetypeTable>(L"CELTYPE", &AcDbDatabase::celtype, &AcDbDatabase::setCeltype);
    bindRecord<AcDbTextStyleTable>(L"TEXTSTYLE", &AcDbDatabase::textstyle, &AcDbDatabase::setTextstyle);
    bindVariable(
        L"CECOLOR", RTSTR,
        {[] { return VariableValue::ofText(database() ? textOf(database()->cecolor()) : L"BYLAYER"); },
         setColor});
    bindScaleAndWeight();
    return true;
}();
} // namespace
