#include "LinetypeFile.h"

#include "dbdatabase.h"
#include "Stub.h"

#include <afx.h>

#include <cmath>
#include <cwchar>
#include <cwctype>
#include <string>

namespace linetypefile
{
namespace
{
constexpr double pi = 3.14159265358979323846;

CString decoded(const std::string& bytes)
{
    const bool isUtf8 = bytes.compare(0, 3, "\xEF\xBB\xBF") == 0;
    const char* text = bytes.data() + (isUtf8 ? 3 : 0);
    const int length = static_cast<int>(bytes.data() + bytes.size() - text);
    const UINT codePage = isUtf8 ? CP_UTF8 : CP_ACP;
    const int units = MultiByteToWideChar(codePage, 0, text, length, nullptr, 0);
    CString all;
    MultiByteToWideChar(codePage, 0, text, length, all.GetBuffer(units), units);
    all.ReleaseBuffer(units);
    return all;
}

Acad::ErrorStatus readText(const ACHAR* path, CString& text)
{
    CFile file;
    CFileException error;
    if (!file.Open(path, CFile::modeRead | CFile::shareDenyWrite, &error)) {
        const bool isAbsent =
            error.m_cause == CFileException::fileNotFound || error.m_cause == CFileException::badPath;
        return isAbsent ? Acad::eFileNotFound : Acad::eFileAccessErr;
    }
    std::string bytes(static_cast<std::size_t>(file.GetLength()), '\0');
    bytes.resize(file.Read(bytes.data(), static_cast<UINT>(bytes.size())));
    text = decoded(bytes);
    return Acad::eOk;
}

/// Cuts the next part off a text: up to a comma outside of quotes and brackets.
CString takePart(CString& rest)
{
    bool isQuoted = false;
    int depth = 0;
    int end = 0;
    for (; end < rest.GetLength(); ++end) {
        const wchar_t c = rest[end];
        if (c == L'"') isQuoted = !isQuoted;
        if (isQuoted) continue;
        if (c == L',' && depth == 0) break;
        depth += (c == L'[') - (c == L']');
    }
    CString part = rest.Left(end);
    rest = rest.Mid(end + 1);
    return part.Trim();
}

bool toNumber(const CString& text, double& number)
{
    wchar_t* end = nullptr;
    number = std::wcstod(text, &end);
    return !text.IsEmpty() && *end == L'\0' && std::isfinite(number);
}

/// Degrees unless a letter says otherwise: R radians, G grads.
bool toAngle(CString text, double& radians)
{
    const wchar_t unit =
        text.IsEmpty() ? L'\0' : static_cast<wchar_t>(std::towupper(text[text.GetLength() - 1]));
    if (unit == L'R' || unit == L'G' || unit == L'D') text = text.Left(text.GetLength() - 1);
    if (!toNumber(text, radians)) return false;
    if (unit != L'R') radians *= pi / (unit == L'G' ? 200.0 : 180.0);
    return true;
}

/// One of "S=0.1", "R=90", "A=0", "U=0", "X=-0.1", "Y=-0.05" for the text behind a dash.
bool applyOption(AcDbLinetypeTableRecord& record, int dash, const CString& option, AcGeVector2d& offset)
{
    if (option.GetLength() < 3 || option[1] != L'=') return false;
    const CString value = option.Mid(2);
    double number = 0.0;
    const wchar_t key = static_cast<wchar_t>(std::towupper(option[0]));
    if (key == L'R' || key == L'A' || key == L'U') {
        record.setShapeIsUcsOrientedAt(dash, key == L'A');
        return toAngle(value, number) && record.setShapeRotationAt(dash, number) == Acad::eOk;
    }
    if (!toNumber(value, number)) return false;
    switch (key) {
    case L'S':
        return record.setShapeScaleAt(dash, number) == Acad::eOk;
    case L'X':
        offset.x = number;
        return true;
    case L'Y':
        offset.y = number;
        return true;
    default:
        return false;
    }
}

/// `element` is what stands in the brackets: "text",style and options.
Acad::ErrorStatus addText(AcDbLinetypeTableRecord& record, int dash, CString element,
                          const AcDbDatabase& database)
{
    CString text = takePart(element);
    if (text.GetLength() < 2 || text[0] != L'"') return Acad::eUndefineShapeName;
    const CString styleName = takePart(element);
    const auto* styles = AcDbSymbolTable::cast(residentObject(database.textStyleTableId()));
    AcDbObjectId style;
    if (!styles || styles->getAt(styleName, style) != Acad::eOk) return Acad::eUndefineShapeName;
    record.setTextAt(dash, text.Trim(L'"'));
    record.setShapeStyleAt(dash, style);
    AcGeVector2d offset;
    while (!element.IsEmpty()) {
        if (!applyOption(record, dash, takePart(element), offset)) return Acad::eBadLinetypeName;
    }
    record.setShapeOffsetAt(dash, offset);
    return Acad::eOk;
}

struct Element {
    double length = 0.0;
    CString text; ///< between brackets, behind the dash
};

/// Splits a pattern; false when it is none.
bool split(CString pattern, std::vector<Element>& elements)
{
    if (takePart(pattern).CompareNoCase(L"A") != 0) return false;
    while (!pattern.IsEmpty()) {
        const CString part = takePart(pattern);
        Element element;
        if (!part.IsEmpty() && part[0] == L'[') {
            if (elements.empty() || part[part.GetLength() - 1] != L']') return false;
            elements.back().text = part.Mid(1, part.GetLength() - 2);
        } else if (toNumber(part, element.length)) {
            elements.push_back(element);
        } else {
            return false;
        }
    }
    // A type begins with a dash or a dot, and the row of dashes goes on.
    return elements.size() >= 2 && elements.front().length >= 0.0;
}
} // namespace

Acad::ErrorStatus read(const ACHAR* path, std::vector<Definition>& definitions)
{
    CString text;
    const Acad::ErrorStatus status = readText(path, text);
    if (status != Acad::eOk) return status;
    for (int at = 0; at >= 0 && at < text.GetLength();) {
        CString line = text.Tokenize(L"\r\n", at).Trim();
        if (line.IsEmpty() || line[0] == L';') continue;
        if (line[0] == L'*') {
            Definition definition;
            line = line.Mid(1);
            definition.name = takePart(line);
            definition.description = line.Trim();
            definitions.push_back(definition);
        } else if (!definitions.empty() && definitions.back().pattern.IsEmpty()) {
            definitions.back().pattern = line;
        }
    }
    return Acad::eOk;
}

Acad::ErrorStatus make(const Definition& definition, const AcDbDatabase& database,
                       std::unique_ptr<AcDbLinetypeTableRecord>& record)
{
    record.reset();
    std::vector<Element> elements;
    auto made = std::make_unique<AcDbLinetypeTableRecord>();
    if (made->setName(definition.name) != Acad::eOk || !split(definition.pattern, elements) ||
        made->setNumDashes(static_cast<int>(elements.size())) != Acad::eOk)
        return Acad::eBadLinetypeName;
    made->setComments(definition.description);
    double length = 0.0;
    for (int dash = 0; dash < made->numDashes(); ++dash) {
        const Element& element = elements[static_cast<std::size_t>(dash)];
        made->setDashLengthAt(dash, element.length);
        length += std::abs(element.length);
        const Acad::ErrorStatus status =
            element.text.IsEmpty() ? Acad::eOk : addText(*made, dash, element.text, database);
        if (status != Acad::eOk) return status;
    }
    made->setPatternLength(length);
    record = std::move(made);
    return Acad::eOk;
}
} // namespace linetypefile

namespace
{
Acad::ErrorStatus addDefinition(AcDbLinetypeTable& table, const linetypefile::Definition& definition)
{
    if (table.has(definition.name)) return Acad::eDuplicateRecordName;
    std::unique_ptr<AcDbLinetypeTableRecord> record;
    Acad::ErrorStatus status = linetypefile::make(definition, *table.database(), record);
    if (status == Acad::eOk) status = table.add(record.get());
    if (status == Acad::eOk) record.release()->close();
    return status;
}

Acad::ErrorStatus addDefinitions(AcDbLinetypeTable& table, const CString& name,
                                 const std::vector<linetypefile::Definition>& definitions)
{
    const bool wantsAll = name == L"*";
    if (!wantsAll && table.has(name)) return Acad::eDuplicateRecordName;
    for (const linetypefile::Definition& definition : definitions) {
        if (wantsAll) {
            addDefinition(table, definition);
        } else if (name.CompareNoCase(definition.name) == 0) {
            return addDefinition(table, definition);
        }
    }
    return wantsAll ? Acad::eOk : Acad::eUndefinedLineType;
}
} // namespace

Acad::ErrorStatus AcDbDatabase::loadLineTypeFile(const ACHAR* linetypeName, const ACHAR* fileName)
{
    if (!linetypeName || !*linetypeName || !fileName || !*fileName) return Acad::eInvalidInput;
    std::vector<linetypefile::Definition> definitions;
    Acad::ErrorStatus status = linetypefile::read(fileName, definitions);
    if (status != Acad::eOk) return status;
    AcDbLinetypeTable* table = nullptr;
    status = getLinetypeTable(table, AcDb::kForWrite);
    if (status != Acad::eOk) return status;
    status = addDefinitions(*table, linetypeName, definitions);
    table->close();
    return status;
}
