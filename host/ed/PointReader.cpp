#include "PointReader.h"

#include "CommandLine.h"
#include "CurrentUcs.h"
#include "ObjectSnap.h"
#include "PlanarCoords.h"
#include "VariableStore.h"

#include <cmath>

namespace
{
using ed::Answer;
using ed::PointContext;
using ed::TypedPoint;
using ed::Verdict;

constexpr int deepest = 8; ///< of questions within questions
constexpr const wchar_t* noPoint = L"Invalid point.";

long integerVariable(const wchar_t* name)
{
    const std::optional<ed::VariableValue> value = ed::readVariable(name);
    return value ? value->integer : 0;
}

AcGeVector3d towards(double angle)
{
    return {std::cos(angle), std::sin(angle), 0.0};
}

/// Along one of the axes of the UCS, the one that the vector is closer to.
AcGeVector3d alongAxis(const AcGeVector3d& offset)
{
    return std::fabs(offset.x) >= std::fabs(offset.y) ? AcGeVector3d(offset.x, 0.0, 0.0)
                                                      : AcGeVector3d(0.0, offset.y, 0.0);
}

bool isOrtho()
{
    return integerVariable(L"ORTHOMODE") == 1;
}

/// Reads one point; asks further questions within it.
class PointReader
{
public:
    PointReader(PointContext context, int depth) : mContext(std::move(context)), mDepth(depth) {}

    Verdict read(const std::wstring& text, AcGePoint3d& point, std::wstring& message)
    {
        const std::optional<TypedPoint> typed = ed::parsePoint(text, ed::currentUnits());
        if (typed) return place(*typed, point, message);
        if (const std::optional<int> modes = ed::snapModes(text)) return snap(*modes, text, point, message);
        if (const std::optional<int> axes = filterAxes(text)) return filter(*axes, point, message);
        const std::wstring word = ed::upperCase(text);
        if (word == L"FROM" || word == L"_FROM") return offsetFrom(point, message);
        if (word == L"M2P" || word == L"MTP" || word == L"_M2P" || word == L"_MTP")
            return between(point, message);
        return Verdict::notUnderstood;
    }

private:
    Verdict place(const TypedPoint& typed, AcGePoint3d& point, std::wstring& message)
    {
        if (typed.kind == TypedPoint::Kind::distance) return goAlong(typed.first, point);
        if (typed.kind == TypedPoint::Kind::direction) return lock(typed.second, point, message);
        if (typed.kind == TypedPoint::Kind::last) {
            point = ed::lastPoint();
            return Verdict::good;
        }
        const AcGePoint3d origin = mContext.base ? *mContext.base : ed::lastPoint();
        const AcGePoint3d placed = ed::placed(typed, {origin, ed::ucsToWorld(), ed::elevation()});
        if (!isFinite(placed)) return Verdict::notUnderstood;
        point = placed;
        return Verdict::good;
    }

    Verdict goAlong(double distance, AcGePoint3d& point) const
    {
        if (!mContext.base || !mContext.directDistance) return Verdict::notUnderstood;
        const AcGePoint3d end = *mContext.base + aim() * distance;
        if (!isFinite(end)) return Verdict::notUnderstood;
        point = end;
        return Verdict::good;
    }

    /// Where a distance goes: the locked direction, else towards the cursor.
    AcGeVector3d aim() const
    {
        if (mLocked) return towards(*mLocked);
        const std::optional<AcGePoint3d>& cursor = ed::currentInput().cursor();
        AcGeVector3d offset = cursor ? *cursor - *mContext.base : AcGeVector3d::kIdentity;
        if (mContext.followsOrtho && isOrtho()) offset = alongAxis(offset);
        return offset.isZeroLength() ? AcGeVector3d::kXAxis : offset.normal();
    }

    /// An angle override: the point that follows falls onto that direction.
    Verdict lock(double angle, AcGePoint3d& point, std::wstring& message)
    {
        if (!mContext.base) return Verdict::notUnderstood;
        mLocked = angle;
        AcGePoint3d free;
        const Verdict verdict = ask(L"", mContext, free, message);
        if (verdict != Verdict::good) return verdict;
        const AcGeVector3d direction = towards(angle);
        const AcGeVector3d offset = free - *mContext.base;
        point = *mContext.base + direction * offset.dotProduct(direction) + AcGeVector3d(0.0, 0.0, offset.z);
        return Verdict::good;
    }

    Verdict snap(int modes, const std::wstring& name, AcGePoint3d& point, std::wstring& message)
    {
        AcGePoint3d pick;
        const bool none = modes == ed::snap::none;
        const Verdict verdict = ask(none ? L"" : L" of ", {}, pick, message);
        if (verdict != Verdict::good || none) {
            point = pick;
            return verdict;
        }
        const AcGeMatrix3d toWorld = ed::ucsToWorld();
        std::optional<AcGePoint3d> from;
        if (mContext.base) from = toWorld * *mContext.base;
        const std::optional<AcGePoint3d> found = ed::snapped(toWorld * pick, modes, from);
        if (found) point = toWorld.inverse() * *found;
        if (!found) message = L"No " + name + L" found for specified point.";
        return found ? Verdict::good : Verdict::refused;
    }

    /// The axes of ".x", ".xy" ...: bits 1, 2 and 4.
    static std::optional<int> filterAxes(const std::wstring& text)
    {
        if (text.size() < 2 || text.size() > 3 || text[0] != L'.') return std::nullopt;
        int axes = 0;
        for (const wchar_t axis : ed::upperCase(text.substr(1))) {
            const int bit = axis == L'X' ? 1 : axis == L'Y' ? 2 : axis == L'Z' ? 4 : 0;
            if (bit == 0 || (axes & bit)) return std::nullopt;
            axes |= bit;
        }
        return axes;
    }

    Verdict filter(int axes, AcGePoint3d& point, std::wstring& message)
    {
        AcGePoint3d given, rest;
        Verdict verdict = ask(L" of ", mContext, given, message);
        std::wstring need = L" (need ";
        for (unsigned axis = 0; axis < 3; ++axis) {
            if (!(axes & (1 << axis))) need += L"XYZ"[axis];
        }
        if (verdict == Verdict::good) verdict = ask((need + L"): ").c_str(), mContext, rest, message);
        if (verdict != Verdict::good) return verdict;
        for (unsigned axis = 0; axis < 3; ++axis)
            point[axis] = axes & (1 << axis) ? given[axis] : rest[axis];
        return Verdict::good;
    }

    Verdict offsetFrom(AcGePoint3d& point, std::wstring& message)
    {
        AcGePoint3d base;
        const Verdict verdict = ask(L" Base point: ", mContext, base, message);
        if (verdict != Verdict::good) return verdict;
        PointContext context = mContext;
        context.base = base;
        return ask(L" <Offset>: ", context, point, message);
    }

    Verdict between(AcGePoint3d& point, std::wstring& message)
    {
        AcGePoint3d first, second;
        Verdict verdict = ask(L"First point of mid: ", {}, first, message);
        if (verdict == Verdict::good) verdict = ask(L"Second point of mid: ", {}, second, message);
        if (verdict == Verdict::good) point = first + (second - first) * 0.5;
        return verdict;
    }

    /// Asks for a point that this one needs. Anything else than a point ends the whole.
    Verdict ask(const wchar_t* prompt, const PointContext& context, AcGePoint3d& point, std::wstring& message)
    {
        message = noPoint;
        if (mDepth >= deepest) return Verdict::refused;
        ed::print(prompt);
        const Answer answer = ed::currentInput().next(ed::Reading::token);
        if (answer.kind == Answer::Kind::cancel) return Verdict::cancelled;
        if (answer.kind != Answer::Kind::text) return Verdict::refused;
        PointReader inner(context, mDepth + 1);
        inner.mLocked = mLocked;
        const Verdict verdict = inner.read(answer.text, point, message);
        return verdict == Verdict::notUnderstood ? Verdict::refused : verdict;
    }

    PointContext mContext;
    int mDepth;
    std::optional<double> mLocked;
};

bool isOutsideOfLimits(const AcGePoint3d& point)
{
    if (integerVariable(L"LIMCHECK") != 1) return false;
    const std::optional<ed::VariableValue> least = ed::readVariable(L"LIMMIN"),
                                           most = ed::readVariable(L"LIMMAX");
    if (!least || !most) return false;
    const AcGePoint3d world = ed::ucsToWorld() * point;
    return world.x < least->point.x || world.y < least->point.y || world.x > most->point.x ||
           world.y > most->point.y;
}

AcGePoint3d followed(const AcGePoint3d& cursor, const PointContext& context)
{
    return context.base && context.followsOrtho && isOrtho()
               ? *context.base + alongAxis(cursor - *context.base)
               : cursor;
}

/// OSNAPCOORD 0 lets the running snaps work on typed points as on picked ones.
AcGePoint3d runningSnap(const AcGePoint3d& point, const PointContext& context)
{
    const int modes = static_cast<int>(integerVariable(L"OSMODE"));
    if (integerVariable(L"OSNAPCOORD") != 0 || modes == 0 || (modes & ed::snap::none)) return point;
    const AcGeMatrix3d toWorld = ed::ucsToWorld();
    std::optional<AcGePoint3d> from;
    if (context.base) from = toWorld * *context.base;
    const std::optional<AcGePoint3d> found = ed::snapped(toWorld * point, modes, from);
    return found ? toWorld.inverse() * *found : point;
}
} // namespace

namespace ed
{
Verdict readPoint(const Answer& answer, const PointContext& context, AcGePoint3d& point,
                  std::wstring& message)
{
    if (answer.kind == Answer::Kind::cursor) {
        point = followed(answer.point, context);
        return isFinite(point) ? Verdict::good : Verdict::notUnderstood;
    }
    AcGePoint3d read;
    const Verdict verdict = PointReader(context, 0).read(answer.text, read, message);
    if (verdict != Verdict::good) return verdict;
    const bool coordinates = parsePoint(answer.text, currentUnits()).has_value();
    if (coordinates) read = runningSnap(read, context);
    if (context.checkLimits && isOutsideOfLimits(read)) {
        message = L"**Outside limits";
        return Verdict::refused;
    }
    point = read;
    return Verdict::good;
}

AcGePoint3d lastPoint()
{
    const std::optional<VariableValue> value = readVariable(L"LASTPOINT");
    return value ? value->point : AcGePoint3d::kOrigin;
}

void setLastPoint(const AcGePoint3d& point)
{
    writeVariable(L"LASTPOINT", VariableValue::ofPoint(point));
}

double elevation()
{
    const std::optional<VariableValue> value = readVariable(L"ELEVATION");
    return value ? value->real : 0.0;
}
} // namespace ed
