#include "GridUcs.h"

#include "QmCADLib.h"

#include "arxHeaders.h"

#include <cmath>

GridUcs::GridUcs(const AcGePoint3d& origin, double rotation)
{
    if (acedGetCurrentUCS(m_before) != Acad::eOk) return;
    m_isSet = CFamStuUcs::MoveUcsOrigin(origin.asVector()) && CFamStuUcs::RotateUcs(rotation) &&
              acedGetCurrentUCS(m_frame) == Acad::eOk;
    if (!m_isSet) acedSetCurrentUCS(m_before);
}

GridUcs::~GridUcs()
{
    if (m_isSet) acedSetCurrentUCS(m_before);
}

bool GridUcs::readsUpsideDown(const AcGeVector3d& along) const
{
    AcGePoint3d start = m_frame * AcGePoint3d::kOrigin, end = m_frame * (AcGePoint3d::kOrigin + along);
    if (!CFamStuUcs::WcsToDCS(start) || !CFamStuUcs::WcsToDCS(end)) return false;
    const AcGeVector3d way = end - start;
    constexpr double upright = 1e-6; // what turning by 90 degrees leaves of a unit
    return std::abs(way.x) > upright ? way.x < 0.0 : way.y < 0.0;
}

AcGeVector3d GridUcs::toWorld(const AcGeVector3d& vector) const
{
    return m_frame * vector;
}
