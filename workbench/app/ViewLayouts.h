#pragma once

#include "ui/PaneLayout.h"

#include <QPointer>

class QDockWidget;
class QMainWindow;

namespace view {
class Viewport;
}

namespace app {

/// How the main window's views share their room: in one of a few layouts, or one of them alone for a while.
class ViewLayouts {
public:
    /// panes: holds the views in the order in which layouts of one and two show them. window: the one they are in.
    ViewLayouts(QMainWindow& window, ui::PaneLayout& panes);

    /// 1, 2 side by side, or 4; every view in its usual place.
    void show(int count);
    /// Up to 4 when a script arranged the panes, 0 when it deleted them.
    int paneCount() const;
    /// Shows one view alone, or what there was before it (at first four views), every view where it was.
    /// wanted: the view to show; the active one for null or a view of another window.
    void swap(view::Viewport* wanted);

    /// Whether the panels docked around the views show as the user arranged them, or leave the views their room.
    bool showsPanels() const { return m_hiddenPanels.isEmpty(); }
    void setShowsPanels(bool on);

private:
    ui::PaneLayout::Arrangement usual(int count) const;
    void arrange(const ui::PaneLayout::Arrangement& arrangement, view::Viewport* worked);

    QMainWindow& m_window;
    QPointer<ui::PaneLayout> m_panes;
    QList<QPointer<QWidget>> m_home;
    ui::PaneLayout::Arrangement m_before;  ///< of several views, when there is one alone
    QList<QPointer<QDockWidget>> m_hiddenPanels;
};

}  // namespace app
