#pragma once

#include "support/LiveWorkbench.h"

namespace support {

/// The transform tool of a running workbench as the pointer and the keys work it in one view. Points are view pixels
/// from the upper left corner; the drags are made around the middle of the view.
class PointedTransform {
public:
    PointedTransform(LiveWorkbench& host, const QString& panel) : m_host(host), m_panel(panel) {}

    /// Makes it the tool in use, with nothing selected and the view active.
    void takeUp();
    void select(const QPoint& corner, const QPoint& opposite);
    /// Selects and floats.
    void begin(const QPoint& corner, const QPoint& opposite);
    void move(const QPoint& by);
    void turn(int degrees);  ///< clockwise
    /// Drags with the middle button as far as `reach`, and so many steps about there: how much that scales is a matter
    /// of how long it takes. separately: the height as the pointer goes up and down.
    void scale(const QPoint& reach, int steps, bool separately = false);
    /// An entry of the menu that the right button opens at a place. False when it is not to be seen.
    bool choose(const QString& entry, const QPoint& at);
    bool choose(const QString& entry);
    void apply() { m_host.key("Return"); }
    void revert() { m_host.key("BackSpace"); }
    void cancel() { m_host.key("Escape"); }

private:
    QPoint corner() { return m_host.viewRect(m_panel).topLeft(); }
    QPoint middle() { return m_host.viewRect(m_panel).center(); }
    void drag(const QVector<QPoint>& way, PointerButton button = PointerButton::Left);

    LiveWorkbench& m_host;
    const QString m_panel;
};

}  // namespace support
