#include "AreaJig.h"

#include "NewEntity.h"

namespace entity
{
AreaJig::AreaJig() : m_ucsToWorld(ucsToWorld())
{
    m_shown.setDatabaseDefaults();
}

void AreaJig::ask()
{
    setDispPrompt(m_points.isEmpty() ? L"\n指定起点: "
                  : canClose()       ? L"\n指定下一点或 [闭合(C)/放弃(U)]: "
                                     : L"\n指定下一点或 [放弃(U)]: ");
    setKeywordList(m_points.isEmpty() ? L"" : canClose() ? L"Undo Close" : L"Undo");
}

AcEdJig::DragStatus AreaJig::sampler()
{
    setUserInputControls(static_cast<UserInputControls>(kNullResponseAccepted | kAccept3dCoordinates));
    const AcGePoint3d before = m_cursor;
    const DragStatus status =
        m_points.isEmpty() ? acquirePoint(m_cursor) : acquirePoint(m_cursor, m_ucsToWorld * m_points.last());
    return status == kNormal && m_cursor.isEqualTo(before) ? kNoChange : status;
}

Adesk::Boolean AreaJig::update()
{
    const AcGePoint3d cursor = m_ucsToWorld.inverse() * m_cursor;
    m_shown.reset(false, 0);
    m_shown.setNormal(AcGeVector3d::kZAxis);
    m_shown.setElevation(m_points.isEmpty() ? cursor.z : m_points[0].z);
    for (const AcGePoint3d& point : m_points)
        m_shown.addVertexAt(m_shown.numVerts(), {point.x, point.y});
    m_shown.addVertexAt(m_shown.numVerts(), {cursor.x, cursor.y});
    m_shown.setClosed(true);
    return m_shown.transformBy(m_ucsToWorld) == Acad::eOk;
}

AcDbEntity* AreaJig::entity() const
{
    return &m_shown;
}

void AreaJig::take()
{
    AcGePoint3d point = m_ucsToWorld.inverse() * m_cursor;
    if (!m_points.isEmpty()) point.z = m_points[0].z;
    m_points.append(point);
}

bool AreaJig::isEnd(DragStatus status) const
{
    return status == static_cast<DragStatus>(kClose) || (status == kNull && !m_points.isEmpty());
}

DrawnPoints AreaJig::run()
{
    while (true) {
        ask();
        const DragStatus status = drag();
        if (status == kNormal) {
            take();
        } else if (status == static_cast<DragStatus>(kUndo)) {
            m_points.removeLast();
        } else if (!isEnd(status)) {
            return {};
        } else if (canClose()) {
            return {m_points, DrawnEnd::closed};
        }
    }
}

DrawnPoints askArea()
{
    return AreaJig().run();
}
} // namespace entity
