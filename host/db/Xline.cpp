#include "dbxline.h"

#include "acgi.h"
#include "ClassRegistration.h"
#include "DxfFields.h"
#include "geline3d.h"

ACDB_DXF_CLASS(AcDbXline, AcDbCurve, XLINE)

const DxfClass AcDbXline::dxf("AcDbXline", &AcDbCurve::dxf,
                              {
                                  dxf::point<&AcDbXline::mBase>(10),
                                  dxf::point<&AcDbXline::mDirection>(11),
                              });

Acad::ErrorStatus AcDbXline::reverseCurve()
{
    const Acad::ErrorStatus status = beginChange();
    if (status == Acad::eOk) mDirection.negate();
    return status;
}

std::unique_ptr<AcGeCurve3d> AcDbXline::makeGeCurve() const
{
    return makeExtendedGeCurve();
}

bool AcDbXline::subWorldDraw(AcGiWorldDraw* draw)
{
    draw->geometry().xline(mBase, secondPoint());
    return true;
}
