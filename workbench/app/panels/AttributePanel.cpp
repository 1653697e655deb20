#include "app/panels/AttributePanel.h"

#include "app/panels/AttributeText.h"
#include "ui/FrameLayout.h"

#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QTabBar>
#include <QVBoxLayout>

#include <algorithm>

namespace app {

using kernel::AttributePtr;
using kernel::NodePtr;
using kernel::ValueKind;

namespace {

constexpr int kLabelWidth = 140;
constexpr double kWidestRange = 1000;  // a slider over more would jump

bool hasField(const kernel::AttributeSpec& attribute)
{
    return attribute.kind == ValueKind::String || kernel::isNumber(attribute.kind);
}

SliderRange rangeOf(const kernel::AttributeSpec& attribute)
{
    const bool isWhole = attribute.kind == ValueKind::Int || attribute.kind == ValueKind::Enum;
    if (isWhole || !attribute.minimum || !attribute.maximum || *attribute.maximum - *attribute.minimum > kWidestRange) {
        return {};
    }
    return {*attribute.minimum, *attribute.maximum};
}

}  // namespace

AttributePanel::AttributePanel(const PanelContext& context, QWidget* parent)
    : ScenePanel(context, parent), m_tabs(new QTabBar), m_area(new QScrollArea)
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_tabs);
    layout->addWidget(m_area, 1);
    m_tabs->setObjectName("attributeTabs");
    m_tabs->setExpanding(false);
    m_tabs->setDrawBase(false);
    m_tabs->setFocusPolicy(Qt::TabFocus);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setWidgetResizable(true);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setFocusPolicy(Qt::NoFocus);
    connect(m_tabs, SIGNAL(tabBarClicked(int)), this, SLOT(FinishTyping()));
    // Queued, as what was typed is: it is meant for the rows there are.
    connect(m_tabs, SIGNAL(currentChanged(int)), this, SLOT(ShowTab()), Qt::QueuedConnection);
    for (const char* event : {"Undo", "Redo"}) {
        m_callbacks.push_back(this->context().session.events.add(event, [this] { meetUndo(); }));
    }
}

AttributePanel::~AttributePanel()
{
    for (const unsigned id : m_callbacks) {
        context().session.events.remove(id);
    }
}

QSize AttributePanel::sizeHint() const
{
    return QSize(360, 400);
}

// --- which node ----------------------------------------------------------------------------------------------------

void AttributePanel::refresh()
{
    if (followNodes()) {
        ShowTab();
        return;
    }
    const NodePtr node = m_node.lock();
    if (node && node->type().allAttributes() != m_attributes) {
        build(node);  // its module came or went
    }
    showValues();
}

/// True when the tabs changed.
bool AttributePanel::followNodes()
{
    const std::vector<NodePtr>& selection = scene().selection();
    const std::vector<NodePtr> nodes = selection.empty() ? std::vector<NodePtr>() : withShapes(selection.front());
    const bool isSame =
        std::equal(nodes.begin(), nodes.end(), m_nodes.begin(), m_nodes.end(),
                   [](const NodePtr& a, const std::weak_ptr<kernel::Node>& b) { return b.lock() == a; });
    const QSignalBlocker quiet(m_tabs);
    if (!isSame) {
        m_nodes.assign(nodes.begin(), nodes.end());
        while (m_tabs->count() > 0) {
            m_tabs->removeTab(0);
        }
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            m_tabs->addTab(QString());
        }
        // A shape tells more about a thing than where it is.
        m_tabs->setCurrentIndex(nodes.size() > 1 ? 1 : 0);
    }
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const QString name = QString::fromStdString(nodes[i]->name());
        if (m_tabs->tabText(int(i)) != name) {
            m_tabs->setTabText(int(i), name);
        }
    }
    return !isSame;
}

void AttributePanel::ShowTab()
{
    const int tab = m_tabs->currentIndex();
    build(tab < 0 ? nullptr : m_nodes[std::size_t(tab)].lock());
    showValues();
}

// A tab that is clicked does not take the focus, which would end it.
void AttributePanel::FinishTyping()
{
    LeaveUnlessSeen(false);
}

// --- rows ----------------------------------------------------------------------------------------------------------

void AttributePanel::build(const NodePtr& node)
{
    endDrag();
    // What was being typed was meant for what there was before.
    for (const Row& row : m_rows) {
        row.field->disconnect(this);
    }
    m_rows.clear();
    m_node = node;
    m_attributes = node ? node->type().allAttributes() : std::vector<AttributePtr>();
    auto* const body = new QWidget;
    auto* const column = new QVBoxLayout(body);
    column->setContentsMargins(8, 8, 8, 8);
    column->setSpacing(8);
    if (node) {
        addSections(node, column);
    }
    column->addStretch(1);
    if (QWidget* const before = m_area->takeWidget()) {
        before->hide();
        before->deleteLater();
    }
    m_area->setWidget(body);
}

void AttributePanel::addSections(const NodePtr& node, QVBoxLayout* column)
{
    const bool isCamera = node->type().role == kernel::NodeRole::Camera;
    if (isCamera) {
        addCameraSections(*node, column);
    }
    for (const kernel::NodeType* type = &node->type(); type; type = type->base) {
        addTypeSection(*node, *type, column);
    }
}

void AttributePanel::addCameraSections(const kernel::Node& node, QVBoxLayout* column)
{
    for (const PanelSection& section : cameraSections()) {
        QGridLayout* const grid = addSection(column, QObject::tr(section.title), section.isFolded);
        for (const PanelRow& row : section.rows) {
            const AttributePtr attribute = node.attribute(row.derived ? row.derived->attribute : row.attribute);
            const QString label = row.label ? QObject::tr(row.label) : niceName(attribute->longName);
            addField(grid, label, {{attribute, row.derived, makeField(attribute, row.range, row.derived)}});
        }
    }
}

/// The attributes that a type adds to those of its base and that have no field yet.
void AttributePanel::addTypeSection(const kernel::Node& node, const kernel::NodeType& type, QVBoxLayout* column)
{
    // What all nodes or a camera have beside the essential is not looked at every day.
    const bool isFolded = !m_rows.isEmpty();
    QGridLayout* grid = nullptr;
    for (const AttributePtr& attribute : type.attributes) {
        std::vector<AttributePtr> together;
        if (attribute->kind == ValueKind::Compound) {
            for (const std::string& child : attribute->children) {
                together.push_back(node.attribute(child));
            }
        } else if (attribute->parent.empty()) {
            together.push_back(attribute);
        }
        std::vector<Row> rows;
        for (const AttributePtr& one : together) {
            if (one && !one->hidden && !attribute->hidden && hasField(*one) && !isShown(one)) {
                rows.push_back(
                    {one, nullptr, makeField(one, together.size() > 1 ? SliderRange() : rangeOf(*one), nullptr)});
            }
        }
        if (rows.empty()) {
            continue;
        }
        if (!grid) {
            const QString title =
                type.role == kernel::NodeRole::Camera ? tr("More %1 Attributes") : tr("%1 Attributes");
            grid = addSection(column, title.arg(niceName(type.name)), isFolded);
        }
        addField(grid, niceName(attribute->longName), rows);
    }
}

QGridLayout* AttributePanel::addSection(QVBoxLayout* column, const QString& title, bool isFolded)
{
    auto* const frame = new ui::FrameLayout;
    frame->setLabel(title);
    frame->setCollapsable(true);
    auto* const body = new QWidget;
    auto* const grid = new QGridLayout(body);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(4);
    grid->setColumnMinimumWidth(0, kLabelWidth);
    grid->setColumnStretch(1, 1);
    frame->place(body);
    frame->setCollapsed(isFolded);
    column->addWidget(frame);
    return grid;
}

void AttributePanel::addField(QGridLayout* grid, const QString& label, const std::vector<Row>& rows)
{
    const int line = grid->rowCount();
    grid->addWidget(new QLabel(label), line, 0, Qt::AlignRight | Qt::AlignVCenter);
    auto* const fields = new QHBoxLayout;
    fields->setSpacing(4);
    for (const Row& row : rows) {
        row.field->setToolTip(QString::fromStdString(row.attribute->longName));
        fields->addWidget(row.field, 1);
        m_rows << row;
    }
    grid->addLayout(fields, line, 1);
}

ValueField* AttributePanel::makeField(AttributePtr attribute, SliderRange range, const DerivedNumber* derived)
{
    // A derived number is of no attribute's kind.
    auto* const field = new ValueField(derived ? std::make_shared<kernel::AttributeSpec>() : attribute, range);
    field->setObjectName(QString::fromStdString(attribute->longName) + (derived ? "Derived" : ""));
    // Queued: a script may ask the user something, and by its end the field it came from may be gone.
    connect(field, SIGNAL(Typed(QString)), this, SLOT(Apply(QString)), Qt::QueuedConnection);
    connect(field, SIGNAL(Dragged(double)), this, SLOT(Drag(double)));
    connect(field, SIGNAL(Left()), this, SLOT(ScheduleRefresh()));
    return field;
}

bool AttributePanel::isShown(const AttributePtr& attribute) const
{
    return std::any_of(m_rows.begin(), m_rows.end(),
                       [&](const Row& row) { return !row.derived && row.attribute == attribute; });
}

// --- values --------------------------------------------------------------------------------------------------------

void AttributePanel::showValues()
{
    const NodePtr node = m_node.lock();
    if (!node) {
        return;
    }
    for (const Row& row : m_rows) {
        row.field->show(row.derived ? kernel::PlugValue(row.derived->read(*node)) : node->value(*row.attribute),
                        stateOf(*node, *row.attribute));
    }
}

const AttributePanel::Row* AttributePanel::rowOf(const QObject* field) const
{
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [field](const Row& row) { return row.field == field; });
    return found == m_rows.end() ? nullptr : &*found;
}

void AttributePanel::Apply(const QString& text)
{
    const Row* const row = rowOf(sender());
    endDrag();
    const NodePtr node = m_node.lock();
    if (!row || !node || !node->isInScene()) {
        return;
    }
    double number = 0;
    const bool isSolved = row->derived && kernel::parseDouble(text.toStdString(), number);
    const QString typed = isSolved ? QString::number(row->derived->solve(*node, number), 'g', 10) : text;
    run(setAttrText(scene(), *node, *row->attribute, typed));
}

// While a slider moves the scene follows without a trace; what it ends at is the one step to be undone.
void AttributePanel::Drag(double number)
{
    const Row* const row = rowOf(sender());
    const NodePtr node = m_node.lock();
    if (!row || !node || !node->isInScene()) {
        return;
    }
    if (!m_dragged.attribute) {
        m_dragged = {node, row->attribute};
        m_stateBeforeDrag = node->plugState(*row->attribute);
    }
    node->setValue(*row->attribute, row->derived ? row->derived->solve(*node, number) : number);
    m_valueOfDrag = node->plugState(*row->attribute).value;
}

void AttributePanel::endDrag()
{
    const NodePtr node = m_dragged.node.lock();
    if (node && m_dragged.attribute) {
        node->setPlugState(*m_dragged.attribute, m_stateBeforeDrag);
    }
    m_dragged = {};
}

/// A step may be undone or redone while a slider is held. What it gave the attribute is then what there was before
/// the rest of the drag.
void AttributePanel::meetUndo()
{
    const NodePtr node = m_dragged.node.lock();
    if (node && m_dragged.attribute && node->plugState(*m_dragged.attribute).value != m_valueOfDrag) {
        m_dragged = {};
    }
    endDrag();
}

}  // namespace app
