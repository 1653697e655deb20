#pragma once

#include "contexts/WatchedViews.h"

#include <QMenu>
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
    /// A new menu for what is pressed; null when none is wanted there.
    QMenu* menuOf(QObject* pressed) const;

    WatchedViews m_views{*this};
    QPointer<QWidget> m_timeSlider;
    QPointer<QMenu> m_menu;  // the last that was opened
    bool m_backslashHeld = false;
};
