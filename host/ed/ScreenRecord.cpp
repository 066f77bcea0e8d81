#include "ScreenRecord.h"

#include "dbpl.h"
#include "geell3d.h"
#include "genurb3d.h"
#include "PlainTraits.h"

namespace
{
using ed::DrawnShape;
using Kind = DrawnShape::Kind;

class ShapeRecorder final : public AcGiGeometry
{
public:
    bool pushModelTransform(const AcGeMatrix3d& matrix) override
    {
        mMaps.push_back(mMaps.back() * matrix);
        return true;
    }
    bool popModelTransform() override
    {
        if (mMaps.size() > 1) mMaps.pop_back();
        return true;
    }
    bool circle(const AcGePoint3d& center, double radius, const AcGeVector3d& normal) override
    {
        return keep(Kind::circle, {center, center + normal.perpVector().normal() * radius});
    }
    bool circularArc(const AcGePoint3d& center, double radius, const AcGeVector3d& normal,
                     const AcGeVector3d& start, double sweep, AcGiArcType) override
    {
        const AcGeVector3d first = start.normal() * radius;
        AcGeVector3d last = first;
        last.rotateBy(sweep, normal);
        return keep(Kind::arc, {center, center + first, center + last});
    }
    bool ellipArc(const AcGeEllipArc3d& arc) override { return keepEnds(arc); }
    bool nurbs(const AcGeNurbCurve3d& curve) override { return keepEnds(curve); }
    bool polyline(unsigned count, const AcGePoint3d* points) override
    {
        return keep(Kind::polyline, {points, points + count});
    }
    bool polygon(unsigned count, const AcGePoint3d* points) override
    {
        return keep(Kind::area, {points, points + count});
    }
    bool polyPolygon(unsigned count, const AcGiLoop* loops) override
    {
        for (unsigned i = 0; i < count; ++i)
            polygon(loops[i].count, loops[i].points);
        return true;
    }
    bool pline(const AcDbPolyline& polyline) override
    {
        std::vector<AcGePoint3d> points(polyline.numVerts());
        for (unsigned i = 0; i < points.size(); ++i)
            polyline.getPointAt(i, points[i]);
        return keep(Kind::polyline, std::move(points));
    }
    bool xline(const AcGePoint3d& point, const AcGePoint3d& other) override
    {
        return keep(Kind::endless, {point, other});
    }
    bool ray(const AcGePoint3d& base, const AcGePoint3d& through) override
    {
        return keep(Kind::endless, {base, through});
    }
    bool pointMark(const AcGePoint3d& point) override { return keep(Kind::mark, {point}); }
    bool text(const AcGePoint3d& position, const AcGeVector3d&, const AcGeVector3d&, const wchar_t* text,
              int length, bool, const AcGiTextStyle&) override
    {
        const std::wstring shown =
            length < 0 ? std::wstring(text) : std::wstring(text, static_cast<std::size_t>(length));
        return keep(Kind::text, {position}, shown);
    }

    std::vector<DrawnShape> shapes;

private:
    bool keepEnds(const AcGeCurve3d& curve)
    {
        AcGePoint3d start, end;
        if (!curve.hasStartPoint(start) || !curve.hasEndPoint(end)) return false;
        return keep(Kind::curve, {start, end});
    }
    bool keep(Kind kind, std::vector<AcGePoint3d> points, std::wstring text = {})
    {
        for (AcGePoint3d& point : points)
            point = mMaps.back() * point;
        shapes.push_back({kind, std::move(points), std::move(text)});
        return true;
    }

    std::vector<AcGeMatrix3d> mMaps = {AcGeMatrix3d::kIdentity};
};

class RecordingDraw final : public AcGiWorldDraw
{
public:
    AcGiRegenType regenType() const override { return kAcGiStandardDisplay; }
    AcGiSubEntityTraits& subEntityTraits() const override { return mTraits; }
    /// Fine enough for a cursor's image.
    double deviation(AcGiDeviationType, const AcGePoint3d&) const override { return 0.01; }
    AcGiGeometry& geometry() const override { return recorder; }

    mutable ShapeRecorder recorder;

private:
    mutable PlainTraits mTraits;
};
} // namespace

namespace ed
{
ScreenRecord& screen()
{
    static ScreenRecord& record = *new ScreenRecord;
    return record;
}

std::vector<DrawnShape> imageOf(const AcDbEntity& entity)
{
    RecordingDraw draw;
    entity.worldDraw(&draw);
    return std::move(draw.recorder.shapes);
}
} // namespace ed
