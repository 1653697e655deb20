#include "ui/ViewPanel.h"

#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QPainter>
#include <QVBoxLayout>

namespace ui {

ViewPanel::ViewPanel(QWidget* parent) : QFrame(parent)
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    if (view::Viewports* const views = view::Viewports::installed()) {
        connect(views, SIGNAL(ActiveChanged()), this, SLOT(update()));
    }
}

void ViewPanel::setView(view::Viewport* view)
{
    m_view = view;
    layout()->addWidget(view);
}

void ViewPanel::paintEvent(QPaintEvent*)
{
    const view::Viewports* const views = view::Viewports::installed();
    const bool isActive = views && views->active() == m_view && views->views().size() > 1;
    // The view covers all but the edge.
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
