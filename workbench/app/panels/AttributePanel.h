#pragma once

#include "app/panels/AttributeScript.h"
#include "app/panels/CameraSections.h"
#include "app/panels/ScenePanel.h"

#include <QVector>

class QGridLayout;
class QScrollArea;
class QTabBar;
class QVBoxLayout;

namespace app {

/// All attributes of the first selected node, or of one of its shapes, which are chosen by tabs. What is changed is
/// changed of that node alone.
class AttributePanel : public ScenePanel {
    Q_OBJECT

public:
    explicit AttributePanel(const PanelContext& context, QWidget* parent = nullptr);
    ~AttributePanel() override;
    QSize sizeHint() const override;

protected:
    void refresh() override;

private slots:
    void ShowTab();
    void FinishTyping();
    void Apply(const QString& text);
    void Drag(double number);

private:
    struct Row {
        kernel::AttributePtr attribute;  ///< the one that is set
        const DerivedNumber* derived;    ///< null when the row shows the attribute itself
        ValueField* field;
    };

    bool followNodes();
    void build(const kernel::NodePtr& node);
    void addSections(const kernel::NodePtr& node, QVBoxLayout* column);
    QGridLayout* addSection(QVBoxLayout* column, const QString& title, bool isFolded);
    void addCameraSections(const kernel::Node& node, QVBoxLayout* column);
    void addTypeSection(const kernel::Node& node, const kernel::NodeType& type, QVBoxLayout* column);
    void addField(QGridLayout* grid, const QString& label, const std::vector<Row>& rows);
    ValueField* makeField(kernel::AttributePtr attribute, SliderRange range, const DerivedNumber* derived);
    bool isShown(const kernel::AttributePtr& attribute) const;
    void showValues();
    const Row* rowOf(const QObject* field) const;
    /// Takes back what a drag did to the node so far.
    void endDrag();
    void meetUndo();

    QTabBar* const m_tabs;
    QScrollArea* const m_area;
    std::vector<std::weak_ptr<kernel::Node>> m_nodes;  ///< those of the tabs
    std::weak_ptr<kernel::Node> m_node;                ///< the one whose rows there are
    std::vector<kernel::AttributePtr> m_attributes;    ///< all of its attributes, as they were when the rows were made
    QVector<Row> m_rows;
    Plug m_dragged;
    kernel::PlugState m_stateBeforeDrag;
    kernel::PlugValue m_valueOfDrag;  ///< what it set last
    std::vector<unsigned> m_callbacks;
};

}  // namespace app
