#include "GridUcs.h"

#include "arxHeaders.h"

GridUcs::GridUcs(const AcGePoint3d& origin, double rotation)
{
    if (acedGetCurrentUCS(m_before) != Acad::eOk) return;
    AcGeMatrix3d move, turn;
    move.setToTranslation(origin.asVector());
    turn.setToRotation(rotation, AcGeVector3d::kZAxis);
    m_isSet = acedSetCurrentUCS(m_before * move * turn) == Acad::eOk;
}

GridUcs::~GridUcs()
{
    if (m_isSet) acedSetCurrentUCS(m_before);
}
