/// Hatches and their outlines.

#include "CMakeEnt.h"

#include "dbhatch.h"
#include "dbobjptr.h"
#include "HatchBoundary.h"
#include "HatchOutlines.h"
#include "NewEntity.h"
#include "OpenReport.h"

#include <cmath>

namespace
{
bool setPlane(AcDbHatch& hatch, const AcGePlane& plane)
{
    return hatch.setNormal(plane.normal()) == Acad::eOk &&
           hatch.setElevation(plane.normal().dotProduct(plane.pointOnPlane().asVector())) == Acad::eOk;
}

bool setPattern(AcDbHatch& hatch, const CString& pattern, double scale, double angle)
{
    return hatch.setPatternScale(scale) == Acad::eOk && hatch.setPatternAngle(angle) == Acad::eOk &&
           hatch.setPattern(AcDbHatch::kPreDefined, pattern) == Acad::eOk;
}

/// The angle of the X axis of the user coordinate system in the plane of the hatch; 0 when it stands upright
/// on it, give or take rounding.
double turnOfUcs(const AcDbHatch& hatch)
{
    AcGeMatrix3d ecs;
    hatch.getEcs(ecs);
    const AcGeVector3d axis = ecs.inverse() * (entity::ucsToWorld() * AcGeVector3d::kXAxis);
    const bool isUpright = std::hypot(axis.x, axis.y) < AcGeContext::gTol.equalVector();
    return isUpright ? 0.0 : std::atan2(axis.y, axis.x);
}

bool appendLoops(AcDbHatch& hatch, const entity::HatchBoundary& boundary)
{
    for (const auto& loop : boundary.loops)
        if (hatch.appendLoop(loop.type, loop.ids) != Acad::eOk) return false;
    return true;
}

std::unique_ptr<AcDbHatch> hatchOver(const AcDbObjectIdArray& ids, const CString& pattern, double scale,
                                     double angle)
{
    entity::HatchBoundary boundary;
    auto hatch = entity::begin<AcDbHatch>();
    if (!entity::boundaryOf(ids, boundary) || !setPlane(*hatch, boundary.plane)) return nullptr;
    if (hatch->setHatchStyle(AcDbHatch::kNormal) != Acad::eOk || hatch->setAssociative(true) != Acad::eOk)
        return nullptr;
    if (!setPattern(*hatch, pattern, scale, angle + turnOfUcs(*hatch)) || !appendLoops(*hatch, boundary))
        return nullptr;
    return hatch->evaluateHatch() == Acad::eOk ? std::move(hatch) : nullptr;
}
} // namespace

int CArxEntity::CMakeEnt::MakeHatch(const AcDbObjectIdArray& ids, AcDbObjectId& id, CGTStringW pattern,
                                    double scale, double angle)
{
    return entity::addInWorld(hatchOver(ids, pattern, scale, angle), id);
}

int CArxEntity::CMakeEnt::MakeHatch(AcDbObjectId boundary, CGTStringW pattern, double scale, double angle,
                                    AcCmColor color, AcDbObjectId& id)
{
    AcDbObjectIdArray ids;
    ids.append(boundary);
    auto hatch = hatchOver(ids, pattern, scale, angle);
    if (!hatch || hatch->setColor(color) != Acad::eOk) return 0;
    return entity::addInWorld(std::move(hatch), id);
}

int CArxEntity::CMakeEnt::MakeHatchBoundary(AcDbObjectId hatchId, AcDbObjectIdArray& ids, int asRegions)
{
    const AcDbObjectPointer<AcDbHatch> hatch(hatchId, AcDb::kForRead);
    if (!entity::isOpen(hatch, L"MakeHatchBoundary")) return 0;
    std::vector<std::unique_ptr<AcDbEntity>> outlines;
    for (int i = 0; i < hatch->numLoops(); ++i)
        if (!entity::appendOutlines(*hatch.object(), i, asRegions != 0, outlines)) return 0;
    entity::Batch batch;
    for (auto& outline : outlines) {
        outline->setDatabaseDefaults();
        if (!batch.addInWorld(std::move(outline))) return 0;
    }
    return outlines.empty() ? 0 : batch.keep(ids);
}
