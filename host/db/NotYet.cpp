/// Members that are not there yet.

#include "dbdatabase.h"

Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId) { return Acad::eNotImplementedYet; }
Acad::ErrorStatus AcDbDatabase::setCeltype(AcDbObjectId) { return Acad::eNotImplementedYet; }
Acad::ErrorStatus AcDbDatabase::setCecolor(const AcCmColor&) { return Acad::eNotImplementedYet; }
Acad::ErrorStatus AcDbDatabase::setCeltscale(double) { return Acad::eNotImplementedYet; }
Acad::ErrorStatus AcDbDatabase::setCelweight(AcDb::LineWeight) { return Acad::eNotImplementedYet; }
Acad::ErrorStatus AcDbDatabase::setTextstyle(AcDbObjectId) { return Acad::eNotImplementedYet; }
