#include "ui/MenuSetBox.h"

#include "mel/builtins/Quoting.h"
#include "ui/MenuSets.h"

namespace ui {

MenuSetBox::MenuSetBox(UiObjects& ui, MenuSets& sets, QWidget* parent) : QComboBox(parent), m_ui(ui), m_sets(sets)
{
    setObjectName("menuSetBox");
    setToolTip(tr("Menu set"));
    setFocusPolicy(Qt::NoFocus);  // keys stay with the tool
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
    setFixedHeight(22);
    connect(&sets, SIGNAL(Changed()), this, SLOT(ShowSets()));
    connect(this, SIGNAL(activated(int)), this, SLOT(Choose(int)));
    ShowSets();
}

void MenuSetBox::ShowSets()
{
    clear();
    for (const MenuSets::Set& set : m_sets.all()) {
        if (!MenuSets::isCommon(set)) {
            addItem(QString::fromStdString(set.label), QString::fromStdString(set.name));
        }
    }
    setCurrentIndex(m_sets.current() ? findData(QString::fromStdString(m_sets.current()->name)) : -1);
}

void MenuSetBox::Choose(int row)
{
    m_ui.runScript("setMenuMode " + mel::quoted(itemData(row).toString().toStdString()));
}

}  // namespace ui
