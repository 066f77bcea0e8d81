#include "TypedPoint.h"

#include "dbmain.h"
#include "VariableStore.h"

#include <array>
#include <cmath>

namespace
{
using ed::InputUnits;
using ed::TypedPoint;

std::wstring_view blanksOff(std::wstring_view text)
{
    while (!text.empty() && text.front() == L' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == L' ')
        text.remove_suffix(1);
    return text;
}

bool skip(std::wstring_view& text, wchar_t c)
{
    if (text.empty() || text[0] != c) return false;
    text.remove_prefix(1);
    return true;
}

/// Takes the signs off that say what coordinates relate to.
void readSigns(std::wstring_view& text, TypedPoint& point)
{
    if (skip(text, L'#')) return;
    point.world = skip(text, L'*');
    point.relative = skip(text, L'@');
    point.world = point.world || skip(text, L'*');
}

std::optional<TypedPoint> readCartesian(std::wstring_view text, const InputUnits& units, TypedPoint point)
{
    std::array<double*, 3> values = {&point.first, &point.second, &point.third};
    std::size_t count = 0;
    for (bool more = true; more; ++count) {
        const std::size_t end = std::min(text.find(L','), text.size());
        const std::optional<double> value =
            count < 3 ? ed::readLength(text.substr(0, end), units) : std::nullopt;
        if (!value) return std::nullopt;
        *values[count] = *value;
        more = end < text.size();
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    point.hasHeight = count == 3;
    if (count == 1) point.kind = TypedPoint::Kind::distance;
    return point;
}

/// What stands behind the first direction: nothing, ",z" or "<angle".
std::optional<TypedPoint> readThird(std::wstring_view text, const InputUnits& units, TypedPoint point)
{
    if (text.empty()) return point;
    const bool spherical = text[0] == L'<';
    text.remove_prefix(1);
    InputUnits fromPlane;
    fromPlane.angular = units.angular;
    const std::optional<double> third =
        spherical ? ed::readDirection(text, fromPlane) : ed::readLength(text, units);
    if (!third) return std::nullopt;
    point.third = *third;
    point.hasHeight = !spherical;
    if (spherical) point.kind = TypedPoint::Kind::spherical;
    return point;
}

std::optional<TypedPoint> readPolar(std::wstring_view text, std::size_t sign, const InputUnits& units,
                                    TypedPoint point)
{
    const std::wstring_view front = blanksOff(text.substr(0, sign));
    text.remove_prefix(sign + 1);
    const std::size_t digits = std::min(text.find_first_not_of(L'<'), text.size());
    const std::size_t end = std::min(text.find_first_of(L"<,", digits), text.size());
    const std::optional<double> length = front.empty() ? std::optional(0.0) : ed::readLength(front, units);
    const std::optional<double> direction = ed::readDirection(text.substr(0, end), units);
    if (!length || !direction) return std::nullopt;
    point.first = *length;
    point.second = *direction;
    point.kind = front.empty() ? TypedPoint::Kind::direction : TypedPoint::Kind::polar;
    if (front.empty() && end < text.size()) return std::nullopt;
    return readThird(text.substr(end), units, point);
}

/// As a vector; without height it stays in its plane.
AcGeVector3d offsetOf(const TypedPoint& typed)
{
    switch (typed.kind) {
    case TypedPoint::Kind::cartesian:
        return {typed.first, typed.second, typed.third};
    case TypedPoint::Kind::polar:
        return {typed.first * std::cos(typed.second), typed.first * std::sin(typed.second), typed.third};
    case TypedPoint::Kind::spherical: {
        const double flat = typed.first * std::cos(typed.third);
        return {flat * std::cos(typed.second), flat * std::sin(typed.second),
                typed.first * std::sin(typed.third)};
    }
    default:
        return AcGeVector3d::kIdentity;
    }
}
} // namespace

namespace ed
{
InputUnits currentUnits()
{
    InputUnits units;
    const AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    if (!db) return units;
    units.linear = static_cast<units::Linear>(db->lunits());
    units.angular = static_cast<units::Angular>(db->aunits() % 4); // surveyors type degrees
    units.angleBase = db->angbase();
    units.clockwise = db->angdir();
    return units;
}

std::optional<double> readLength(std::wstring_view text, const InputUnits& units)
{
    return units::readLength(blanksOff(text), units.linear);
}

std::optional<double> readDirection(std::wstring_view text, const InputUnits& units)
{
    text = blanksOff(text);
    const bool fromEast = skip(text, L'<');
    const bool inUnit = !fromEast || skip(text, L'<');
    const std::optional<double> angle =
        units::readAngle(text, inUnit ? units.angular : units::Angular::degrees);
    if (!angle || fromEast) return angle;
    return units.angleBase + (units.clockwise ? -*angle : *angle);
}

std::optional<TypedPoint> parsePoint(std::wstring_view text, const InputUnits& units)
{
    TypedPoint point;
    text = blanksOff(text);
    readSigns(text, point);
    if (text.empty()) {
        point.kind = TypedPoint::Kind::last;
        return point.relative ? std::optional(point) : std::nullopt;
    }
    const std::size_t sign = text.find(L'<');
    if (sign == std::wstring_view::npos) return readCartesian(text, units, point);
    return readPolar(text, sign, units, point);
}

AcGePoint3d placed(const TypedPoint& typed, const PointFrame& frame)
{
    const AcGeVector3d offset = offsetOf(typed);
    const AcGeMatrix3d worldToUcs = typed.world ? frame.ucsToWorld.inverse() : AcGeMatrix3d::kIdentity;
    if (typed.relative) return frame.origin + worldToUcs * offset;
    const bool lies = !typed.hasHeight && typed.kind != TypedPoint::Kind::spherical;
    return worldToUcs * AcGePoint3d(offset.x, offset.y, lies ? frame.elevation : offset.z);
}
} // namespace ed
