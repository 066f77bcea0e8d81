#pragma once

/// Draws the geometry of entities on a canvas, as a view sees it.

#include "Canvas.h"
#include "PlotTraits.h"
#include "PointMark.h"

namespace plot
{
/// From the world to the plane of a page, in parallel rays.
struct View {
    AcGeMatrix3d toPlane;      ///< z is dropped
    AcGePoint2d min, max;      ///< what is seen, in the plane
    double linetypeScale = 1;  ///< from the lengths of line types to the plane, for entities with a scale of 1
    PointStyle points;
    bool hasWeights = true; ///< false: all lines are as thin as can be
};

/// The canvas's transformation is that of the plane, and unchanged while this lives.
class ViewGeometry final : public AcGiGeometry
{
public:
    ViewGeometry(Canvas& canvas, PlotTraits& traits, const View& view);

    bool pushModelTransform(const AcGeMatrix3d& matrix) override;
    bool popModelTransform() override;
    bool circle(const AcGePoint3d& center, double radius, const AcGeVector3d& normal) override;
    bool circularArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal, const AcGeVector3d& start,
                     double sweep, AcGiArcType type) override;
    bool ellipArc(const AcGeEllipArc3d& arc) override;
    bool nurbs(const AcGeNurbCurve3d& curve) override;
    bool polyline(unsigned count, const AcGePoint3d* points) override;
    bool polygon(unsigned count, const AcGePoint3d* points) override;
    bool polyPolygon(unsigned count, const AcGiLoop* loops) override;
    bool pline(const AcDbPolyline& polyline) override;
    bool xline(const AcGePoint3d& point, const AcGePoint3d& other) override;
    bool ray(const AcGePoint3d& base, const AcGePoint3d& through) override;
    bool pointMark(const AcGePoint3d& point) override;
    bool text(const AcGePoint3d& position, const AcGeVector3d& normal, const AcGeVector3d& direction,
              const wchar_t* text, int length, bool raw, const AcGiTextStyle& style) override;
    bool imageFile(const AcGiImageFile& image) override;

    /// Draws what has been collected.
    void flush();
    /// The chord distance that curves are flattened to, in the present model coordinates.
    double modelTolerance() const;

private:
    AcGePoint2d place(const AcGePoint3d& point) const;
    AcGeVector2d place(const AcGeVector3d& vector) const;
    Points place(unsigned count, const AcGePoint3d* points) const;
    AcGeMatrix2d planeMap(const AcGeMatrix3d& map) const;
    Pen pen();
    void begin(const Pen& pen);
    void stroke(Points points, bool isClosed);
    void fill(const Loops& loops, FillRule rule);
    void endless(const AcGePoint3d& base, const AcGePoint3d& through, bool isRay);

    struct Level {
        AcGeMatrix3d toPlane;
        double scale; ///< of lengths in blocks, against the world
    };

    Canvas& mCanvas;
    PlotTraits& mTraits;
    const View& mView;
    double mTolerance; ///< in the plane
    std::vector<Level> mLevels;
    Pen mPen;                       ///< of the segments
    std::vector<kernel::HatchPiece> mSegments; ///< lines that wait for others with their pen
};
} // namespace plot
