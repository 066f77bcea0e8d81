/// Splines as groups: the flags and counts, the knots and weights, the control points and the fit points.

#include "dbspline.h"
#include "DxfFields.h"

struct AcDbSpline::Dxf {
    /// Groups that files may leave out, and that are written back as they were.
    enum Given : std::uint8_t { fitTolerance = 1, normal = 2 };

    static AcDbSpline& of(AcDbObject& object) { return static_cast<AcDbSpline&>(object); }
    static const AcDbSpline& of(const AcDbObject& object) { return static_cast<const AcDbSpline&>(object); }

    template <double AcDbSpline::*Member, std::uint8_t Bit>
    static void readGiven(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        of(object).*Member = source.peek()->real;
        of(object).mFileNames |= Bit;
        source.take();
    }

    static void readNormal(AcDbObject& object, const DxfField& field, DxfSource& source)
    {
        AcGeVector3d& normal = of(object).mNormal;
        dxf::takeCoordinate(source, field.code, normal.x);
        dxf::takeCoordinate(source, field.code + 10, normal.y);
        dxf::takeCoordinate(source, field.code + 20, normal.z);
        of(object).mFileNames |= Given::normal;
    }

    static void writeNormal(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        const AcDbSpline& spline = of(object);
        const AcGeVector3d& n = spline.mNormal;
        if ((spline.mFlags & planarFlag) || (spline.mFileNames & Given::normal))
            sink.point(field.code, n.x, n.y, n.z);
    }

    static void writeFitTolerance(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        const AcDbSpline& spline = of(object);
        if (!spline.mFitPoints.empty() || (spline.mFileNames & Given::fitTolerance))
            sink.real(field.code, spline.mFitTolerance);
    }

    /// Counts are told by the lists themselves.
    static void skip(AcDbObject&, const DxfField&, DxfSource& source) { source.take(); }

    template <class List, List AcDbSpline::*Member>
    static void writeCount(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        sink.integer(field.code, static_cast<std::int64_t>((of(object).*Member).size()));
    }

    template <std::vector<double> AcDbSpline::*Member>
    static void readNumber(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        (of(object).*Member).push_back(source.peek()->real);
        source.take();
    }

    template <std::vector<double> AcDbSpline::*Member>
    static void writeNumbers(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        for (const double value : of(object).*Member)
            sink.real(field.code, value);
    }

    template <class Point>
    static void takePoint(DxfSource& source, int code, Point& point)
    {
        dxf::takeCoordinate(source, code, point.x);
        dxf::takeCoordinate(source, code + 10, point.y);
        dxf::takeCoordinate(source, code + 20, point.z);
    }

    template <std::vector<AcGePoint3d> AcDbSpline::*Member>
    static void readPoint(AcDbObject& object, const DxfField& field, DxfSource& source)
    {
        AcGePoint3d point;
        takePoint(source, field.code, point);
        (of(object).*Member).push_back(point);
    }

    template <std::vector<AcGePoint3d> AcDbSpline::*Member>
    static void writePoints(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        for (const AcGePoint3d& point : of(object).*Member)
            sink.point(field.code, point.x, point.y, point.z);
    }

    template <AcGeVector3d Tangents::*Member>
    static void readTangent(AcDbObject& object, const DxfField& field, DxfSource& source)
    {
        takePoint(source, field.code, of(object).mTangents.need().*Member);
    }

    template <AcGeVector3d Tangents::*Member>
    static void writeTangent(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        const AcDbSpline& spline = of(object);
        if (!spline.mTangents) return;
        const AcGeVector3d& tangent = (*spline.mTangents).*Member;
        if (tangent.lengthSqrd() > 0.0) sink.point(field.code, tangent.x, tangent.y, tangent.z);
    }

    static DxfField count(int code, DxfField::Write write) { return dxf::custom(code, skip, write); }
};

const DxfClass AcDbSpline::dxf(
    "AcDbSpline", &AcDbCurve::dxf,
    {
        dxf::custom(210, Dxf::readNormal, Dxf::writeNormal),
        dxf::integer<&AcDbSpline::mFlags>(70),
        dxf::integer<&AcDbSpline::mDegree>(71),
        Dxf::count(72, Dxf::writeCount<std::vector<double>, &AcDbSpline::mKnots>),
        Dxf::count(73, Dxf::writeCount<std::vector<AcGePoint3d>, &AcDbSpline::mControlPoints>),
        Dxf::count(74, Dxf::writeCount<std::vector<AcGePoint3d>, &AcDbSpline::mFitPoints>),
        dxf::real<&AcDbSpline::mKnotTolerance>(42),
        dxf::real<&AcDbSpline::mControlTolerance>(43),
        dxf::custom(44, Dxf::readGiven<&AcDbSpline::mFitTolerance, Dxf::fitTolerance>,
                    Dxf::writeFitTolerance),
        dxf::custom(12, Dxf::readTangent<&AcDbSpline::Tangents::start>,
                    Dxf::writeTangent<&AcDbSpline::Tangents::start>),
        dxf::custom(13, Dxf::readTangent<&AcDbSpline::Tangents::end>,
                    Dxf::writeTangent<&AcDbSpline::Tangents::end>),
        dxf::custom(40, Dxf::readNumber<&AcDbSpline::mKnots>, Dxf::writeNumbers<&AcDbSpline::mKnots>),
        dxf::custom(41, Dxf::readNumber<&AcDbSpline::mWeights>, Dxf::writeNumbers<&AcDbSpline::mWeights>),
        dxf::custom(10, Dxf::readPoint<&AcDbSpline::mControlPoints>,
                    Dxf::writePoints<&AcDbSpline::mControlPoints>),
        dxf::custom(11, Dxf::readPoint<&AcDbSpline::mFitPoints>, Dxf::writePoints<&AcDbSpline::mFitPoints>),
    });
