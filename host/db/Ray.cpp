#include "dbray.h"

#include "acgi.h"
#include "ClassRegistration.h"
#include "DxfFields.h"
#include "geray3d.h"

ACDB_DXF_CLASS(AcDbRay, AcDbCurve, RAY)

const DxfClass AcDbRay::dxf("AcDbRay", &AcDbCurve::dxf,
                            {
                                dxf::point<&AcDbRay::mBase>(10),
                                dxf::point<&AcDbRay::mDirection>(11),
                            });

Acad::ErrorStatus AcDbRay::reverseCurve()
{
    return Acad::eNotApplicable;
}

std::unique_ptr<AcGeCurve3d> AcDbRay::makeGeCurve() const
{
    return std::make_unique<AcGeRay3d>(mBase, mDirection);
}

bool AcDbRay::subWorldDraw(AcGiWorldDraw* draw)
{
    draw->geometry().ray(mBase, secondPoint());
    return true;
}
