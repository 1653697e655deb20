#include "app/panels/ChannelBox.h"

#include "app/panels/ChannelDelegate.h"
#include "app/panels/ChannelModel.h"
#include "app/panels/ChannelTable.h"
#include "mel/builtins/Placement.h"
#include "mel/builtins/Quoting.h"

#include <QAction>
#include <QVBoxLayout>

namespace app {

ChannelBox::ChannelBox(const PanelContext& context, QWidget* parent)
    : ScenePanel(context, parent), m_model(new ChannelModel(this)), m_table(new ChannelTable(*m_model))
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->addWidget(m_table);
    auto* const delegate = new ChannelDelegate(m_table);
    m_table->setItemDelegate(delegate);
    addActions();
    connect(delegate, SIGNAL(Left()), m_table, SLOT(Leave()));
    connect(m_model, SIGNAL(Typed(int, QString)), this, SLOT(Apply(int, QString)));
}

QSize ChannelBox::sizeHint() const
{
    return QSize(236, 400);
}

void ChannelBox::refresh()
{
    m_model->follow(scene());
}

void ChannelBox::Apply(int row, const QString& text)
{
    if (!m_model->attribute(row)) {
        rename(row, text);
        return;
    }
    const QList<int> selected = m_table->selectedRows();
    std::string script;
    for (const int one : selected.contains(row) ? selected : QList<int>{row}) {
        const kernel::NodePtr shown = m_model->node(one);
        if (!shown) {
            continue;
        }
        const kernel::AttributePtr attribute = m_model->attribute(one);
        for (const kernel::NodePtr& node : nodesMeant(scene(), shown, *attribute)) {
            // Among several, the locked ones are left out; alone, it says why it cannot be changed.
            if ((one == row && node == shown) || !mel::isLocked(*node, *attribute)) {
                script += setAttrText(scene(), *node, *attribute, text);
            }
        }
    }
    runSoon(script);
}

void ChannelBox::rename(int row, const QString& name)
{
    if (const kernel::NodePtr node = m_model->node(row)) {
        runSoon("rename " + mel::quoted(scene().partialPath(*node)) + ' ' + mel::quoted(name.toStdString()));
    }
}

void ChannelBox::addActions()
{
    const struct {
        QString label;
        const char* statement;  ///< %1: the node, %2: the attribute
    } rows[] = {
        {tr("Key Selected"), "setKeyframe -attribute \"%2\" \"%1\"; "},
        {tr("Lock Selected"), "setAttr -lock true \"%1.%2\"; "},
        {tr("Unlock Selected"), "setAttr -lock false \"%1.%2\"; "},
    };
    for (const auto& row : rows) {
        auto* const action = new QAction(row.label, m_table);
        action->setData(row.statement);
        connect(action, SIGNAL(triggered()), this, SLOT(RunOnSelected()));
        m_table->addAction(action);
    }
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void ChannelBox::RunOnSelected()
{
    const QString statement = qobject_cast<QAction*>(sender())->data().toString();
    QString script;
    for (const int row : m_table->selectedRows()) {
        const kernel::NodePtr shown = m_model->node(row);
        if (!shown) {
            continue;
        }
        const kernel::AttributePtr attribute = m_model->attribute(row);
        for (const kernel::NodePtr& node : nodesMeant(scene(), shown, *attribute)) {
            script += statement.arg(QString::fromStdString(scene().partialPath(*node)),
                                    QString::fromStdString(attribute->longName));
        }
    }
    if (!script.isEmpty()) {
        run(script.toStdString());
    }
}

}  // namespace app
