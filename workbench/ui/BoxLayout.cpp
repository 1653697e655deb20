#include "ui/BoxLayout.h"

namespace ui {

namespace {

constexpr int kGap = 4;  // pixels between children
constexpr int kMargin = 8;

}  // namespace

BoxLayout::BoxLayout(QBoxLayout::Direction direction, Sharing sharing, QWidget* parent)
    : LayoutWidget(parent), m_box(new QBoxLayout(direction, this)), m_sharing(sharing)
{
    m_box->setContentsMargins(0, 0, 0, 0);
    m_box->setSpacing(kGap);
    if (m_sharing == Sharing::Natural) {
        m_box->addStretch(1);
    }
}

void BoxLayout::place(QWidget* child)
{
    const int cell = placed().size();
    m_box->insertWidget(cell, child);
    settle(cell, child);
    child->show();
}

void BoxLayout::release(QWidget* child)
{
    m_box->removeWidget(child);
}

QList<QWidget*> BoxLayout::placed() const
{
    QList<QWidget*> widgets;
    for (int i = 0; i < m_box->count(); ++i) {
        if (QWidget* const widget = m_box->itemAt(i)->widget()) {
            widgets << widget;
        }
    }
    return widgets;
}

void BoxLayout::setAdjustable(bool on)
{
    m_isAdjustable = on;
    for (QWidget* child : placed()) {
        settle(0, child);
    }
}

void BoxLayout::setAdjustableCell(int cell)
{
    m_adjustableCell = cell;
    const QList<QWidget*> children = placed();
    for (int i = 0; i < children.size(); ++i) {
        settle(i, children[i]);
    }
}

void BoxLayout::setCellWidth(int cell, int pixels)
{
    m_cellWidths[cell] = pixels;
    const QList<QWidget*> children = placed();
    if (cell < children.size()) {
        settle(cell, children[cell]);
    }
}

void BoxLayout::settle(int cell, QWidget* child)
{
    if (m_sharing == Sharing::Filling) {
        // Controls keep clear of the edges of what they fill; views do not.
        if (qobject_cast<BoxLayout*>(child)) {
            child->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
        }
        return;
    }
    if (m_box->direction() == QBoxLayout::TopToBottom) {
        m_box->setAlignment(child, m_isAdjustable ? Qt::Alignment() : Qt::AlignLeft);
        return;
    }
    const auto width = m_cellWidths.find(cell);
    if (width != m_cellWidths.end()) {
        child->setFixedWidth(width->second);
    }
    // Beside a stretch of 1 at the end, this leaves that next to nothing.
    m_box->setStretchFactor(child, cell == m_adjustableCell ? 1000 : 0);
}

}  // namespace ui
