#include "ui/ScriptMenu.h"

#include "ui/UiObjects.h"

namespace ui {

ScriptMenu::ScriptMenu(UiObjects& ui, QWidget* parent) : QMenu(parent), m_ui(ui)
{
    connect(this, SIGNAL(aboutToShow()), this, SLOT(Prepare()));
}

void ScriptMenu::setLabel(const MenuLabel& label)
{
    m_label = label;
    setTitle(label.shown());
    setWindowTitle(label.text);  // of the torn-off copy
}

void ScriptMenu::setPostMenuCommand(const std::string& script)
{
    m_postMenuCommand = script;
    m_wasPrepared = false;
}

void ScriptMenu::Prepare()
{
    if (m_once && m_wasPrepared) {
        return;
    }
    m_wasPrepared = true;
    const std::string script = m_postMenuCommand;  // the script may set another
    m_ui.runScript(script, Echo::No);
}

}  // namespace ui
