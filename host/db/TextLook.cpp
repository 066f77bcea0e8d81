#include "TextLook.h"

#include "Stub.h"
#include "dbsymtb.h"

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

AcGiTextStyle textStyleOf(AcDbObjectId) { return AcGiTextStyle(); }
