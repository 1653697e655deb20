#include "app/panels/ChannelModel.h"

#include "app/panels/AttributeText.h"

#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

namespace app {

namespace {

bool isChannel(const kernel::Node& node, const kernel::AttributeSpec& attribute)
{
    const kernel::PlugFlags flags = node.flags(attribute);
    if (attribute.hidden || !(flags.keyable || flags.channelBox) || !kernel::isNumber(attribute.kind)) {
        return false;
    }
    // Whether a shape is shown is the business of the transform above it.
    return !(node.type().isShape() && attribute.longName == "visibility");
}

}  // namespace

void ChannelModel::follow(const kernel::Scene& scene)
{
    std::vector<Row> rows = rowsOf(scene);
    if (!std::equal(rows.begin(), rows.end(), m_rows.begin(), m_rows.end(), isSameThing)) {
        beginResetModel();
        m_rows = std::move(rows);
        endResetModel();
        return;
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (looksSame(rows[i], m_rows[i])) {
            continue;
        }
        m_rows[i] = std::move(rows[i]);
        for (const Column column : {kLabel, kValue}) {
            const QModelIndex cell = index(int(i), column);
            emit dataChanged(cell, cell);
        }
    }
}

std::vector<ChannelModel::Row> ChannelModel::rowsOf(const kernel::Scene& scene)
{
    std::vector<Row> rows;
    if (!scene.selection().empty()) {
        for (const kernel::NodePtr& node : withShapes(scene.selection().front())) {
            addRows(rows, node, scene.selection().size() > 1);
        }
    }
    return rows;
}

void ChannelModel::addRows(std::vector<Row>& rows, const kernel::NodePtr& node, bool isOneOfMany)
{
    const QString name = QString::fromStdString(node->name());
    rows.push_back({{node, nullptr},
                    isOneOfMany ? name + QChar(0x2026) : name,
                    name,
                    node->isReadOnly() ? AttributeState::ReadOnly : AttributeState::Free});
    for (const kernel::AttributePtr& attribute : node->type().allAttributes()) {
        if (isChannel(*node, *attribute)) {
            rows.push_back({{node, attribute},
                            niceName(attribute->longName),
                            shownText(node->value(*attribute), *attribute),
                            stateOf(*node, *attribute)});
        }
    }
}

bool ChannelModel::isSameThing(const Row& a, const Row& b)
{
    const bool isSameNode = !a.plug.node.owner_before(b.plug.node) && !b.plug.node.owner_before(a.plug.node);
    return isSameNode && a.plug.attribute == b.plug.attribute;
}

bool ChannelModel::looksSame(const Row& a, const Row& b)
{
    return a.label == b.label && a.value == b.value && a.state == b.state;
}

bool ChannelModel::isEditable(int row) const
{
    return m_rows[std::size_t(row)].state != AttributeState::ReadOnly && node(row);
}

int ChannelModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int ChannelModel::columnCount(const QModelIndex&) const
{
    return kColumns;
}

QVariant ChannelModel::data(const QModelIndex& index, int role) const
{
    const Row& row = m_rows[std::size_t(index.row())];
    const bool isName = !row.plug.attribute;
    switch (role) {
    case Qt::DisplayRole: return index.column() == kLabel ? row.label : isName ? QString() : row.value;
    case Qt::EditRole:
        if (const kernel::NodePtr node = row.plug.node.lock()) {
            return isName ? row.value : typedText(node->value(*row.plug.attribute), *row.plug.attribute);
        }
        return QVariant();
    case Qt::ToolTipRole: return isName ? QVariant() : QString::fromStdString(row.plug.attribute->longName);
    case Qt::TextAlignmentRole: {
        const bool isRight = index.column() == kLabel && !isName;
        return int((isRight ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    }
    case Qt::BackgroundRole: return isName || index.column() == kLabel ? QVariant() : groundOf(row.state);
    case Qt::ForegroundRole:
        return row.state == AttributeState::ReadOnly && !isName
                 ? QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text)
                 : QVariant();
    default: return QVariant();
    }
}

bool ChannelModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole) {
        return false;
    }
    emit Typed(index.row(), value.toString());
    return true;
}

Qt::ItemFlags ChannelModel::flags(const QModelIndex& index) const
{
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    const Qt::ItemFlags usual = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    const int column = attribute(index.row()) ? kValue : kLabel;
    return index.column() == column && isEditable(index.row()) ? usual | Qt::ItemIsEditable : usual;
}

}  // namespace app
