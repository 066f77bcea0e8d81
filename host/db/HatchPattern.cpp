/// The pattern of hatches: its lines, and what is kept of it as extended data.

#include "acutads.h"
#include "dbdatabase.h"
#include "dbhatch.h"
#include "dbsymtb.h"
#include "HatchEdges.h"
#include "HatchPatterns.h"
#include "PlanarCoords.h"

#include <cmath>

namespace
{
constexpr double smallest = 1e-10;
constexpr std::size_t mostLines = 1000000;
constexpr const wchar_t* originApplication = L"ACAD";
constexpr const wchar_t* backgroundApplication = L"HATCHBACKGROUNDCOLOR";

/// A dash of a length along a direction, after a map.
double mappedLength(double angle, const AcGeMatrix2d& map)
{
    return (map * AcGeVector2d(std::cos(angle), std::sin(angle))).length();
}

double mappedAngle(double angle, const AcGeMatrix2d& map)
{
    const AcGeVector2d along = map * AcGeVector2d(std::cos(angle), std::sin(angle));
    return std::atan2(along.y, along.x);
}

void mapLine(hatch::PatternLine& line, const AcGeMatrix2d& map)
{
    const double length = mappedLength(line.angle, map);
    for (double& dash : line.dashes)
        dash *= length;
    line.angle = mappedAngle(line.angle, map);
    line.base.transformBy(map);
    line.offset.transformBy(map);
}

void mapLines(std::vector<hatch::PatternLine>& lines, const AcGeMatrix2d& map)
{
    for (hatch::PatternLine& line : lines)
        mapLine(line, map);
}

AcGeMatrix2d placement(const AcGePoint2d& origin, double angle, double scale)
{
    return AcGeMatrix2d::translation(origin.asVector()) * AcGeMatrix2d::rotation(angle) *
           AcGeMatrix2d::scaling(scale);
}

bool isUsable(double size)
{
    return isFinite(size) && size > smallest;
}

bool hasApplication(AcDbDatabase& database, const wchar_t* name)
{
    AcDbRegAppTable* table = nullptr;
    if (database.getRegAppTable(table, AcDb::kForRead) != Acad::eOk) return false;
    const bool has = table->has(name);
    table->close();
    return has;
}

void registerApplication(AcDbDatabase& database, const wchar_t* name)
{
    AcDbRegAppTable* table = nullptr;
    if (hasApplication(database, name) || database.getRegAppTable(table, AcDb::kForWrite) != Acad::eOk)
        return;
    auto record = std::make_unique<AcDbRegAppTableRecord>();
    record->setName(name);
    if (table->add(record.get()) == Acad::eOk) record.release()->close();
    table->close();
}

/// The last step of a list of groups; the first group with a code, or null.
const resbuf* groupOf(const resbuf* chain, int code)
{
    while (chain && chain->restype != code)
        chain = chain->rbnext;
    return chain;
}
} // namespace

Acad::ErrorStatus AcDbHatch::beginPatternChange()
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mEvaluated.reset();
    return status;
}

Acad::ErrorStatus AcDbHatch::setPattern(HatchPatternType patType, const ACHAR* patName)
{
    if (!patName || patType < kUserDefined || patType > kCustomDefined) return Acad::eInvalidInput;
    const std::vector<hatch::PatternLine>* known = hatch::standardPattern(patName);
    if (patType != kUserDefined && !known) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginPatternChange();
    if (status != Acad::eOk) return status;
    mName = patName;
    mPatternType = static_cast<std::int16_t>(patType);
    if (patType == kUserDefined) return rebuildUserPattern();
    mName.MakeUpper();
    mLines = *known;
    mSolid = mLines.empty();
    mFileNamesPattern = false;
    mapLines(mLines, placement(mOrigin, mAngle, mScale));
    return status;
}

Acad::ErrorStatus AcDbHatch::rebuildUserPattern()
{
    mSolid = 0;
    mLines = hatch::userPattern(mSpace, mDouble != 0);
    mapLines(mLines, placement(mOrigin, mAngle, 1.0));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setPatternAngle(double angle)
{
    if (!isFinite(angle)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginPatternChange();
    if (status != Acad::eOk) return status;
    mapLines(mLines, AcGeMatrix2d::rotation(angle - mAngle, mOrigin));
    mAngle = angle;
    return status;
}

Acad::ErrorStatus AcDbHatch::setPatternScale(double scale)
{
    if (!isUsable(scale)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginPatternChange();
    if (status != Acad::eOk) return status;
    if (mPatternType != kUserDefined && mScale > 0.0)
        mapLines(mLines, AcGeMatrix2d::scaling(scale / mScale, mOrigin));
    mScale = scale;
    return status;
}

Acad::ErrorStatus AcDbHatch::setPatternSpace(double space)
{
    if (!isUsable(space)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginPatternChange();
    if (status != Acad::eOk) return status;
    mSpace = space;
    return mPatternType == kUserDefined ? rebuildUserPattern() : status;
}

Acad::ErrorStatus AcDbHatch::setPatternDouble(bool isDouble)
{
    const Acad::ErrorStatus status = beginPatternChange();
    if (status != Acad::eOk) return status;
    mDouble = isDouble;
    return mPatternType == kUserDefined ? rebuildUserPattern() : status;
}

Acad::ErrorStatus AcDbHatch::getPatternDefinitionAt(int index, double& angle, double& baseX, double& baseY,
                                                    double& offsetX, double& offsetY,
                                                    AcGeDoubleArray& dashes) const
{
    if (index < 0 || index >= numPatternDefinitions()) return Acad::eInvalidIndex;
    const hatch::PatternLine& line = mLines[static_cast<std::size_t>(index)];
    angle = line.angle;
    baseX = line.base.x;
    baseY = line.base.y;
    offsetX = line.offset.x;
    offsetY = line.offset.y;
    dashes.removeAll();
    for (const double dash : line.dashes)
        dashes.append(dash);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setOriginPoint(const AcGePoint2d& point)
{
    if (!isFinite(point)) return Acad::eInvalidInput;
    const Acad::ErrorStatus status = beginPatternChange();
    if (status != Acad::eOk) return status;
    mapLines(mLines, AcGeMatrix2d::translation(point - mOrigin));
    mOrigin = point;
    mOriginChanged = true;
    return status;
}

Acad::ErrorStatus AcDbHatch::setBackgroundColor(const AcCmColor& color)
{
    const Acad::ErrorStatus status = beginChange();
    if (status != Acad::eOk) return status;
    mBackground = color;
    mBackgroundChanged = true;
    return status;
}

void AcDbHatch::mapPattern(const AcGeMatrix2d& map)
{
    const double size = std::sqrt(std::fabs(map.det()));
    mapLines(mLines, map);
    mAngle = mappedAngle(mAngle, map);
    mScale *= size;
    mSpace *= size;
    const AcGePoint2d origin = map * mOrigin;
    mOriginChanged |= !origin.isEqualTo(mOrigin);
    mOrigin = origin;
}

Acad::ErrorStatus AcDbHatch::makeSegments(double finest, std::vector<hatch::Segment>& segments) const
{
    std::vector<kernel::HatchFamily> families;
    for (const hatch::PatternLine& line : mLines)
        families.push_back({line.angle, line.base, line.offset, line.dashes});
    kernel::HatchLimits limits;
    limits.mostPieces = mostLines;
    limits.finest = finest;
    const double deviation = finest > 0.0 ? finest : hatch::fineDeviation(mLoops);
    const auto pieces =
        kernel::hatchLoops(hatch::filledPolygons(mLoops, mStyle, deviation), families, limits);
    if (pieces.isTooDense) return Acad::eHatchTooDense;
    for (const kernel::HatchPiece& piece : pieces.lines)
        segments.push_back({piece.start, piece.end});
    for (const AcGePoint2d& dot : pieces.dots)
        segments.push_back({dot, dot});
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::evaluateHatch(bool)
{
    if (mLoops.empty()) return Acad::eInvalidInput;
    std::vector<hatch::Segment> segments;
    Acad::ErrorStatus status = makeSegments(0.0, segments);
    if (status == Acad::eOk) status = beginPatternChange();
    if (status == Acad::eOk) mEvaluated.need() = std::move(segments);
    return status;
}

Acad::ErrorStatus AcDbHatch::getHatchLineDataAt(int line, AcGePoint2d& startPt, AcGePoint2d& endPt) const
{
    if (line < 0 || line >= numHatchLines()) return Acad::eInvalidIndex;
    const hatch::Segment& segment = (*mEvaluated)[static_cast<std::size_t>(line)];
    startPt = segment.start;
    endPt = segment.end;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::getHatchLinesData(AcGePoint2dArray& startPts, AcGePoint2dArray& endPts) const
{
    for (int i = 0; i < numHatchLines(); ++i) {
        startPts.append((*mEvaluated)[static_cast<std::size_t>(i)].start);
        endPts.append((*mEvaluated)[static_cast<std::size_t>(i)].end);
    }
    return Acad::eOk;
}

void AcDbHatch::completeRead()
{
    resbuf* chain = xData(originApplication);
    if (const resbuf* origin = groupOf(chain, 1010))
        mOrigin.set(origin->resval.rpoint[0], origin->resval.rpoint[1]);
    acutRelRb(chain);
    chain = xData(backgroundApplication);
    if (const resbuf* color = groupOf(chain, 1071))
        mBackground.setColor(static_cast<std::uint32_t>(color->resval.rlong));
    acutRelRb(chain);
}

void AcDbHatch::writeExtraData()
{
    if (!database() || !(mOriginChanged || mBackgroundChanged)) return;
    if (mOriginChanged) {
        registerApplication(*database(), originApplication);
        ads_point origin = {mOrigin.x, mOrigin.y, 0.0};
        resbuf* chain = acutBuildList(1001, originApplication, 1010, origin, 0);
        setXData(chain);
        acutRelRb(chain);
    }
    if (mBackgroundChanged) {
        registerApplication(*database(), backgroundApplication);
        resbuf* chain =
            acutBuildList(1001, backgroundApplication, 1071, static_cast<long>(mBackground.color()), 0);
        setXData(chain);
        acutRelRb(chain);
    }
    mOriginChanged = mBackgroundChanged = false;
}
