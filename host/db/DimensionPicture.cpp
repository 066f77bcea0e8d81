#include "DimensionPicture.h"

#include "dbarc.h"
#include "dbblkref.h"
#include "dbblock.h"
#include "dbdatabase.h"
#include "dbline.h"
#include "dbmtext.h"
#include "dbpoint.h"
#include "dbsolid.h"
#include "MTextLayout.h"
#include "PlanarCoords.h"
#include "Stub.h"
#include "TextLook.h"

#include <cmath>

namespace
{
constexpr double pi = 3.14159265358979323846;
constexpr double arrowHalfWidth = 1.0 / 6.0; ///< of the length of a filled arrowhead

lettering::MTextLayout layOut(const std::wstring& contents, AcDbObjectId style, double height)
{
    AcGiTextStyle text = textStyleOf(style);
    text.textSize = height;
    const TextLook look = textLookOf(text);
    lettering::MTextFormat format;
    format.font = look.font;
    format.height = height;
    format.widthFactor = look.look.widthFactor;
    format.obliqueAngle = look.look.obliqueAngle;
    format.place = lettering::LinePlace::middle;
    format.isVertical = text.isVertical;
    lettering::MTextBox box;
    box.attachment = lettering::Attachment::middleCenter;
    return lettering::layoutMText(contents, format, box);
}

AcGeVector2d turned(double angle)
{
    return {std::cos(angle), std::sin(angle)};
}

/// A point of the text's own plane where the text stands.
AcGePoint2d placed(const AcGePoint2d& point, const AcGePoint2d& middle, double rotation)
{
    const AcGeVector2d along = turned(rotation);
    return middle + along * point.x + along.perpVector() * point.y;
}
} // namespace

double readableAngle(double angle)
{
    const double within = std::remainder(angle, 2.0 * pi);
    constexpr double slack = 1e-9;
    if (within > pi / 2.0 + slack) return within - pi;
    if (within <= -pi / 2.0 + slack) return within + pi;
    return within;
}

DimensionPicture::DimensionPicture(const DimVariables& variables, const AcGeVector3d& normal,
                                   double elevation, AcDbDatabase* database)
    : mVariables(variables), mNormal(normal),
      mToWorld(ocsToWorld(normal) * AcGeMatrix3d::translation({0.0, 0.0, elevation})), mDatabase(database)
{
}

AcGePoint2d DimensionPicture::toPlane(const AcGePoint3d& inWorld) const
{
    const AcGePoint3d point = worldToOcs(mNormal) * inWorld;
    return {point.x, point.y};
}

AcGePoint3d DimensionPicture::toWorld(const AcGePoint2d& inPlane) const
{
    return mToWorld * AcGePoint3d(inPlane.x, inPlane.y, 0.0);
}

double DimensionPicture::arrowSize() const
{
    return mVariables.dimtsz > 0.0 ? 0.0 : mVariables.scaled(mVariables.dimasz);
}

double DimensionPicture::gap() const
{
    return std::fabs(mVariables.scaled(mVariables.dimgap));
}

double DimensionPicture::textHeight() const
{
    // A style of fixed height takes no other.
    const auto* style = AcDbTextStyleTableRecord::cast(residentObject(mVariables.dimtxsty));
    const double fixed = style ? style->textSize() : 0.0;
    return fixed > 0.0 ? fixed : mVariables.scaled(mVariables.dimtxt);
}

void DimensionPicture::setContents(const std::wstring& contents)
{
    mContents = contents;
    const lettering::MTextLayout layout = layOut(contents, mVariables.dimtxsty, textHeight());
    mTextWidth = contents.empty() ? 0.0 : layout.width;
    mTextHeight = contents.empty() ? 0.0 : layout.height;
}

double DimensionPicture::textReach(const AcGeVector2d& direction, double rotation) const
{
    const AcGeVector2d along = turned(rotation);
    const double across = std::fabs(direction.dotProduct(along.perpVector()));
    const double lengthwise = std::fabs(direction.dotProduct(along));
    const double toEnd = lengthwise > 1e-9 ? mTextWidth / 2.0 / lengthwise : 1e300;
    const double toSide = across > 1e-9 ? mTextHeight / 2.0 / across : 1e300;
    return std::fmin(toEnd, toSide);
}

AcDbEntity& DimensionPicture::add(std::unique_ptr<AcDbEntity> entity, int color)
{
    entity->setColorIndex(static_cast<std::uint16_t>(color >= 0 && color <= 256 ? color : 0));
    mEntities.push_back(std::move(entity));
    return *mEntities.back();
}

AcDbEntity& DimensionPicture::line(const AcGePoint2d& from, const AcGePoint2d& to, int color)
{
    return add(std::make_unique<AcDbLine>(toWorld(from), toWorld(to)), color);
}

AcDbEntity& DimensionPicture::arc(const AcGePoint2d& center, double radius, double from, double to, int color)
{
    return add(std::make_unique<AcDbArc>(toWorld(center), mNormal, radius, from, to), color);
}

void DimensionPicture::setDimensionLineTraits(AcDbEntity& entity) const
{
    entity.setLineWeight(static_cast<AcDb::LineWeight>(mVariables.dimlwd));
    if (!mVariables.dimltype.isNull()) entity.setLinetype(mVariables.dimltype);
}

void DimensionPicture::setExtensionLineTraits(AcDbEntity& entity, bool isSecond) const
{
    const AcDbObjectId linetype = isSecond ? mVariables.dimltex2 : mVariables.dimltex1;
    entity.setLineWeight(static_cast<AcDb::LineWeight>(mVariables.dimlwe));
    if (!linetype.isNull()) entity.setLinetype(linetype);
}

void DimensionPicture::dimensionLine(const AcGePoint2d& from, const AcGePoint2d& to)
{
    if (!from.isEqualTo(to)) setDimensionLineTraits(line(from, to, mVariables.dimclrd));
}

void DimensionPicture::dimensionArc(const AcGePoint2d& center, double radius, double from, double to)
{
    if (to > from) setDimensionLineTraits(arc(center, radius, from, to, mVariables.dimclrd));
}

void DimensionPicture::extensionLine(const AcGePoint2d& from, const AcGePoint2d& to, bool isSecond)
{
    if (!from.isEqualTo(to)) setExtensionLineTraits(line(from, to, mVariables.dimclre), isSecond);
}

void DimensionPicture::extensionArc(const AcGePoint2d& center, double radius, double from, double to)
{
    if (to > from) setExtensionLineTraits(arc(center, radius, from, to, mVariables.dimclre), false);
}

AcDbObjectId DimensionPicture::arrowBlock(bool isSecond) const
{
    if (!mVariables.dimsah) return mVariables.dimblk;
    return isSecond ? mVariables.dimblk2 : mVariables.dimblk1;
}

void DimensionPicture::arrow(const AcGePoint2d& tip, const AcGeVector2d& direction, bool isSecond)
{
    const AcDbObjectId block = arrowBlock(isSecond);
    if (mVariables.dimtsz > 0.0) return tick(tip, direction);
    if (AcDbBlockTableRecord::cast(residentObject(block))) return blockArrow(block, tip, direction);
    filledArrow(tip, direction);
}

void DimensionPicture::filledArrow(const AcGePoint2d& tip, const AcGeVector2d& direction)
{
    const double size = mVariables.scaled(mVariables.dimasz);
    if (!(size > 0.0)) return;
    const AcGePoint2d base = tip - direction * size;
    const AcGeVector2d side = direction.perpVector() * (size * arrowHalfWidth);
    auto solid = std::make_unique<AcDbSolid>();
    solid->setNormal(mNormal);
    const AcGePoint2d corners[] = {base + side, base - side, tip, tip};
    for (std::uint16_t i = 0; i < 4; ++i)
        solid->setPointAt(i, toWorld(corners[i]));
    add(std::move(solid), mVariables.dimclrd);
}

/// An oblique stroke, at 45 degrees to the line, that passes it by DIMTSZ on each side.
void DimensionPicture::tick(const AcGePoint2d& tip, const AcGeVector2d& direction)
{
    const double size = mVariables.scaled(mVariables.dimtsz);
    const AcGeVector2d half = (direction + direction.perpVector()) * size;
    dimensionLine(tip - half, tip + half);
}

void DimensionPicture::blockArrow(AcDbObjectId block, const AcGePoint2d& tip, const AcGeVector2d& direction)
{
    const double size = mVariables.scaled(mVariables.dimasz);
    if (!(size > 0.0)) return;
    auto reference = std::make_unique<AcDbBlockReference>(toWorld(tip), block);
    reference->setNormal(mNormal);
    reference->setPosition(toWorld(tip));
    reference->setScaleFactors(AcGeScale3d(size, size, size));
    reference->setRotation(direction.angle());
    add(std::move(reference), mVariables.dimclrd);
}

void DimensionPicture::text(const AcGePoint2d& middle, double rotation)
{
    if (mContents.empty()) return;
    auto text = std::make_unique<AcDbMText>();
    text->setNormal(mNormal);
    text->setLocation(toWorld(middle));
    text->setRotation(rotation);
    text->setTextHeight(textHeight());
    if (!mVariables.dimtxsty.isNull()) text->setTextStyle(mVariables.dimtxsty);
    text->setAttachment(AcDbMText::kMiddleCenter);
    // Stacks stand at the bottom of the line, or where DIMTOLJ wants them.
    const std::wstring place = L"\\A" + std::to_wstring(mVariables.dimtolj) + L";";
    text->setContents(((mVariables.dimtolj ? place : L"") + mContents).c_str());
    add(std::move(text), mVariables.dimclrt);
    if (mVariables.dimgap < 0.0) frame(middle, rotation);
}

/// The box of a basic dimension, a gap away from the text.
void DimensionPicture::frame(const AcGePoint2d& middle, double rotation)
{
    const double x = mTextWidth / 2.0 + gap(), y = mTextHeight / 2.0 + gap();
    const AcGePoint2d corners[] = {placed({-x, -y}, middle, rotation), placed({x, -y}, middle, rotation),
                                   placed({x, y}, middle, rotation), placed({-x, y}, middle, rotation)};
    for (int i = 0; i < 4; ++i)
        dimensionLine(corners[i], corners[(i + 1) % 4]);
}

void DimensionPicture::definitionPoint(const AcGePoint3d& inWorld)
{
    AcDbEntity& point = add(std::make_unique<AcDbPoint>(inWorld), 0);
    AcDbObjectId layer;
    const auto* layers =
        mDatabase ? AcDbLayerTable::cast(residentObject(mDatabase->layerTableId())) : nullptr;
    if (layers && layers->getAt(L"Defpoints", layer) == Acad::eOk) point.setLayer(layer);
}
