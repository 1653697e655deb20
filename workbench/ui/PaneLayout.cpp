#include "ui/PaneLayout.h"

#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace ui {

namespace {

/// Panes are counted clockwise from the upper left. `order` has them as they stand along the outer splitter, '|'
/// between the groups of an inner one: "01|32" is two above two.
struct Configuration {
    const char* name;
    Qt::Orientation outer;
    const char* order;
};

const Configuration kConfigurations[] = {
    {"single", Qt::Horizontal, "0"},          {"horizontal2", Qt::Vertical, "0|1"},
    {"vertical2", Qt::Horizontal, "0|1"},     {"horizontal3", Qt::Vertical, "0|1|2"},
    {"vertical3", Qt::Horizontal, "0|1|2"},   {"top3", Qt::Vertical, "01|2"},
    {"left3", Qt::Horizontal, "02|1"},        {"bottom3", Qt::Vertical, "0|21"},
    {"right3", Qt::Horizontal, "0|12"},       {"horizontal4", Qt::Vertical, "0|1|2|3"},
    {"vertical4", Qt::Horizontal, "0|1|2|3"}, {"top4", Qt::Vertical, "012|3"},
    {"bottom4", Qt::Vertical, "0|321"},       {"left4", Qt::Horizontal, "032|1"},
    {"right4", Qt::Horizontal, "0|123"},      {"quad", Qt::Vertical, "01|32"},
};

const Configuration* findConfiguration(const std::string& name)
{
    const auto* const found = std::find_if(std::begin(kConfigurations), std::end(kConfigurations),
                                           [&](const Configuration& c) { return c.name == name; });
    return found != std::end(kConfigurations) ? found : nullptr;
}

QStringList groups(const std::string& name)
{
    return QString(findConfiguration(name)->order).split('|');
}

void shareEvenly(QSplitter& splitter)
{
    splitter.setSizes(QVector<int>(splitter.count(), 1000).toList());
}

/// Gives one widget of a splitter its share of the length; the others have equal shares of the rest.
void setShare(QSplitter& splitter, int index, int percent)
{
    QList<int> sizes;
    for (int i = 0; i < splitter.count(); ++i) {
        sizes << (i == index ? percent * 100 : (100 - percent) * 100 / std::max(1, splitter.count() - 1));
    }
    splitter.setSizes(sizes);
}

}  // namespace

PaneLayout::PaneLayout(QWidget* parent) : LayoutWidget(parent)
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

int PaneLayout::paneCount() const
{
    return groups(m_configuration).join(QString()).size();
}

QList<QWidget*> PaneLayout::placed() const
{
    QList<QWidget*> children;
    for (const QPointer<QWidget>& child : m_children) {
        // Whoever takes a child into a window of his own takes it out of here.
        if (child && isAncestorOf(child)) {
            children << child;
        }
    }
    return children;
}

void PaneLayout::place(QWidget* child)
{
    child->setParent(this);
    m_children.removeAll(child);  // one that was taken away comes back
    m_children.append(child);
    arrange();
}

void PaneLayout::release(QWidget* child)
{
    m_children.removeOne(child);
    child->setParent(this);
    arrange();
}

bool PaneLayout::setConfiguration(const std::string& name)
{
    if (!findConfiguration(name)) {
        return false;
    }
    if (m_configuration != name) {
        m_shares.clear();
    }
    m_configuration = name;
    arrange();
    return true;
}

PaneLayout::Arrangement PaneLayout::arrangement() const
{
    Arrangement made{m_configuration, m_children, {}};
    for (const QSplitter* splitter : splitters()) {
        made.sizes << splitter->sizes();
    }
    return made;
}

void PaneLayout::setArrangement(const Arrangement& arrangement)
{
    QList<QPointer<QWidget>> order;
    for (const QPointer<QWidget>& child : arrangement.order) {
        if (m_children.removeOne(child)) {
            order << child;
        }
    }
    m_children = order + m_children;
    m_shares.clear();
    m_configuration = arrangement.configuration;
    arrange();
    const QList<QSplitter*> bars = splitters();
    for (int i = 0; i < std::min(bars.size(), arrangement.sizes.size()); ++i) {
        bars[i]->setSizes(arrangement.sizes[i]);
    }
}

QList<QSplitter*> PaneLayout::splitters() const
{
    if (!m_outer) {
        return {};
    }
    return QList<QSplitter*>{m_outer} + m_outer->findChildren<QSplitter*>(QString(), Qt::FindDirectChildrenOnly);
}

bool PaneLayout::setPane(QWidget* child, int pane)
{
    const QList<QWidget*> children = placed();
    const int at = children.indexOf(child);
    if (at < 0 || pane < 0 || pane >= children.size()) {
        return false;
    }
    m_children.clear();
    for (QWidget* placedChild : children) {
        m_children.append(placedChild);
    }
    std::swap(m_children[at], m_children[pane]);
    arrange();
    return true;
}

void PaneLayout::setPaneSize(int pane, int widthPercent, int heightPercent)
{
    m_shares[pane] = {widthPercent, heightPercent};
    giveShare(pane, m_shares[pane]);
}

void PaneLayout::giveShare(int pane, const Share& share)
{
    const QStringList order = groups(m_configuration);
    for (int group = 0; m_outer && group < order.size(); ++group) {
        const int place = order[group].indexOf(QChar('0' + pane));
        if (place < 0) {
            continue;
        }
        const bool isAcross = m_outer->orientation() == Qt::Horizontal;
        setShare(*m_outer, group, isAcross ? share.widthPercent : share.heightPercent);
        if (auto* const inner = qobject_cast<QSplitter*>(m_outer->widget(group))) {
            setShare(*inner, place, isAcross ? share.heightPercent : share.widthPercent);
        }
    }
}

void PaneLayout::setBarThickness(int pixels)
{
    m_barThickness = pixels;
    arrange();
}

QSplitter* PaneLayout::makeSplitter(Qt::Orientation orientation, QWidget* parent) const
{
    auto* const splitter = new QSplitter(orientation, parent);
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(m_barThickness);
    return splitter;
}

void PaneLayout::arrange()
{
    const QList<QWidget*> children = placed();
    QSplitter* const old = m_outer;
    m_outer = makeSplitter(findConfiguration(m_configuration)->outer, this);
    const Qt::Orientation across = m_outer->orientation() == Qt::Horizontal ? Qt::Vertical : Qt::Horizontal;
    for (const QString& group : groups(m_configuration)) {
        QSplitter* const into = group.size() > 1 ? makeSplitter(across, m_outer) : m_outer;
        for (const QChar pane : group) {
            const int index = pane.digitValue();
            if (index < children.size()) {
                into->addWidget(children[index]);
                children[index]->show();
            }
        }
    }
    for (int i = paneCount(); i < children.size(); ++i) {
        children[i]->setParent(this);
        children[i]->hide();
    }
    for (QSplitter* splitter : splitters()) {
        shareEvenly(*splitter);
    }
    for (const auto& given : m_shares) {
        giveShare(given.first, given.second);
    }
    delete old;
    layout()->addWidget(m_outer);
    m_outer->show();
}

}  // namespace ui
