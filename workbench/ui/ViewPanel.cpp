#include "ui/ViewPanel.h"

#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QMenuBar>
#include <QPainter>
#include <QVBoxLayout>

namespace ui {

namespace {

/// The menus of a view. They are out of the way of the keyboard, which is the main menu's.
class PanelMenuBar : public QMenuBar {
public:
    explicit PanelMenuBar(ViewPanel& panel) : QMenuBar(&panel), m_panel(panel)
    {
        setNativeMenuBar(false);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }

protected:
    /// The Alt key opens the main menu alone.
    bool eventFilter(QObject*, QEvent*) override { return false; }
    /// Who opens a menu works in its view.
    void mousePressEvent(QMouseEvent* event) override
    {
        if (view::Viewports* const views = view::Viewports::installed()) {
            views->setActive(m_panel.view());
        }
        QMenuBar::mousePressEvent(event);
    }

private:
    ViewPanel& m_panel;
};

}  // namespace

ViewPanel::ViewPanel(QWidget* parent) : QFrame(parent), m_menuBar(new PanelMenuBar(*this))
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    layout->addWidget(m_menuBar);
    if (view::Viewports* const views = view::Viewports::installed()) {
        connect(views, SIGNAL(ActiveChanged()), this, SLOT(update()));
    }
}

void ViewPanel::setView(view::Viewport* view)
{
    m_view = view;
    static_cast<QVBoxLayout*>(layout())->addWidget(view, 1);
}

void ViewPanel::setMenuBar(bool on)
{
    m_hasMenuBar = on;
    m_menuBar->setVisible(on);
}

void ViewPanel::paintEvent(QPaintEvent*)
{
    const view::Viewports* const views = view::Viewports::installed();
    const bool isActive = views && views->active() == m_view && views->views().size() > 1;
    // The menus and the view cover all but the edge.
    QPainter(this).fillRect(rect(), palette().color(isActive ? QPalette::Highlight : QPalette::Shadow));
}

void ViewPanel::showEvent(QShowEvent* event)
{
    QFrame::showEvent(event);
    if (view::Viewports* const views = view::Viewports::installed()) {
        views->tellOfChange();
    }
}

void ViewPanel::hideEvent(QHideEvent* event)
{
    QFrame::hideEvent(event);
    if (view::Viewports* const views = view::Viewports::installed()) {
        views->tellOfChange();
    }
}

}  // namespace ui
