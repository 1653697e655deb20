#include "ui/MenuItem.h"

#include "ui/ControlScript.h"
#include "ui/ScriptMenu.h"
#include "ui/UiObjects.h"

namespace ui {

MenuItem::MenuItem(UiObjects& ui, QObject* parent) : QWidgetAction(parent), m_ui(ui)
{
    setMenuRole(QAction::NoRole);
    connect(this, SIGNAL(triggered()), this, SLOT(Run()));
}

const MenuLabel& MenuItem::label() const
{
    return subMenu() ? subMenu()->label() : m_label;
}

void MenuItem::setLabel(const MenuLabel& label)
{
    if (ScriptMenu* const menu = subMenu()) {
        menu->setLabel(label);
    } else {
        m_label = label;
        setText(label.shown());
    }
}

void MenuItem::addSubMenu(QMenu& container)
{
    auto* const menu = new ScriptMenu(m_ui, &container);
    setMenu(menu);
    connect(this, SIGNAL(destroyed()), menu, SLOT(deleteLater()));
}

ScriptMenu* MenuItem::subMenu() const
{
    return qobject_cast<ScriptMenu*>(menu());
}

void MenuItem::Run()
{
    if (script.isPython) {
        m_ui.session().output.error("menuItem: Python scripts cannot be run");
        return;
    }
    const std::string text = isCheckable() ? filledIn(script.text, {double(isChecked())}) : script.text;
    if (script.isRepeatable && !text.empty()) {
        m_ui.session().lastAction = text;
    }
    m_ui.runScript(text, script.isEchoed ? Echo::Yes : Echo::No);
}

}  // namespace ui
