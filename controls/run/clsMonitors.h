#pragma once

#include "run/clsMonitor.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QVariant>
#include <memory>

class QWidget;

// Finds the display monitors of the machine. Creating the object refreshes
// Monitors; the run console reads it once, at initialise, and takes the
// monitor in second place as the projector.
//
// Refresh samples the virtual desktop on a grid rather than asking for a list,
// so that Monitors comes in the order in which the grid meets the monitors:
// rows from the top, left to right in a row.
//
// Every monitor and metric query goes through Platform::Current(). No member
// shows a message: the failures of the look-ups end the member quietly.
class clsMonitors : public QObject {
    Q_OBJECT
    Q_PROPERTY(qint32 DesktopLeft READ DesktopLeft)
    Q_PROPERTY(qint32 DesktopTop READ DesktopTop)
    Q_PROPERTY(qint32 DesktopWidth READ DesktopWidth)
    Q_PROPERTY(qint32 DesktopHeight READ DesktopHeight)

public:
    // The monitors found, in the order of discovery, each under the key of its
    // handle as text ("65537"; "0" for the one made from the screen). Works as
    // a collection of the runtime: positions from 1; a wrong position raises 9
    // "Subscript out of range", an unknown key 5 "Invalid procedure call or
    // argument", a key added twice 457; keys are compared without regard to case.
    class MonitorCollection {
    public:
        qint32 Count() const { return static_cast<qint32>(m_items.size()); }
        clsMonitor& Item(qint32 Index);
        clsMonitor& Item(const QString& Key);
        void Add(const clsMonitor& Item, const QString& Key);
        void Remove(qint32 Index);

    private:
        qsizetype position(qint32 Index) const;
        struct Entry {
            QString Key;
            clsMonitor Monitor;
        };
        QList<Entry> m_items;
    };

    explicit clsMonitors(QObject* parent = nullptr);
    ~clsMonitors() override;

    // Made on first use, after Refresh dropped the last one.
    MonitorCollection& Monitors();

    // The virtual desktop (metrics 76 to 79). On a machine that doesn't know
    // the multi-monitor metrics: 0, 0, and the width and height of the screen.
    qint32 DesktopLeft();
    qint32 DesktopTop();
    qint32 DesktopWidth();
    qint32 DesktopHeight();

    // The monitor of a window; 0 when there is none or the look-up fails.
    qint32 GetMonitorFromWindow(const QWidget* hWnd, qint32 dwFlags);
    // Moves FormToCenter, keeping its size, to the middle of the work area of
    // the monitor of ReferenceForm (of the primary monitor without one), or of
    // the screen when no monitor is found. The result is never set.
    QVariant CenterFormOnMonitor(QWidget* FormToCenter, const QWidget* ReferenceForm = nullptr);
    // The monitor at a point: the platform's answer for the one-pixel area at
    // (X, Y), 0 for none with flag MONITOR_DEFAULTTONULL, -1 when the look-up
    // fails.
    qint32 GetMonitorFromXYPoint(qint32 X, qint32 Y, qint32 dwFlags);
    // Rebuilds Monitors.
    void Refresh();

private:
    qint32 GetSystemMetrics2(qint32 lItem, qint32 lDefault);
    qint32 GetMonitorInformation(qint32 hMonitor, clsMonitor& objMonitor);
    void ClearMonitorsCollection();
    clsMonitor ScreenMonitor();
    void WalkDesktopGrid();
    void AddMonitorAt(qint32 hMonitor);

    std::unique_ptr<MonitorCollection> m_colMonitors;
};
