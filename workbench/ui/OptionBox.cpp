#include "ui/OptionBox.h"

#include <QApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>

namespace ui {

namespace {

constexpr int kColumn = 22;  // px, right of the rows
constexpr int kBox = 10;     // px, the box's side

}  // namespace

OptionBox::OptionBox(UiObjects& ui, QObject* parent, QAction* base) : MenuItem(ui, parent), m_base(base) {}

QWidget* OptionBox::createWidget(QWidget* parent)
{
    auto* const menu = qobject_cast<QMenu*>(parent);
    return menu ? new OptionBoxMark(*this, *menu) : nullptr;
}

OptionBoxMark::OptionBoxMark(OptionBox& box, QMenu& menu) : QWidget(&menu), m_box(box), m_menu(menu)
{
    setAttribute(Qt::WA_Hover);
    menu.setContentsMargins(0, 0, kColumn, 0);
    menu.installEventFilter(this);
}

bool OptionBoxMark::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Resize:
    case QEvent::UpdateRequest: place(); break;
    default: break;
    }
    return QWidget::eventFilter(watched, event);
}

void OptionBoxMark::place()
{
    const QAction* const base = m_box.base();
    const bool isShown = base && base->isVisible() && m_box.isVisible();
    if (isShown) {
        const QRect row = m_menu.actionGeometry(m_box.base());
        setGeometry(m_menu.width() - kColumn, row.top(), kColumn, row.height());
    }
    setVisible(isShown);
}

bool OptionBoxMark::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::HoverEnter:
        // The row beside it is not what the pointer is on.
        m_menu.setActiveAction(nullptr);
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
        // The menu would take a click on a disabled box for one beside its rows, and close.
        if (!isEnabled()) {
            return true;
        }
        break;
    default: break;
    }
    return QWidget::event(event);
}

void OptionBoxMark::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const bool isHot = underMouse() && isEnabled();
    if (isHot) {
        painter.fillRect(rect().adjusted(1, 0, -1, 0), palette().color(QPalette::Highlight));
    }
    painter.setPen(palette().color(isHot ? QPalette::HighlightedText : QPalette::WindowText));
    painter.drawRect((width() - kBox) / 2, (height() - kBox) / 2, kBox - 1, kBox - 1);
}

void OptionBoxMark::mousePressEvent(QMouseEvent* event)
{
    event->accept();
}

void OptionBoxMark::mouseReleaseEvent(QMouseEvent* event)
{
    // A drag from the menu bar may end here without a press before.
    if (!rect().contains(event->pos())) {
        return;
    }
    while (QWidget* const popup = QApplication::activePopupWidget()) {
        popup->close();
    }
    m_box.trigger();
}

}  // namespace ui
