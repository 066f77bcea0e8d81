/// Hatches as groups: loops, pattern, picked points and gradient stand as lists one after the other, each
/// begun by its count. Codes repeat from list to list; so each list is read as a whole.

#include "dbhatch.h"
#include "DxfFields.h"
#include "HatchLoopDxf.h"

#include <algorithm>

namespace
{
/// Stops hold a value, then a colour number and a colour.
hatch::GradientStop* lastStop(hatch::Gradient& gradient, DxfSource& source)
{
    if (!gradient.stops.empty()) return &gradient.stops.back();
    source.report(*source.peek(), "a colour before the first one's place in the gradient");
    source.take();
    return nullptr;
}

std::int32_t takeInteger(DxfSource& source)
{
    const auto value = static_cast<std::int32_t>(source.peek()->integer);
    source.take();
    return value;
}

double takeReal(DxfSource& source)
{
    const double value = source.peek()->real;
    source.take();
    return value;
}

hatch::PatternLine readPatternLine(DxfSource& source)
{
    hatch::PatternLine line;
    while (const DxfGroup* group = source.peek()) {
        switch (group->code) {
        case 53:
            line.angle = group->real * dxf::radiansPerDegree;
            break;
        case 43:
            line.base.x = group->real;
            break;
        case 44:
            line.base.y = group->real;
            break;
        case 45:
            line.offset.x = group->real;
            break;
        case 46:
            line.offset.y = group->real;
            break;
        case 79:
            break;
        case 49:
            line.dashes.push_back(group->real);
            break;
        default:
            return line;
        }
        source.take();
        if (source.peek() && source.peek()->is(53)) break;
    }
    return line;
}

void writePatternLine(const hatch::PatternLine& line, DxfSink& sink)
{
    sink.real(53, line.angle / dxf::radiansPerDegree);
    sink.real(43, line.base.x);
    sink.real(44, line.base.y);
    sink.real(45, line.offset.x);
    sink.real(46, line.offset.y);
    sink.integer(79, static_cast<std::int64_t>(line.dashes.size()));
    for (const double dash : line.dashes)
        sink.real(49, dash);
}

void writeGradient(const hatch::Gradient& gradient, DxfSink& sink)
{
    sink.integer(450, gradient.isGradient);
    sink.integer(451, gradient.reserved);
    sink.real(460, gradient.angle);
    sink.real(461, gradient.shift);
    sink.integer(452, gradient.isOneColor);
    sink.real(462, gradient.tint);
    sink.integer(453, gradient.colorCount);
    for (const hatch::GradientStop& stop : gradient.stops) {
        sink.real(463, stop.value);
        if (stop.index) sink.integer(63, *stop.index);
        if (stop.rgb) sink.integer(421, *stop.rgb);
    }
    sink.wide(470, gradient.name);
}
} // namespace

struct AcDbHatch::Dxf {
    static AcDbHatch& of(AcDbObject& object) { return static_cast<AcDbHatch&>(object); }
    static const AcDbHatch& of(const AcDbObject& object) { return static_cast<const AcDbHatch&>(object); }
    static hatch::Gradient& gradientOf(AcDbObject& object) { return of(object).mGradient.need(); }

    static void readLoops(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        source.take();
        while (source.peek() && source.peek()->is(92))
            of(object).mLoops.push_back(hatch::readLoop(source));
    }
    static void writeLoops(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        sink.integer(field.code, static_cast<std::int64_t>(of(object).mLoops.size()));
        for (const hatch::Loop& loop : of(object).mLoops)
            hatch::writeLoop(loop, sink);
    }

    static bool hasNoPattern(const AcDbObject& object, const DxfField&)
    {
        return of(object).mSolid && !of(object).mFileNamesPattern;
    }
    static void readAngle(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        of(object).mAngle = takeReal(source) * dxf::radiansPerDegree;
        of(object).mFileNamesPattern = true;
    }
    static void writeAngle(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        sink.real(field.code, of(object).mAngle / dxf::radiansPerDegree);
    }
    /// One group holds the distance of user-defined lines, or the scale of others.
    static void readScale(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        AcDbHatch& hatch = of(object);
        (hatch.mPatternType == kUserDefined ? hatch.mSpace : hatch.mScale) = takeReal(source);
        hatch.mFileNamesPattern = true;
    }
    static void writeScale(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        const AcDbHatch& hatch = of(object);
        sink.real(field.code, hatch.mPatternType == kUserDefined ? hatch.mSpace : hatch.mScale);
    }
    static void readLines(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        of(object).mFileNamesPattern = true;
        source.take();
        while (source.peek() && source.peek()->is(53))
            of(object).mLines.push_back(readPatternLine(source));
    }
    static void writeLines(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        sink.integer(field.code, static_cast<std::int64_t>(of(object).mLines.size()));
        for (const hatch::PatternLine& line : of(object).mLines)
            writePatternLine(line, sink);
    }

    static void readPixelSize(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        of(object).mPixelSize = takeReal(source);
    }
    static void writePixelSize(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        if (of(object).mPixelSize) sink.real(field.code, *of(object).mPixelSize);
    }
    static void readSeeds(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        source.take();
        while (source.peek() && source.peek()->is(10))
            of(object).mSeeds.push_back(hatch::takePoint(source, 10));
    }
    static void writeSeeds(const AcDbObject& object, const DxfField& field, DxfSink& sink)
    {
        sink.integer(field.code, static_cast<std::int64_t>(of(object).mSeeds.size()));
        for (const AcGePoint2d& seed : of(object).mSeeds)
            sink.point(10, seed.x, seed.y);
    }

    template <auto Member>
    static void readGradientInteger(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        gradientOf(object).*Member = takeInteger(source);
    }
    template <auto Member>
    static void readGradientReal(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        gradientOf(object).*Member = takeReal(source);
    }
    static void readStop(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        gradientOf(object).stops.push_back({takeReal(source), {}, {}});
    }
    static void readStopIndex(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        if (hatch::GradientStop* stop = lastStop(gradientOf(object), source))
            stop->index = takeInteger(source);
    }
    static void readStopColor(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        if (hatch::GradientStop* stop = lastStop(gradientOf(object), source)) stop->rgb = takeInteger(source);
    }
    static void readGradientName(AcDbObject& object, const DxfField&, DxfSource& source)
    {
        gradientOf(object).name = source.peek()->wide();
        source.take();
    }
    static void writeGradientOf(const AcDbObject& object, const DxfField&, DxfSink& sink)
    {
        if (of(object).mGradient) writeGradient(*of(object).mGradient, sink);
    }
};

const DxfClass AcDbHatch::dxf(
    "AcDbHatch", &AcDbEntity::dxf,
    {
        dxf::point<&AcDbHatch::mElevation>(10),
        dxf::direction<&AcDbHatch::mNormal>(210),
        dxf::text<&AcDbHatch::mName>(2),
        dxf::integer<&AcDbHatch::mSolid>(70),
        dxf::integer<&AcDbHatch::mAssociative>(71),
        dxf::custom(91, Dxf::readLoops, Dxf::writeLoops),
        dxf::integer<&AcDbHatch::mStyle>(75),
        dxf::integer<&AcDbHatch::mPatternType>(76),
        dxf::custom(52, Dxf::readAngle, Dxf::writeAngle).unlessIs(Dxf::hasNoPattern),
        dxf::custom(41, Dxf::readScale, Dxf::writeScale).unlessIs(Dxf::hasNoPattern),
        dxf::integer<&AcDbHatch::mDouble>(77).unlessIs(Dxf::hasNoPattern),
        dxf::custom(78, Dxf::readLines, Dxf::writeLines).unlessIs(Dxf::hasNoPattern),
        dxf::custom(47, Dxf::readPixelSize, Dxf::writePixelSize),
        dxf::custom(98, Dxf::readSeeds, Dxf::writeSeeds),
        dxf::custom(450, Dxf::readGradientInteger<&hatch::Gradient::isGradient>, Dxf::writeGradientOf)
            .from(DxfVersion::r2004),
        dxf::custom(451, Dxf::readGradientInteger<&hatch::Gradient::reserved>, nullptr),
        dxf::custom(460, Dxf::readGradientReal<&hatch::Gradient::angle>, nullptr),
        dxf::custom(461, Dxf::readGradientReal<&hatch::Gradient::shift>, nullptr),
        dxf::custom(452, Dxf::readGradientInteger<&hatch::Gradient::isOneColor>, nullptr),
        dxf::custom(462, Dxf::readGradientReal<&hatch::Gradient::tint>, nullptr),
        dxf::custom(453, Dxf::readGradientInteger<&hatch::Gradient::colorCount>, nullptr),
        dxf::custom(463, Dxf::readStop, nullptr),
        dxf::custom(63, Dxf::readStopIndex, nullptr),
        dxf::custom(421, Dxf::readStopColor, nullptr),
        dxf::custom(470, Dxf::readGradientName, nullptr),
    });
