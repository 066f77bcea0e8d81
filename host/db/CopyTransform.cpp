#include "CopyTransform.h"

#include "dbentity.h"
#include "DbObjectAccess.h"

Acad::ErrorStatus mayTransformAll(const std::vector<AcDbObjectId>& entities, const AcGeMatrix3d& xform)
{
    for (const AcDbObjectId id : entities) {
        const AcDbObject* object = id.isErased() ? nullptr : residentObject(id);
        const std::unique_ptr<AcRxObject> trial(object ? object->clone() : nullptr);
        auto* entity = AcDbEntity::cast(trial.get());
        const Acad::ErrorStatus status = entity ? entity->transformBy(xform) : Acad::eOk;
        if (status == Acad::eCannotScaleNonUniformly) return status;
    }
    return Acad::eOk;
}

void transformAll(const std::vector<AcDbObjectId>& entities, const AcGeMatrix3d& xform)
{
    for (const AcDbObjectId id : entities) {
        auto* entity = AcDbEntity::cast(residentObject(id));
        if (!entity || DbObjectAccess::openUnlocked(*entity) != Acad::eOk) continue;
        entity->transformBy(xform);
        entity->close();
    }
}
