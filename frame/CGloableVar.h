#pragma once

#include "dbid.h"
#include "gepnt3d.h"

#include <afxwin.h>

/// The entity of a running drag.
struct struTuoZhuaiEnt {
    AcDbObjectId entity;   ///< null: none is dragged
    AcGePoint3d basePoint; ///< where it was taken, in world coordinates
};

/// Flags that several modules share, all 0 at load. There is one object, g_CGloableVar. A setter stores its
/// argument and does nothing else; any value is a value.
class AFX_EXT_CLASS CGloableVar
{
public:
    /// A repeating command has failed: see iniXunHuanTip.
    void setError(int value);
    int getError() const;

    /// The tool palette is hidden.
    void setHideTcTk(int value);
    int getHideTcTk() const;

    /// The application's tools are loaded.
    void setQmToolsLoaded(int value);
    int getQmToolsLoaded() const;

    /// The last mouse move went to the drawing view; the module's own message hook sets it too.
    void setMouseInView(int value);
    int getMouseInView() const;

    /// Where the left mouse button was pressed or released last, in world coordinates; the message hook sets
    /// it.
    void setLastPickedPoint(const AcGePoint3d& point);
    const AcGePoint3d& getLastPickedPoint() const;

    /// Enter is to be sent to the command line; the message hook does so with the next message, once.
    void setPendingEnter(int value);
    int getPendingEnter() const;

    /// The drawing's tool bar is to be shown again.
    void setReShowDwgBar(int value);
    int getReShowDwgBar() const;

    /// The entity of a running drag, and whether the command that drags is running.
    void setTuoZhuaiEnt(struTuoZhuaiEnt entity);
    const struTuoZhuaiEnt& getTuoZhuaiEnt() const;
    void setTuoZhuaiEntCmdRuning(int value);
    int getTuoZhuaiEntCmdRuning() const;

    /// The tip of a repeating command has been shown.
    void setXunHuanTip(int value);
    int getXunHuanTip() const;
    /// Begins the tips anew after an error: when the error flag is not 0, clears it and the tip flag.
    void iniXunHuanTip();

private:
    int m_error = 0;
    int m_hideTcTk = 0;
    int m_qmToolsLoaded = 0;
    int m_mouseInView = 0;
    AcGePoint3d m_lastPickedPoint;
    int m_pendingEnter = 0;
    int m_reShowDwgBar = 0;
    struTuoZhuaiEnt m_tuoZhuaiEnt;
    int m_tuoZhuaiEntCmdRuning = 0;
    int m_xunHuanTip = 0;
};

extern AFX_EXT_DATA CGloableVar g_CGloableVar;
