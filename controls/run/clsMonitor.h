#pragma once

#include <QMetaType>
#include <QtGlobal>

// One display monitor, as clsMonitors found it: the platform's handle (0 for
// the monitor made from the screen when the machine knows only one), the
// monitor's rectangle and its work area (the rectangle less task bars), in
// desktop pixels. Right and Bottom lie one past the last pixel, so that
// Width = Right - Left and Height = Bottom - Top.
//
// A plain value: every property is read and written as it stands.
class clsMonitor {
    Q_GADGET
    Q_PROPERTY(qint32 Handle READ Handle WRITE setHandle)
    Q_PROPERTY(qint32 Height READ Height WRITE setHeight)
    Q_PROPERTY(qint32 Width READ Width WRITE setWidth)
    Q_PROPERTY(qint32 Left READ Left WRITE setLeft)
    Q_PROPERTY(qint32 Right READ Right WRITE setRight)
    Q_PROPERTY(qint32 Top READ Top WRITE setTop)
    Q_PROPERTY(qint32 Bottom READ Bottom WRITE setBottom)
    Q_PROPERTY(qint32 WorkLeft READ WorkLeft WRITE setWorkLeft)
    Q_PROPERTY(qint32 WorkRight READ WorkRight WRITE setWorkRight)
    Q_PROPERTY(qint32 WorkTop READ WorkTop WRITE setWorkTop)
    Q_PROPERTY(qint32 WorkBottom READ WorkBottom WRITE setWorkBottom)

public:
    qint32 Handle() const { return m_lngHandle; }
    void setHandle(qint32 lngValue) { m_lngHandle = lngValue; }
    qint32 Height() const { return m_lngHeight; }
    void setHeight(qint32 lngValue) { m_lngHeight = lngValue; }
    qint32 Width() const { return m_lngWidth; }
    void setWidth(qint32 lngValue) { m_lngWidth = lngValue; }
    qint32 Left() const { return m_lngLeft; }
    void setLeft(qint32 lngValue) { m_lngLeft = lngValue; }
    qint32 Right() const { return m_lngRight; }
    void setRight(qint32 lngValue) { m_lngRight = lngValue; }
    qint32 Top() const { return m_lngTop; }
    void setTop(qint32 lngValue) { m_lngTop = lngValue; }
    qint32 Bottom() const { return m_lngBottom; }
    void setBottom(qint32 lngValue) { m_lngBottom = lngValue; }
    qint32 WorkLeft() const { return m_lngWorkLeft; }
    void setWorkLeft(qint32 lngValue) { m_lngWorkLeft = lngValue; }
    qint32 WorkRight() const { return m_lngWorkRight; }
    void setWorkRight(qint32 lngValue) { m_lngWorkRight = lngValue; }
    qint32 WorkTop() const { return m_lngWorkTop; }
    void setWorkTop(qint32 lngValue) { m_lngWorkTop = lngValue; }
    qint32 WorkBottom() const { return m_lngWorkBottom; }
    void setWorkBottom(qint32 lngValue) { m_lngWorkBottom = lngValue; }

private:
    qint32 m_lngHandle = 0;
    qint32 m_lngHeight = 0;
    qint32 m_lngWidth = 0;
    qint32 m_lngLeft = 0;
    qint32 m_lngRight = 0;
    qint32 m_lngTop = 0;
    qint32 m_lngBottom = 0;
    qint32 m_lngWorkLeft = 0;
    qint32 m_lngWorkRight = 0;
    qint32 m_lngWorkTop = 0;
    qint32 m_lngWorkBottom = 0;
};

Q_DECLARE_METATYPE(clsMonitor)
