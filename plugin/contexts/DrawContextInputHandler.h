#pragma once

#include "contexts/HeldKeys.h"
#include "contexts/PenContact.h"
#include "contexts/WatchedViews.h"

#include <QMenu>
#include <QObject>
#include <QPointer>
#include <QWidget>

class DrawContext;
class QMouseEvent;
class QTabletEvent;

/// Watches the host's windows, views and time slider while the draw tool is in use, for what the host does not pass on
/// to tools: keys, input methods, the tablet's pen, the right button, and a press that has lost its release.
class DrawContextInputHandler : public QObject {
    Q_OBJECT

public:
    explicit DrawContextInputHandler(DrawContext& tool) : m_tool(tool) {}

    void setUp();
    void cleanUp();
    /// Watches the active view too.
    void watchActiveView();
    const HeldKeys& heldKeys() const { return m_keys; }
    PenContact& pen() { return m_pen; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void OnViewDestroyed();

private:
    // Each tells whether the event goes no further.
    bool isClaimed(const QKeyEvent& key);
    bool pressKey(const QKeyEvent& key);
    bool releaseKey(const QKeyEvent& key);
    bool inputMethod(QEvent& event);
    bool pressButton(QObject* watched, const QMouseEvent& event);

    void movePointer(const QObject* watched, const QMouseEvent& event);
    /// Elsewhere a pen draws nothing, and its lifting may go unseen.
    void followPen(const QObject* watched, const QTabletEvent& event);
    /// Opens the menu of what is pressed; false when the press is the host's.
    bool openMenu(QObject* pressed, const QMouseEvent& event);
    /// A new menu for what is pressed; null when none is wanted there.
    QMenu* menuOf(QObject* pressed) const;

    DrawContext& m_tool;
    WatchedViews m_views{*this};
    HeldKeys m_keys;
    PenContact m_pen;
    QPointer<QWidget> m_timeSlider;
    QPointer<QMenu> m_menu;  // the last that was opened
};
