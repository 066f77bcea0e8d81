/// Text styles.

#include "CMakeEnt.h"

#include "dbapserv.h"
#include "dbsymutl.h"
#include "OpenReport.h"

namespace
{
using StyleRecord = AcDbTextStyleTableRecord;

constexpr const wchar_t* maker = L"MakeTxtStyle";

struct StyleData {
    CString font, bigFont; ///< files; empty for a typeface
    CString typeface;
    double height, widthFactor, oblique;
};

bool isFile(const CString& font)
{
    return font.ReverseFind(L'.') > 0;
}

/// Takes "file", "file,big font" or "typeface" apart.
void setFont(StyleData& data, const CString& font)
{
    const int comma = font.Find(L',');
    CString first = comma < 0 ? font : font.Left(comma);
    if (comma >= 0) data.bigFont = font.Mid(comma + 1).Trim();
    (isFile(first) || comma >= 0 ? data.font : data.typeface) = first.Trim();
}

bool apply(const StyleData& data, StyleRecord& style)
{
    return style.setTextSize(data.height) == Acad::eOk && style.setXScale(data.widthFactor) == Acad::eOk &&
           style.setObliquingAngle(data.oblique) == Acad::eOk && style.setFileName(data.font) == Acad::eOk &&
           style.setBigFontFileName(data.bigFont) == Acad::eOk;
}

/// A style that is in the drawing. An empty typeface takes away the one that the style had.
bool applyTypeface(const StyleData& data, StyleRecord& style)
{
    // Windows would put another face in the place of one that lacks a character set that is named.
    constexpr int charset = 1, pitchAndFamily = 0; // DEFAULT_CHARSET
    return style.setFont(data.typeface, false, false, charset, pitchAndFamily) == Acad::eOk;
}

bool change(StyleRecord& style, const StyleData& data)
{
    if (apply(data, style) && applyTypeface(data, style)) return style.close() == Acad::eOk;
    style.cancel();
    return false;
}

bool addNew(AcDbDatabase* database, const CString& name, const StyleData& data)
{
    const AcDbTextStyleTablePointer table(database, AcDb::kForWrite);
    if (!entity::isOpen(table, maker)) return false;
    auto style = std::make_unique<StyleRecord>();
    if (style->setName(name) != Acad::eOk || !apply(data, *style) || table->add(style.get()) != Acad::eOk)
        return false;
    StyleRecord* const added = style.release();
    const bool isWhole = applyTypeface(data, *added);
    if (!isWhole) added->erase();
    added->close();
    return isWhole;
}
} // namespace

int CArxEntity::CMakeEnt::MakeTxtStyle(CGTStringW name, CGTStringW font, double height, double widthFactor,
                                       double oblique)
{
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    StyleData data{{}, {}, {}, height, widthFactor, oblique};
    setFont(data, font);
    constexpr bool withVerticalBar = false; // the styles of external references are theirs
    const bool isName = acdbSymUtil()->validateSymbolName(name, withVerticalBar) == Acad::eOk;
    if (!database || !isName || (data.font.IsEmpty() && data.typeface.IsEmpty())) return 0;
    AcDbObjectId existing;
    if (acdbSymUtil()->getTextStyleId(existing, name, database) != Acad::eOk)
        return addNew(database, name, data);
    StyleRecord* style = nullptr;
    return entity::isOpen(acdbOpenObject(style, existing, AcDb::kForWrite), maker) && change(*style, data);
}
