#include "app/ViewPanel.h"

#include "view/Viewport.h"

#include <QPainter>
#include <QVBoxLayout>

namespace app {

ViewPanel::ViewPanel(QWidget* parent) : QFrame(parent)
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
}

void ViewPanel::setView(view::Viewport* view)
{
    m_view = view;
    layout()->addWidget(view);
}

void ViewPanel::setActive(bool active)
{
    if (m_active != active) {
        m_active = active;
        update();
    }
}

void ViewPanel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(m_active ? QPalette::Highlight : QPalette::Shadow));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace app
