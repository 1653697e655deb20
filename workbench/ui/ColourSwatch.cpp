#include "ui/ColourSwatch.h"

#include <QPainter>

namespace ui {

ColourSwatch::ColourSwatch(QWidget* parent) : QAbstractButton(parent)
{
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ColourSwatch::setColour(const QColor& colour)
{
    m_colour = colour;
    update();
}

void ColourSwatch::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setOpacity(isEnabled() ? 1 : 0.4);
    painter.fillRect(rect(), m_colour);
    const bool isMarked = hasFocus() || underMouse();
    painter.setPen(palette().color(isMarked && isEnabled() ? QPalette::Highlight : QPalette::Shadow));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace ui
