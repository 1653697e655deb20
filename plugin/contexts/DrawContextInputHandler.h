#pragma once

#include "contexts/WatchedViews.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

class QMouseEvent;
class QTabletEvent;

/// Watches the views and the time slider while the draw tool is in use, for what the host does not pass on to tools:
/// the tablet's pen, and the right button, which opens menus.
class DrawContextInputHandler : public QObject {
    Q_OBJECT

public:
    void setUp();
    void cleanUp();
    /// Watches the active view too.
    void watchActiveView() { m_views.addActive(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void followPen(const QTabletEvent& event);
    /// Opens the menu of what is pressed; false when the press is the host's.
    bool openMenu(QObject* pressed, const QMouseEvent& event);

    WatchedViews m_views{*this};
    QPointer<QWidget> m_timeSlider;
    bool m_backslashHeld = false;
};
