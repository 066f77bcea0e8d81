#pragma once

/// Builds the entities that show a dimension: those of its anonymous block.

#include "dbentity.h"
#include "DimVariables.h"
#include "gepnt2d.h"

#include <memory>
#include <string>
#include <vector>

using DimensionEntities = std::vector<std::unique_ptr<AcDbEntity>>;

/// Points and angles are in the dimension's own plane. Colours are those of the style, mostly "by block": the
/// entities take on what the dimension has.
class DimensionPicture
{
public:
    DimensionPicture(const DimVariables& variables, const AcGeVector3d& normal, double elevation,
                     AcDbDatabase* database);

    const DimVariables& variables() const { return mVariables; }
    /// The length of an arrowhead in the drawing; 0 for ticks.
    double arrowSize() const;
    double gap() const;
    double textHeight() const;

    /// What the dimension says; the boxes and places below are asked for after this.
    void setContents(const std::wstring& contents);
    bool hasText() const { return !mContents.empty(); }
    /// The size of the text's frame.
    double textWidth() const { return mTextWidth; }
    double textFrameHeight() const { return mTextHeight; }
    /// How far the text reaches from its middle in a direction, with the text turned by `rotation`.
    double textReach(const AcGeVector2d& direction, double rotation) const;

    void dimensionLine(const AcGePoint2d& from, const AcGePoint2d& to);
    /// Counter-clockwise from one angle to another.
    void dimensionArc(const AcGePoint2d& center, double radius, double from, double to);
    void extensionLine(const AcGePoint2d& from, const AcGePoint2d& to, bool isSecond);
    void extensionArc(const AcGePoint2d& center, double radius, double from, double to);
    /// An arrowhead, block or tick with its tip at a point; `direction` is the unit vector it points along.
    void arrow(const AcGePoint2d& tip, const AcGeVector2d& direction, bool isSecond);
    void text(const AcGePoint2d& middle, double rotation);
    /// Points by which the dimension is picked, on the layer that is not plotted.
    void definitionPoint(const AcGePoint3d& inWorld);

    AcGePoint2d toPlane(const AcGePoint3d& inWorld) const;
    AcGePoint3d toWorld(const AcGePoint2d& inPlane) const;

    DimensionEntities take() { return std::move(mEntities); }

private:
    AcDbObjectId arrowBlock(bool isSecond) const;
    void filledArrow(const AcGePoint2d& tip, const AcGeVector2d& direction);
    void tick(const AcGePoint2d& tip, const AcGeVector2d& direction);
    void blockArrow(AcDbObjectId block, const AcGePoint2d& tip, const AcGeVector2d& direction);
    void frame(const AcGePoint2d& middle, double rotation);
    AcDbEntity& add(std::unique_ptr<AcDbEntity> entity, int color);
    AcDbEntity& line(const AcGePoint2d& from, const AcGePoint2d& to, int color);
    AcDbEntity& arc(const AcGePoint2d& center, double radius, double from, double to, int color);
    void setDimensionLineTraits(AcDbEntity& entity) const;
    void setExtensionLineTraits(AcDbEntity& entity, bool isSecond) const;

    DimVariables mVariables;
    AcGeVector3d mNormal;
    AcGeMatrix3d mToWorld;
    AcDbDatabase* mDatabase;
    std::wstring mContents;
    double mTextWidth = 0.0, mTextHeight = 0.0;
    DimensionEntities mEntities;
};

/// The angle at which a text along a line can be read: above -90 degrees, at most 90.
double readableAngle(double angle);
