#include "CGloableVar.h"

CGloableVar g_CGloableVar;

void CGloableVar::setError(int value)
{
    m_error = value;
}

int CGloableVar::getError() const
{
    return m_error;
}

void CGloableVar::setHideTcTk(int value)
{
    m_hideTcTk = value;
}

int CGloableVar::getHideTcTk() const
{
    return m_hideTcTk;
}

void CGloableVar::setQmToolsLoaded(int value)
{
    m_qmToolsLoaded = value;
}

int CGloableVar::getQmToolsLoaded() const
{
    return m_qmToolsLoaded;
}

void CGloableVar::setMouseInView(int value)
{
    m_mouseInView = value;
}

int CGloableVar::getMouseInView() const
{
    return m_mouseInView;
}

void CGloableVar::setLastPickedPoint(const AcGePoint3d& point)
{
    m_lastPickedPoint = point;
}

const AcGePoint3d& CGloableVar::getLastPickedPoint() const
{
    return m_lastPickedPoint;
}

void CGloableVar::setPendingEnter(int value)
{
    m_pendingEnter = value;
}

int CGloableVar::getPendingEnter() const
{
    return m_pendingEnter;
}

void CGloableVar::setReShowDwgBar(int value)
{
    m_reShowDwgBar = value;
}

int CGloableVar::getReShowDwgBar() const
{
    return m_reShowDwgBar;
}

void CGloableVar::setTuoZhuaiEntCmdRuning(int value)
{
    m_tuoZhuaiEntCmdRuning = value;
}

int CGloableVar::getTuoZhuaiEntCmdRuning() const
{
    return m_tuoZhuaiEntCmdRuning;
}

void CGloableVar::setXunHuanTip(int value)
{
    m_xunHuanTip = value;
}

int CGloableVar::getXunHuanTip() const
{
    return m_xunHuanTip;
}

void CGloableVar::setTuoZhuaiEnt(struTuoZhuaiEnt entity)
{
    m_tuoZhuaiEnt = entity;
}

const struTuoZhuaiEnt& CGloableVar::getTuoZhuaiEnt() const
{
    return m_tuoZhuaiEnt;
}

void CGloableVar::iniXunHuanTip()
{
    if (m_error == 0) return;
    m_error = 0;
    m_xunHuanTip = 0;
}
