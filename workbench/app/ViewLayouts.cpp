#include "app/ViewLayouts.h"

#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>

#include <algorithm>

namespace app {

namespace {

/// `order` has the places of the views among those of the program as their panes are counted.
const struct {
    int count;
    const char* configuration;
    int order[4];
} kLayouts[] = {
    {1, "single", {0, 1, 2, 3}},
    {2, "vertical2", {0, 1, 2, 3}},
    {4, "quad", {1, 0, 2, 3}},  // from above, through perspective, from the side, from the front: clockwise
};

}  // namespace

ViewLayouts::ViewLayouts(QMainWindow& window, ui::PaneLayout& panes) : m_window(window), m_panes(&panes)
{
    for (QWidget* panel : panes.placed()) {
        m_home << panel;
    }
    m_before = usual(4);
}

ui::PaneLayout::Arrangement ViewLayouts::usual(int count) const
{
    const auto* const layout =
        std::find_if(std::begin(kLayouts), std::end(kLayouts), [&](const auto& row) { return row.count == count; });
    ui::PaneLayout::Arrangement arrangement{layout->configuration, {}, {}};
    for (const int place : layout->order) {
        arrangement.order << m_home.value(place);
    }
    return arrangement;
}

void ViewLayouts::show(int count)
{
    if (!m_panes) {
        return;
    }
    if (paneCount() > 1) {
        m_before = m_panes->arrangement();
    }
    arrange(usual(count), view::Viewports::installed()->active());
}

int ViewLayouts::paneCount() const
{
    return m_panes ? m_panes->paneCount() : 0;
}

void ViewLayouts::swap(view::Viewport* wanted)
{
    if (!m_panes) {
        return;
    }
    view::Viewport* const active = view::Viewports::installed()->active();
    if (paneCount() == 1) {
        arrange(m_before, active);
        return;
    }
    for (view::Viewport* view : {wanted, active}) {
        const QList<QWidget*> panels = m_panes->placed();
        const auto around = std::find_if(panels.begin(), panels.end(),
                                         [&](const QWidget* panel) { return view && panel->isAncestorOf(view); });
        if (around != panels.end()) {
            m_before = m_panes->arrangement();
            arrange({"single", {*around}, {}}, view);
            return;
        }
    }
}

void ViewLayouts::setShowsPanels(bool on)
{
    if (on) {
        for (const QPointer<QDockWidget>& panel : m_hiddenPanels) {
            if (panel) {
                panel->show();
            }
        }
        m_hiddenPanels.clear();
        return;
    }
    for (QDockWidget* panel : m_window.findChildren<QDockWidget*>()) {
        if (!panel->isHidden() && !panel->isFloating()) {
            panel->hide();
            m_hiddenPanels << panel;
        }
    }
}

void ViewLayouts::arrange(const ui::PaneLayout::Arrangement& arrangement, view::Viewport* worked)
{
    view::Viewports& views = *view::Viewports::installed();
    const QPointer<view::Viewport> active = worked;
    const bool hadFocus = m_panes->isAncestorOf(QApplication::focusWidget());
    m_panes->setArrangement(arrangement);
    // The focus went through views that were hidden on the way, and ended in whatever comes after them.
    views.setActive(active);
    if (hadFocus && views.active()) {
        views.active()->setFocus();
    }
}

}  // namespace app
