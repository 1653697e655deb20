#include "ui/FrameLayout.h"

#include "ui/BoxLayout.h"

#include <QToolButton>
#include <QVBoxLayout>

namespace ui {

namespace {

constexpr int kHeadingHeight = 20;

}  // namespace

FrameLayout::FrameLayout(QWidget* parent)
    : LayoutWidget(parent), m_heading(new QToolButton),
      m_body(new BoxLayout(QBoxLayout::TopToBottom, BoxLayout::Sharing::Filling))
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    m_heading->setAutoRaise(true);
    m_heading->setToolButtonStyle(Qt::ToolButtonTextOnly);
    m_heading->setMinimumHeight(kHeadingHeight);
    m_heading->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(m_heading, SIGNAL(clicked()), this, SLOT(Toggle()));
    layout->addWidget(m_heading);
    layout->addWidget(m_body, 1);
}

void FrameLayout::place(QWidget* child)
{
    m_body->place(child);
}

void FrameLayout::release(QWidget* child)
{
    m_body->release(child);
}

QList<QWidget*> FrameLayout::placed() const
{
    return m_body->placed();
}

QString FrameLayout::label() const
{
    return m_heading->text();
}

void FrameLayout::setLabel(const QString& label)
{
    m_heading->setText(label);
}

void FrameLayout::setLabelVisible(bool on)
{
    m_heading->setVisible(on);
}

void FrameLayout::setCollapsable(bool on)
{
    m_isCollapsable = on;
    m_heading->setToolButtonStyle(on ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonTextOnly);
    setCollapsed(isCollapsed());
}

bool FrameLayout::isCollapsed() const
{
    return m_body->isHidden();
}

void FrameLayout::setMarginWidth(int pixels)
{
    const QMargins margins = m_body->contentsMargins();
    m_body->setContentsMargins(pixels, margins.top(), pixels, margins.bottom());
}

void FrameLayout::setMarginHeight(int pixels)
{
    const QMargins margins = m_body->contentsMargins();
    m_body->setContentsMargins(margins.left(), pixels, margins.right(), pixels);
}

void FrameLayout::setCollapsed(bool on)
{
    m_body->setVisible(!on);
    m_heading->setArrowType(!m_isCollapsable ? Qt::NoArrow : on ? Qt::RightArrow : Qt::DownArrow);
}

void FrameLayout::Toggle()
{
    if (m_isCollapsable) {
        setCollapsed(!isCollapsed());
    }
}

}  // namespace ui
