#include "geent2d.h"

bool AcGeEntity2d::isKindOf(AcGe::EntityId entType) const
{
    return entType == type() || entType == AcGe::kEntity2d;
}

AcGeEntity2d& AcGeEntity2d::translateBy(const AcGeVector2d& translateVec)
{
    return transformBy(AcGeMatrix2d::translation(translateVec));
}

AcGeEntity2d& AcGeEntity2d::rotateBy(double angle, const AcGePoint2d& wrtPoint)
{
    return transformBy(AcGeMatrix2d::rotation(angle, wrtPoint));
}

AcGeEntity2d& AcGeEntity2d::mirror(const AcGeLine2d& line)
{
    return transformBy(AcGeMatrix2d::mirroring(line));
}

AcGeEntity2d& AcGeEntity2d::scaleBy(double scaleFactor, const AcGePoint2d& wrtPoint)
{
    return transformBy(AcGeMatrix2d::scaling(scaleFactor, wrtPoint));
}
