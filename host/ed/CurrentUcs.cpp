#include "CurrentUcs.h"

#include "VariableStore.h"

AcGeMatrix3d ed::ucsToWorld()
{
    const std::optional<VariableValue> origin = readVariable(L"UCSORG"), x = readVariable(L"UCSXDIR"),
                                       y = readVariable(L"UCSYDIR");
    if (!origin || !x || !y) return AcGeMatrix3d::kIdentity;
    const AcGeVector3d xAxis = x->point.asVector(), yAxis = y->point.asVector();
    return AcGeMatrix3d().setCoordSystem(origin->point, xAxis, yAxis, xAxis.crossProduct(yAxis));
}
