/// The pieces of multiline texts: drawn, told one by one, and as texts of their own.

#include "MTextFrame.h"
#include "MTextLayout.h"
#include "MTextMembers.h"
#include "TextLook.h"
#include "acgi.h"
#include "dbline.h"
#include "dbtext.h"

namespace
{
AcGiTextStyle styleOf(const lettering::MTextFormat& format)
{
    AcGiTextStyle style;
    style.fileName = format.font.name.c_str();
    style.bigFontFileName = format.font.bigFont.c_str();
    style.isBold = format.font.bold;
    style.isItalic = format.font.italic;
    style.textSize = format.height;
    style.xScale = format.widthFactor;
    style.obliquingAngle = format.obliqueAngle;
    style.trackingPercent = format.tracking;
    style.isUnderlined = format.lines.under;
    style.isOverlined = format.lines.over;
    style.isStrikethrough = format.lines.through;
    return style;
}

AcCmEntityColor colorOf(const lettering::TextColor& color, const AcCmEntityColor& own)
{
    if (color.isRgb) return AcCmEntityColor(color.rgb.red, color.rgb.green, color.rgb.blue);
    AcCmEntityColor made = own;
    if (color.index != mtext::ownColor) made.setColorIndex(color.index);
    return made;
}

void setTraitColor(AcGiSubEntityTraits& traits, const AcCmEntityColor& color)
{
    if (color.isByColor()) {
        traits.setTrueColor(color);
    } else {
        traits.setColor(static_cast<std::uint16_t>(color.colorIndex()));
    }
}

/// Puts a text where a fragment stands. One of a vertical style starts in the middle of its letter's top and runs
/// down.
void placeText(AcDbText& text, const lettering::MTextFragment& piece, const AcGeMatrix3d& world, bool isColumn)
{
    constexpr double downwards = 1.5 * 3.14159265358979323846;
    AcGePoint2d start = piece.position;
    if (isColumn) {
        start += AcGeVector2d(piece.advance / 2.0, piece.format.height);
        text.setRotation(text.rotation() + downwards);
    }
    text.setPosition(world * AcGePoint3d(start.x, start.y, 0.0));
}

/// Keeps the texts of a fragment alive while it is told.
struct ToldFragment : AcDbMTextFragment {
    CString ownText, ownFont, ownBigFont;

    explicit ToldFragment(const lettering::MTextFragment& piece)
        : ownText(piece.text.c_str()), ownFont(piece.format.font.name.c_str()),
          ownBigFont(piece.format.font.bigFont.c_str())
    {
        text = ownText.GetBuffer();
        fontname = ownFont.GetBuffer();
        bigfontname = ownBigFont.GetBuffer();
        takeFormat(piece.format);
        extents.set(piece.advance, piece.format.height);
    }

    void takeFormat(const lettering::MTextFormat& format)
    {
        capsHeight = format.height;
        widthFactor = format.widthFactor;
        obliqueAngle = format.obliqueAngle;
        trackingFactor = format.tracking;
        bold = format.font.bold;
        italic = format.font.italic;
        underlined = format.lines.under;
        overlined = format.lines.over;
        strikethrough = format.lines.through;
    }

    void place(const lettering::MTextFragment& piece, const AcGeMatrix3d& world)
    {
        location = world * AcGePoint3d(piece.position.x, piece.position.y, 0.0);
        const AcGeVector3d up = world * AcGeVector3d(0.0, capsHeight, 0.0);
        const AcGeVector3d along = world * AcGeVector3d(piece.advance, 0.0, 0.0);
        const auto line = [&](AcGePoint3d(&points)[2], double height) {
            points[0] = location + height * up;
            points[1] = points[0] + along;
        };
        line(underPoints, -0.2);
        line(overPoints, 1.2);
        line(strikePoints, 0.5);
    }
};
} // namespace

void AcDbMText::explodeFragments(AcDbMTextEnum callback, void* data, AcGiWorldDraw*) const
{
    if (!callback) return;
    const AcGeMatrix3d world = textToWorld();
    for (const lettering::MTextFragment& piece : layout().fragments) {
        ToldFragment fragment(piece);
        fragment.place(piece, world);
        fragment.normal = mNormal;
        fragment.direction = direction();
        fragment.color = colorOf(piece.format.color, entityColor());
        fragment.colorIndex = static_cast<std::uint16_t>(fragment.color.colorIndex());
        if (callback(&fragment, data) == 0) return;
    }
}

Acad::ErrorStatus AcDbMText::subExplode(AcDbVoidPtrArray& entitySet) const
{
    const AcGeMatrix3d world = textToWorld();
    const bool isColumn = textStyleOf(textStyle()).isVertical;
    for (const lettering::MTextFragment& piece : layout().fragments) {
        CString content(piece.text.c_str());
        // A percent sign must not begin a code of single-line texts.
        content.Replace(L"%%", L"%%%%%%");
        auto text = std::make_unique<AcDbText>(AcGePoint3d(), content, textStyle(), piece.format.height, rotation());
        text->setNormal(mNormal);
        placeText(*text, piece, world, isColumn);
        text->setWidthFactor(piece.format.widthFactor);
        text->setOblique(piece.format.obliqueAngle);
        text->setPropertiesFrom(this);
        text->setColor(AcCmColor(colorOf(piece.format.color, entityColor())));
        entitySet.append(text.release());
    }
    for (const lettering::MTextRule& rule : layout().rules) {
        const AcGePoint2d &from = rule.bar.start, &to = rule.bar.end;
        auto line = std::make_unique<AcDbLine>(world * AcGePoint3d(from.x, from.y, 0.0),
                                               world * AcGePoint3d(to.x, to.y, 0.0));
        line->setPropertiesFrom(this);
        line->setColor(AcCmColor(colorOf(rule.format.color, entityColor())));
        entitySet.append(line.release());
    }
    return Acad::eOk;
}

void AcDbMText::drawBackground(AcGiWorldDraw& draw, const lettering::MTextLayout& layout) const
{
    const double margin = (mExtras->fillScale.value_or(1.5) - 1.0) * mTextHeight;
    AcGePoint3d corners[4];
    mtext::mapBox({layout.min.x - margin, layout.min.y - margin}, {layout.max.x + margin, layout.max.y + margin},
           textToWorld(), corners);
    AcGiSubEntityTraits& traits = draw.subEntityTraits();
    AcCmColor color;
    if (getBackgroundFillColor(color) == Acad::eOk) {
        if (useBackgroundColorOn()) color.setRGB(255, 255, 255);
        setTraitColor(traits, color);
        traits.setFillType(kAcGiFillAlways);
        draw.geometry().polygon(4, corners);
        setTraitColor(traits, entityColor());
    }
    traits.setFillType(kAcGiFillNever);
    if (showBorders()) draw.geometry().polygon(4, corners);
}

bool AcDbMText::subWorldDraw(AcGiWorldDraw* draw)
{
    const lettering::MTextLayout lines = layout();
    const AcGeMatrix3d world = textToWorld();
    const AcGeVector3d along = direction();
    AcGiSubEntityTraits& traits = draw->subEntityTraits();
    if (mExtras && mExtras->flags()) drawBackground(*draw, lines);
    for (const lettering::MTextFragment& piece : lines.fragments) {
        setTraitColor(traits, colorOf(piece.format.color, entityColor()));
        draw->geometry().text(world * AcGePoint3d(piece.position.x, piece.position.y, 0.0), mNormal, along,
                              piece.text.c_str(), static_cast<int>(piece.text.size()), true, styleOf(piece.format));
    }
    for (const lettering::MTextRule& rule : lines.rules) {
        setTraitColor(traits, colorOf(rule.format.color, entityColor()));
        const AcGePoint3d ends[] = {world * AcGePoint3d(rule.bar.start.x, rule.bar.start.y, 0.0),
                                    world * AcGePoint3d(rule.bar.end.x, rule.bar.end.y, 0.0)};
        draw->geometry().polyline(2, ends);
    }
    return true;
}
