#pragma once

#include "app/panels/AttributeScript.h"
#include "app/panels/AttributeState.h"

#include <QAbstractTableModel>

#include <vector>

namespace app {

/// What an animator changes of the first selected node and its shapes: for each its name, then a row for every
/// attribute that is keyable or meant for the channel box. Setting data only tells of what was typed; the rows change
/// when the scene did.
class ChannelModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { kLabel, kValue, kColumns };
    using QAbstractTableModel::QAbstractTableModel;

    /// Takes over what the scene holds now. Resets the model only when there are other rows.
    void follow(const kernel::Scene& scene);

    /// Null when it is gone.
    kernel::NodePtr node(int row) const { return m_rows[std::size_t(row)].plug.node.lock(); }
    /// Null in a row with a node's name.
    kernel::AttributePtr attribute(int row) const { return m_rows[std::size_t(row)].plug.attribute; }
    /// Whether what it holds is what the user may type in.
    bool isEditable(int row) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    void Typed(int row, const QString& text);

private:
    struct Row {
        Plug plug;
        QString label;
        QString value;
        AttributeState state;  ///< read-only also for a node that keeps its name
    };
    static std::vector<Row> rowsOf(const kernel::Scene& scene);
    static void addRows(std::vector<Row>& rows, const kernel::NodePtr& node, bool isOneOfMany);
    static bool isSameThing(const Row& a, const Row& b);
    static bool looksSame(const Row& a, const Row& b);

    std::vector<Row> m_rows;
};

}  // namespace app
