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
    const bool isMarked = isEnabled() && (hasFocus() || underMouse());
    painter.fillRect(rect(), palette().color(isMarked ? QPalette::Highlight : QPalette::Shadow));
    painter.fillRect(rect().adjusted(1, 1, -1, -1), m_colour);
}

}  // namespace ui
