#include "ui/FormLayout.h"

#include <QEvent>

#include <algorithm>

namespace ui {

namespace {

bool isUpright(FormLayout::Edge edge)
{
    return edge == FormLayout::Edge::Left || edge == FormLayout::Edge::Right;
}

bool isFar(FormLayout::Edge edge)
{
    return edge == FormLayout::Edge::Right || edge == FormLayout::Edge::Bottom;
}

}  // namespace

FormLayout::FormLayout(QWidget* parent) : LayoutWidget(parent) {}

void FormLayout::place(QWidget* child)
{
    child->setParent(this);
    m_children << child;
    child->show();
    arrange();
}

void FormLayout::release(QWidget* child)
{
    forget(child);
}

void FormLayout::forget(const QObject* child)
{
    m_children.erase(std::remove(m_children.begin(), m_children.end(), child), m_children.end());
    const auto edges =
        std::find_if(m_edges.begin(), m_edges.end(), [child](const auto& entry) { return entry.first == child; });
    if (edges != m_edges.end()) {
        m_edges.erase(edges);
    }
}

void FormLayout::attach(QWidget* child, Edge edge, const Attachment& attachment)
{
    m_edges[child][edge] = attachment;
    arrange();
}

void FormLayout::setDivisions(int divisions)
{
    m_divisions = std::max(1, divisions);
    arrange();
}

QSize FormLayout::sizeHint() const
{
    return childrenRect().size().expandedTo(QSize(100, 40));
}

void FormLayout::resizeEvent(QResizeEvent* event)
{
    LayoutWidget::resizeEvent(event);
    arrange();
}

bool FormLayout::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest) {
        arrange();
    } else if (event->type() == QEvent::ChildRemoved) {
        forget(static_cast<QChildEvent*>(event)->child());
    }
    return LayoutWidget::event(event);
}

int FormLayout::place(const Edges& edges, Edge edge, int fallback) const
{
    const auto found = edges.find(edge);
    if (found == edges.end()) {
        return fallback;
    }
    const Attachment& attachment = found->second;
    const int length = isUpright(edge) ? width() : height();
    const int inwards = isFar(edge) ? -attachment.offset : attachment.offset;
    switch (attachment.to) {
    case Attachment::To::Form: return (isFar(edge) ? length : 0) + inwards;
    case Attachment::To::Position: return length * attachment.position / m_divisions + inwards;
    case Attachment::To::Control: {
        if (!attachment.control) {
            return fallback;
        }
        const QRect other = attachment.control->geometry();
        const int near = isUpright(edge) ? other.x() : other.y();
        const int far = near + (isUpright(edge) ? other.width() : other.height());
        return (isFar(edge) ? near : far) + inwards;
    }
    case Attachment::To::Nothing: break;
    }
    return fallback;
}

void FormLayout::arrange(QWidget& child, const Edges& edges)
{
    const QSize natural = child.sizeHint().expandedTo(child.minimumSize()).boundedTo(child.maximumSize());
    constexpr int kFree = -1000000;
    const auto span = [&](Edge nearEdge, Edge farEdge, int length, int& start, int& end) {
        start = place(edges, nearEdge, kFree);
        end = place(edges, farEdge, kFree);
        if (start == kFree) {
            start = end == kFree ? 0 : end - length;
        }
        if (end == kFree) {
            end = start + length;
        }
    };
    int left = 0, right = 0, top = 0, bottom = 0;
    span(Edge::Left, Edge::Right, natural.width(), left, right);
    span(Edge::Top, Edge::Bottom, natural.height(), top, bottom);
    child.setGeometry(left, top, std::max(0, right - left), std::max(0, bottom - top));
}

void FormLayout::arrange()
{
    // A child attached to one placed later needs another round; a chain is as long as there are children at most.
    for (int round = 0; round < m_children.size(); ++round) {
        for (QWidget* child : m_children) {
            arrange(*child, m_edges[child]);
        }
    }
}

}  // namespace ui
