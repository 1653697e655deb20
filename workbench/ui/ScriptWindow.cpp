#include "ui/ScriptWindow.h"

#include "ui/BoxLayout.h"
#include "ui/UiObjects.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QPointer>

namespace ui {

// A tool window: in one, the shortcuts of the window it belongs to go on working.
ScriptWindow::ScriptWindow(UiObjects& ui)
    : QMainWindow(ui.mainWindow(), Qt::Tool | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint
                                       | Qt::WindowMinMaxButtonsHint),
      m_ui(ui), m_content(new BoxLayout(QBoxLayout::TopToBottom, BoxLayout::Sharing::Filling))
{
    setCentralWidget(m_content);
}

void ScriptWindow::setButton(Qt::WindowType button, bool on)
{
    const bool wasVisible = isVisible();
    setWindowFlag(button, on);  // hides the window
    setVisible(wasVisible);
}

void ScriptWindow::setSizeable(bool on)
{
    setMinimumSize(on ? QSize(0, 0) : size());
    setMaximumSize(on ? QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX) : size());
}

void ScriptWindow::present()
{
    show();
    raise();
    activateWindow();
}

void ScriptWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    hide();
    const QPointer<ScriptWindow> self(this);
    const std::string script = m_closeCommand;
    m_ui.runScript(script);
    // The script may have deleted the window, or shown it again.
    UiObject* const object = self && !m_isRetained && !isVisible() ? m_ui.of(this) : nullptr;
    if (object) {
        m_ui.destroy(*object);
    }
}

void ScriptWindow::keyPressEvent(QKeyEvent* event)
{
    handOn(event);
}

void ScriptWindow::keyReleaseEvent(QKeyEvent* event)
{
    handOn(event);
}

void ScriptWindow::handOn(QKeyEvent* event)
{
    if (QWidget* const main = m_ui.mainWindow()) {
        QCoreApplication::sendEvent(main, event);
    }
}

}  // namespace ui
