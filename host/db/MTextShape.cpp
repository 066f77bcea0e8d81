/// Where the characters of a multiline text lie: its frame, its maps, its pieces.

#include "MTextLayout.h"
#include "MTextFrame.h"
#include "MTextMembers.h"
#include "DimensionPicture.h"
#include "PlanarCoords.h"
#include "TextLook.h"
#include "gecurv3d.h"
#include "gelnsg3d.h"

#include <cmath>

namespace
{
lettering::MTextFormat formatOf(const AcGiTextStyle& style, double height)
{
    const TextLook look = textLookOf(style);
    lettering::MTextFormat format;
    format.font = look.font;
    format.height = height;
    format.widthFactor = look.look.widthFactor;
    format.obliqueAngle = look.look.obliqueAngle;
    format.color.index = mtext::ownColor;
    return format;
}

std::wstring_view viewOf(const CString& text)
{
    return {static_cast<const wchar_t*>(text), static_cast<std::size_t>(text.GetLength())};
}

/// The end of a number behind a code \H, if it is a length and not a factor; 0 otherwise.
int heightEnd(const CString& contents, int start)
{
    const int end = contents.Find(L';', start);
    return end > start && contents[end - 1] != L'x' && contents[end - 1] != L'X' ? end : 0;
}

/// Heights inside the contents grow with the text.
CString withScaledHeights(const CString& contents, double factor)
{
    CString scaled;
    int from = 0;
    for (int at = 0; at + 1 < contents.GetLength(); ++at) {
        if (contents[at] != L'\\') continue;
        const int end = contents[at + 1] == L'H' ? heightEnd(contents, at + 2) : 0;
        double height = 0.0;
        if (end && swscanf(contents.Mid(at + 2, end - at - 2), L"%lf", &height) == 1) {
            CString number;
            number.Format(L"%.10g", height * factor);
            scaled += contents.Mid(from, at + 2 - from) + number;
            from = end;
        }
        ++at;
    }
    return scaled + contents.Mid(from);
}

/// The angle of a direction in the plane of a normal.
double flatAngle(const AcGeVector3d& normal, const AcGeVector3d& along)
{
    const AcGeVector3d flat = worldToOcs(normal) * along;
    return std::atan2(flat.y, flat.x);
}
} // namespace

lettering::MTextLayout AcDbMText::layout() const
{
    lettering::MTextBox box;
    box.width = mWidth;
    box.attachment = static_cast<lettering::Attachment>(mAttachment);
    box.spacing = mSpacingStyle == AcDb::kExactly ? lettering::LineSpacing::exactly : lettering::LineSpacing::atLeast;
    box.spacingFactor = mSpacingFactor;
    const AcGiTextStyle style = textStyleOf(textStyle());
    lettering::MTextFormat format = formatOf(style, mTextHeight);
    format.isVertical = mFlowDirection == kTtoB || (mFlowDirection == kByStyle && style.isVertical);
    return lettering::layoutMText(viewOf(mContents), format, box);
}

AcGeMatrix3d AcDbMText::textToWorld() const
{
    const AcGeVector3d normal = mNormal.normal(), along = direction();
    AcGeMatrix3d map;
    map.setCoordSystem(mLocation, along, normal.crossProduct(along), normal);
    return map;
}

Acad::ErrorStatus AcDbMText::text(CString& text) const
{
    text.Empty();
    lettering::MTextFormat format;
    const auto paragraphs = lettering::parseMText(viewOf(mContents), format);
    for (const lettering::MTextParagraph& paragraph : paragraphs) {
        if (&paragraph != &paragraphs.front()) text += L"\r\n";
        for (const lettering::MTextPiece& piece : paragraph.pieces) {
            text += piece.text.c_str();
            if (piece.stack == lettering::StackKind::none) continue;
            text += piece.stack == lettering::StackKind::tolerance ? L"^" : L"/";
            text += piece.lower.c_str();
        }
    }
    return Acad::eOk;
}

double AcDbMText::actualHeight(AcGiWorldDraw*) const { return layout().height; }

double AcDbMText::actualWidth() const { return layout().width; }

double AcDbMText::ascent() const
{
    const TextLook look = textLookOf(textStyleOf(textStyle()));
    return lettering::fontNamed(look.font).ascent() * mTextHeight;
}

double AcDbMText::descent() const
{
    const TextLook look = textLookOf(textStyleOf(textStyle()));
    return lettering::fontNamed(look.font).descent() * mTextHeight;
}

void AcDbMText::getBoundingPoints(AcGePoint3dArray& points) const
{
    const lettering::MTextLayout lines = layout();
    AcGePoint3d corners[4];
    mtext::mapBox(lines.min, lines.max, textToWorld(), corners);
    for (const int corner : {3, 2, 0, 1}) points.append(corners[corner]);
}

Acad::ErrorStatus AcDbMText::setAttachmentMovingLocation(AttachmentPoint attachment)
{
    if (attachment < kTopLeft || attachment > kBottomRight) return Acad::eInvalidInput;
    const lettering::MTextLayout before = layout();
    const AcGeMatrix3d world = textToWorld();
    const AcGePoint2d corner = before.min;
    const Acad::ErrorStatus status = setAttachment(attachment);
    if (status != Acad::eOk) return status;
    const AcGePoint2d moved = layout().min;
    mLocation = world * AcGePoint3d(corner.x - moved.x, corner.y - moved.y, 0.0);
    return status;
}

/// A mirrored text stands where its mirror image would, but reads the right way round: to the right, or upwards. Gives
/// the place of the text for that of the image; `along` and `up` are the image's directions.
AcGePoint3d AcDbMText::readableImage(const AcGePoint3d& image, const AcGeVector3d& normal, AcGeVector3d& along,
                                     const AcGeVector3d& up) const
{
    const lettering::MTextLayout lines = layout();
    if (readableAngle(flatAngle(normal, along)) == flatAngle(normal, along))
        return image + (lines.min.y + lines.max.y) * up;
    const AcGeVector3d back = along;
    along = -along;
    return image + (lines.min.x + lines.max.x) * back;
}

Acad::ErrorStatus AcDbMText::subTransformBy(const AcGeMatrix3d& xform)
{
    const AcGeVector3d normal = mappedNormal(xform, mNormal);
    AcGeVector3d along = xform * direction();
    const AcGeVector3d up = xform * mNormal.crossProduct(direction()).normal();
    if (along.isZeroLength() || normal.isZeroLength()) return Acad::eCannotScaleNonUniformly;
    AcGePoint3d location = xform * mLocation;
    if (along.crossProduct(up).dotProduct(normal) < 0.0) location = readableImage(location, normal, along, up);
    const double stretch = along.length();
    const double grow = along.crossProduct(up).length() / stretch;
    beginTextChange();
    mLocation = location;
    mNormal = normal;
    mDirection = along / stretch;
    if (mExtras) mExtras->fileRotation.reset();
    mWidth *= stretch;
    mHeight *= grow;
    mTextHeight *= grow;
    if (std::fabs(grow - 1.0) > 1e-9) {
        mContents = withScaledHeights(mContents, grow);
        if (mExtras) mExtras->chunks.clear();
    }
    if (!columns()) return Acad::eOk;
    mExtras->columns.width *= stretch;
    mExtras->columns.gutter *= stretch;
    for (double& height : mExtras->columns.heights) height *= grow;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::subGetGeomExtents(AcDbExtents& extents) const
{
    const lettering::MTextLayout lines = layout();
    AcGePoint3d corners[4];
    mtext::mapBox(lines.min, lines.max, textToWorld(), corners);
    for (const AcGePoint3d& corner : corners) extents.addPoint(corner);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::subGetGripPoints(AcGePoint3dArray& gripPoints, AcDbIntArray&, AcDbIntArray&) const
{
    gripPoints.append(mLocation);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::pointsToSnapTo(AcDb::OsnapMode mode, const AcGePoint3d&, const AcGePoint3d&,
                                               AcGePoint3dArray& points) const
{
    if (mode == AcDb::kOsModeIns) points.append(mLocation);
    return Acad::eOk;
}

void AcDbMText::intersectionCurves(Curves& curves, bool) const
{
    const lettering::MTextLayout lines = layout();
    if (lines.fragments.empty()) return;
    AcGePoint3d corners[4];
    mtext::mapBox(lines.min, lines.max, textToWorld(), corners);
    for (int i = 0; i < 4; ++i) curves.push_back(std::make_unique<AcGeLineSeg3d>(corners[i], corners[(i + 1) % 4]));
}
