#pragma once

/// What an entity draws, for tests: its lines and areas in world coordinates.

#include "acgi.h"
#include "dbentity.h"
#include "dbpl.h"
#include "PlainTraits.h"

#include <vector>

struct DrawnLine {
    AcGePoint3d start, end;
};

class DrawnTraits : public PlainTraits
{
public:
    void setColor(std::uint16_t index) override { color = index; }
    std::uint16_t color = 256;
};

class DrawnGeometry : public AcGiGeometry
{
public:
    bool pushModelTransform(const AcGeMatrix3d& matrix) override
    {
        mMaps.push_back(mMaps.empty() ? matrix : mMaps.back() * matrix);
        return true;
    }
    bool popModelTransform() override
    {
        mMaps.pop_back();
        return true;
    }
    bool circle(const AcGePoint3d&, double, const AcGeVector3d&) override { return ++curves; }
    bool circularArc(const AcGePoint3d&, double, const AcGeVector3d&, const AcGeVector3d&, double,
                     AcGiArcType) override
    {
        return ++curves;
    }
    bool ellipArc(const AcGeEllipArc3d&) override { return ++curves; }
    bool nurbs(const AcGeNurbCurve3d&) override { return ++curves; }
    bool polyline(unsigned count, const AcGePoint3d* points) override
    {
        for (unsigned i = 1; i < count; ++i)
            lines.push_back({mapped(points[i - 1]), mapped(points[i])});
        return true;
    }
    bool polygon(unsigned, const AcGePoint3d*) override { return ++areas; }
    bool polyPolygon(unsigned, const AcGiLoop*) override { return ++areas; }
    bool pline(const AcDbPolyline&) override { return ++curves; }
    bool xline(const AcGePoint3d&, const AcGePoint3d&) override { return true; }
    bool ray(const AcGePoint3d&, const AcGePoint3d&) override { return true; }
    bool pointMark(const AcGePoint3d&) override { return ++marks; }
    bool text(const AcGePoint3d&, const AcGeVector3d&, const AcGeVector3d&, const wchar_t* text, int length,
              bool, const AcGiTextStyle&) override
    {
        texts.push_back(length < 0 ? std::wstring(text)
                                   : std::wstring(text, static_cast<std::size_t>(length)));
        return true;
    }

    std::vector<DrawnLine> lines;
    std::vector<std::wstring> texts;
    int areas = 0, curves = 0, marks = 0;

private:
    AcGePoint3d mapped(const AcGePoint3d& point) const
    {
        return mMaps.empty() ? point : mMaps.back() * point;
    }
    std::vector<AcGeMatrix3d> mMaps;
};

class DrawnPicture : public AcGiWorldDraw
{
public:
    explicit DrawnPicture(const AcDbEntity& entity) { entity.worldDraw(this); }
    AcGiRegenType regenType() const override { return kAcGiStandardDisplay; }
    AcGiSubEntityTraits& subEntityTraits() const override { return mTraits; }
    double deviation(AcGiDeviationType, const AcGePoint3d&) const override { return 0.01; }
    AcGiGeometry& geometry() const override { return shapes; }

    mutable DrawnGeometry shapes;

private:
    mutable DrawnTraits mTraits;
};

inline std::vector<DrawnLine> drawnLines(const AcDbEntity& entity)
{
    return DrawnPicture(entity).shapes.lines;
}
inline int drawnAreas(const AcDbEntity& entity)
{
    return DrawnPicture(entity).shapes.areas;
}
