#include "TextLook.h"

#include "FontSubstitutes.h"
#include "Stub.h"
#include "acutads.h"
#include "dbtxtsty.h"

TextLook textLookOf(const AcGiTextStyle& style)
{
    TextLook look;
    const CString& name = style.typeface.IsEmpty() ? style.fileName : style.typeface;
    look.font.name = static_cast<const wchar_t*>(name);
    look.font.bigFont = static_cast<const wchar_t*>(style.bigFontFileName);
    look.font.bold = style.isBold;
    look.font.italic = style.isItalic;
    look.look.height = style.textSize;
    look.look.widthFactor = style.xScale;
    look.look.obliqueAngle = style.obliquingAngle;
    look.look.tracking = style.trackingPercent;
    look.look.isBackward = style.isBackward;
    look.look.isUpsideDown = style.isUpsideDown;
    look.look.isVertical = style.isVertical;
    return look;
}

namespace
{
/// Styles name files with the folders of the machine they were made on.
CString withoutFolder(const CString& file) { return file.Mid(file.ReverseFind(L'\\') + 1); }

/// Only shape fonts can be written downwards.
bool hasColumns(const AcGiTextStyle& style)
{
    return style.typeface.IsEmpty() && lettering::isShapeFile(static_cast<const wchar_t*>(style.fileName));
}

void takeTypeface(AcGiTextStyle& style, const AcDbTextStyleTableRecord& record)
{
    ACHAR* typeface = nullptr;
    int charset = 0, pitchAndFamily = 0;
    if (record.font(typeface, style.isBold, style.isItalic, charset, pitchAndFamily) != Acad::eOk) return;
    style.typeface = typeface;
    acutDelString(typeface);
}
} // namespace

AcGiTextStyle textStyleOf(AcDbObjectId id)
{
    AcGiTextStyle style;
    const auto* record = AcDbTextStyleTableRecord::cast(residentObject(id));
    if (!record) return style;
    style.fileName = withoutFolder(record->fileName());
    style.bigFontFileName = withoutFolder(record->bigFontFileName());
    takeTypeface(style, *record);
    if (record->textSize() > 0.0) style.textSize = record->textSize();
    style.xScale = record->xScale();
    style.obliquingAngle = record->obliquingAngle();
    style.isBackward = (record->flagBits() & 2) != 0;
    style.isUpsideDown = (record->flagBits() & 4) != 0;
    style.isVertical = record->isVertical() && hasColumns(style);
    return style;
}
