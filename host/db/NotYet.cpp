/// Members that are not there yet.

#include "dbblock.h"
#include "dbcurve.h"
#include "dbdatabase.h"

Acad::ErrorStatus AcDbCurve::extend(bool, const AcGePoint3d&) { return Acad::eNotImplementedYet; }
Acad::ErrorStatus AcDbCurve::extend(double) { return Acad::eNotImplementedYet; }
Acad::ErrorStatus AcDbCurve::getOffsetCurves(double, AcDbVoidPtrArray&) const { return Acad::eNotImplementedYet; }
Acad::ErrorStatus AcDbCurve::getOffsetCurvesGivenPlaneNormal(const AcGeVector3d&, double, AcDbVoidPtrArray&) const
{
    return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::getOrthoProjectedCurve(const AcGePlane&, AcDbCurve*&) const
{
    return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::getProjectedCurve(const AcGePlane&, const AcGeVector3d&, AcDbCurve*&) const
{
    return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::getSpline(AcDbSpline*&) const { return Acad::eNotImplementedYet; }
Acad::ErrorStatus AcDbCurve::getSplitCurves(const AcGePoint3dArray&, AcDbVoidPtrArray&) const
{
    return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::getSplitCurves(const AcGeDoubleArray&, AcDbVoidPtrArray&) const
{
    return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbCurve::createFromAcGeCurve(const AcGeCurve3d&, AcDbCurve*&, const AcGeVector3d*, const AcGeTol&)
{
    return Acad::eNotImplementedYet;
}

Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity*, AcDb::Intersect, AcGePoint3dArray&, Adesk::GsMarker,
                                            Adesk::GsMarker) const
{
    return Acad::eNotImplementedYet;
}
Acad::ErrorStatus AcDbEntity::intersectWith(const AcDbEntity*, AcDb::Intersect, const AcGePlane&, AcGePoint3dArray&,
                                            Adesk::GsMarker, Adesk::GsMarker) const
{
    return Acad::eNotImplementedYet;
}

Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId) { return Acad::eNotImplementedYet; }
Acad::ErrorStatus AcDbDatabase::setCeltype(AcDbObjectId) { return Acad::eNotImplementedYet; }
Acad::ErrorStatus AcDbDatabase::setCecolor(const AcCmColor&) { return Acad::eNotImplementedYet; }
Acad::ErrorStatus AcDbDatabase::setCeltscale(double) { return Acad::eNotImplementedYet; }
Acad::ErrorStatus AcDbDatabase::setCelweight(AcDb::LineWeight) { return Acad::eNotImplementedYet; }
Acad::ErrorStatus AcDbDatabase::setTextstyle(AcDbObjectId) { return Acad::eNotImplementedYet; }
