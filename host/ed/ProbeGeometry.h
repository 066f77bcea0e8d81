#pragma once

/// How what an entity draws lies to an area.

#include "dbpl.h"
#include "SelectionProbe.h"

class BulgeSegment;

namespace ed
{
class SelectionProbe::Geometry final : public AcGiGeometry
{
public:
    Geometry(const SelectionArea& area, const AcGeMatrix3d& toPlane, SelectionTraits& traits)
        : mArea(area), mTraits(traits), mToPlane{toPlane}
    {
        const PlaneBox& box = area.box();
        mTolerance = std::max(box.max.x - box.min.x, box.max.y - box.min.y) / 1000.0;
    }

    void start(ProbeQuestion question);
    bool isTouched() const { return mIsTouched; }
    bool isInside() const { return mIsDrawn && !mIsOutside; }
    std::vector<AcGePoint2d> takeCrossings() { return std::move(mCrossings); }
    /// In present model coordinates.
    double modelTolerance() const;

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

private:
    using Loop = std::vector<AcGePoint2d>;

    /// Nothing more can change the answer, or what comes is not seen.
    bool isSettled();
    AcGePoint2d place(const AcGePoint3d& point) const;
    AcGeVector2d place(const AcGeVector3d& vector) const;
    Loop place(unsigned count, const AcGePoint3d* points) const;
    /// A PlaneSegment or a PlaneArc.
    template <class Piece>
    void judge(const Piece& piece);
    void judgeBulge(const BulgeSegment& segment);
    void judgeChain(const Loop& points, bool isClosed);
    void judgeFill(const std::vector<Loop>& loops);
    /// Lines without an end, as far as they can meet the area.
    void judgeEndless(const AcGePoint3d& base, const AcGePoint3d& through, bool isRay);

    const SelectionArea& mArea;
    SelectionTraits& mTraits;
    std::vector<AcGeMatrix3d> mToPlane; ///< of the blocks that are open
    double mTolerance;                  ///< of splines, in the plane
    ProbeQuestion mQuestion = ProbeQuestion::touches;
    bool mIsTouched = false, mIsOutside = false, mIsDrawn = false;
    std::vector<AcGePoint2d> mCrossings;
};
} // namespace ed
