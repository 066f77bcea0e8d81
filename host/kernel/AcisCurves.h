#pragma once

/// Curves of modeller texts.

#include "AcisRecords.h"
#include "AcisText.h"

namespace kernel
{
/// The part of the curve of a record from one point to another, in the direction of the curve; the whole
/// closed curve when they are equal. `against`: in the other direction.
AcisStatus readAcisCurve(const AcisRecord& record, int version, const AcGePoint3d& from,
                         const AcGePoint3d& to, bool against, std::shared_ptr<const AcGeCurve3d>& curve);

/// The record of a curve that is run through from its start to its end, without its '#'. `base` stands
/// between its name and its fields.
std::string acisCurveRecord(const AcGeCurve3d& curve, int version, const std::string& base);

std::string acisText(const AcGePoint3d& p);
inline std::string acisText(const AcGeVector3d& v)
{
    return acisText(AcGePoint3d::kOrigin + v);
}
} // namespace kernel
