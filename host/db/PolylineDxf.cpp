/// Polylines as groups: counts and flags first, then the vertices, each point followed by what belongs to it.

#include "dbpl.h"
#include "DxfFields.h"

#include <algorithm>

struct AcDbPolyline::Dxf {
    static AcDbPolyline& of(AcDbObject& object) { return static_cast<AcDbPolyline&>(object); }
    static const AcDbPolyline& of(const AcDbObject& object)
    {
        return static_cast<const AcDbPolyline&>(object);
    }

    static void readCount(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        // A damaged count does not decide about memory.
        constexpr std::int64_t most = 100000;
        const std::int64_t count = source.peek()->integer;
        if (count > 0) of(object).mPoints.reserve(static_cast<std::size_t>(std::min(count, most)));
        source.take();
    }

    static void writeCount(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        sink.integer(field.code, static_cast<std::int64_t>(of(object).mPoints.size()));
    }

    static void readConstantWidth(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        of(object).mConstantWidth = source.peek()->real;
        of(object).mFileNamesWidth = true;
        source.take();
    }

    static void writeConstantWidth(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        const AcDbPolyline& polyline = of(object);
        if (!polyline.hasWidths() || polyline.mFileNamesWidth) sink.real(field.code, polyline.mConstantWidth);
    }

    static void readPoint(AcDbObject& object, const DxfField& field, DxfSource& source)
    {
        AcDbPolyline& polyline = of(object);
        AcGePoint2d point;
        dxf::takeCoordinate(source, field.code, point.x);
        dxf::takeCoordinate(source, field.code + 10, point.y);
        polyline.mPoints.push_back(point);
        if (!polyline.mBulges.empty()) polyline.mBulges.push_back(0.0);
        if (polyline.hasWidths())
            polyline.mRare->widths.emplace_back(polyline.mConstantWidth, polyline.mConstantWidth);
        if (polyline.hasVertexIdentifiers()) polyline.mRare->identifiers.push_back(0);
    }

    /// The group of the last vertex; nothing belongs to a vertex before the first.
    static const DxfGroup* takeOfVertex(const AcDbPolyline& polyline, DxfSource& source)
    {
        if (!polyline.mPoints.empty()) return source.peek();
        source.report(*source.peek(), "a value before the first vertex");
        source.take();
        return nullptr;
    }

    static void readStartWidth(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        const DxfGroup* group = takeOfVertex(of(object), source);
        if (!group) return;
        of(object).needWidths().back().first = group->real;
        source.take();
    }

    static void readEndWidth(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        const DxfGroup* group = takeOfVertex(of(object), source);
        if (!group) return;
        of(object).needWidths().back().second = group->real;
        source.take();
    }

    static void readBulge(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        const DxfGroup* group = takeOfVertex(of(object), source);
        if (!group) return;
        of(object).needBulges().back() = group->real;
        source.take();
    }

    static void readIdentifier(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        const DxfGroup* group = takeOfVertex(of(object), source);
        if (!group) return;
        std::vector<Adesk::Int32>& identifiers = of(object).mRare.need().identifiers;
        identifiers.resize(of(object).mPoints.size());
        identifiers.back() = static_cast<Adesk::Int32>(group->integer);
        source.take();
    }

    static void writeVertices(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        const AcDbPolyline& polyline = of(object);
        for (std::size_t i = 0; i < polyline.mPoints.size(); ++i) {
            sink.point(field.code, polyline.mPoints[i].x, polyline.mPoints[i].y);
            if (polyline.hasWidths()) {
                sink.real(40, polyline.mRare->widths[i].first);
                sink.real(41, polyline.mRare->widths[i].second);
            }
            if (!polyline.mBulges.empty()) sink.real(42, polyline.mBulges[i]);
            if (polyline.hasVertexIdentifiers()) sink.integer(91, polyline.mRare->identifiers[i]);
        }
    }
};

const DxfClass AcDbPolyline::dxf("AcDbPolyline", &AcDbCurve::dxf,
                                 {
                                     dxf::custom(90, Dxf::readCount, Dxf::writeCount),
                                     dxf::integer<&AcDbPolyline::mFlags>(70),
                                     dxf::custom(43, Dxf::readConstantWidth, Dxf::writeConstantWidth),
                                     dxf::real<&AcDbPolyline::mElevation>(38).unless(0.0),
                                     dxf::real<&AcDbPolyline::mThickness>(39).unless(0.0),
                                     dxf::custom(10, Dxf::readPoint, Dxf::writeVertices),
                                     dxf::custom(40, Dxf::readStartWidth, nullptr),
                                     dxf::custom(41, Dxf::readEndWidth, nullptr),
                                     dxf::custom(42, Dxf::readBulge, nullptr),
                                     dxf::custom(91, Dxf::readIdentifier, nullptr),
                                     dxf::direction<&AcDbPolyline::mNormal>(210).unlessZAxis(),
                                 });
