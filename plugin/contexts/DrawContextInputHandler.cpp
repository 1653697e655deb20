#include "contexts/DrawContextInputHandler.h"

#include "contexts/ContextMenu.h"
#include "contexts/DrawContext.h"
#include "contexts/DrawToolMenu.h"
#include "contexts/ThreadManager.h"
#include "contexts/TimelineMenu.h"
#include "settings/Preferences.h"
#include "settings/ScriptBridge.h"
#include "settings/Text.h"

#include <maya/MQtUtil.h>

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTabletEvent>

void DrawContextInputHandler::setUp()
{
    m_pen.reset();
    m_keys.clear();
    if (!m_timeSlider && MQtUtil::mainWindow()) {
        m_timeSlider = MQtUtil::findControl(toMString(script::timeControlName()));
    }
    m_views.release();
    m_views.add(MQtUtil::mainWindow());
    m_views.add(m_timeSlider);
    watchActiveView();
}

void DrawContextInputHandler::cleanUp()
{
    m_views.release();
    m_pen.reset();
    dismiss(m_menu);
}

// Queued: the tool works on the drawing only once the view is quite gone.
void DrawContextInputHandler::watchActiveView()
{
    if (QWidget* const view = m_views.addActive()) {
        connect(view, SIGNAL(destroyed()), this, SLOT(OnViewDestroyed()),
                Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection));
    }
}

void DrawContextInputHandler::OnViewDestroyed()
{
    m_tool.viewDestroyed();
}

bool DrawContextInputHandler::eventFilter(QObject* watched, QEvent* event)
{
    ThreadManager::instance().noteInput(*event);
    bool isTaken = false;
    switch (event->type()) {
    case QEvent::ShortcutOverride: isTaken = isClaimed(static_cast<QKeyEvent&>(*event)); break;
    case QEvent::KeyPress: isTaken = pressKey(static_cast<QKeyEvent&>(*event)); break;
    case QEvent::KeyRelease: isTaken = releaseKey(static_cast<QKeyEvent&>(*event)); break;
    case QEvent::InputMethod:
    case QEvent::InputMethodQuery: isTaken = inputMethod(*event); break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: isTaken = pressButton(watched, static_cast<QMouseEvent&>(*event)); break;
    case QEvent::MouseMove: movePointer(watched, static_cast<QMouseEvent&>(*event)); break;
    case QEvent::WindowDeactivate: m_tool.windowLeft(watched); break;
    case QEvent::TabletMove:
    case QEvent::TabletPress:
    case QEvent::TabletRelease: followPen(watched, static_cast<QTabletEvent&>(*event)); break;
    default: break;
    }
    if (isTaken) {
        event->accept();  // or a key would go on to the parent
    }
    return isTaken || QObject::eventFilter(watched, event);
}

// Keys ----------------------------------------------------------------------------------------------------------------

// What is claimed comes as a key press, even where it is a shortcut of the host's.
bool DrawContextInputHandler::isClaimed(const QKeyEvent& key)
{
    return !HeldKeys::isShared(key) && (HeldKeys::isOurs(key) || m_tool.isTyping());
}

bool DrawContextInputHandler::pressKey(const QKeyEvent& key)
{
    if (m_tool.isTyping() && !HeldKeys::isShared(key)) {
        if (key.key() == Qt::Key_Escape) {
            m_tool.endTyping();
        } else {
            m_tool.textEntry().press(key);
        }
        return true;
    }
    m_keys.follow(key);
    return HeldKeys::isOurs(key);
}

bool DrawContextInputHandler::releaseKey(const QKeyEvent& key)
{
    m_keys.follow(key);
    return isClaimed(key);
}

bool DrawContextInputHandler::inputMethod(QEvent& event)
{
    if (!m_tool.isTyping()) {
        return false;
    }
    TextEntry& text = m_tool.textEntry();
    if (event.type() == QEvent::InputMethod) {
        text.compose(static_cast<QInputMethodEvent&>(event));
    } else {
        text.answer(static_cast<QInputMethodQueryEvent&>(event));
    }
    return true;
}

// Pointer -------------------------------------------------------------------------------------------------------------

bool DrawContextInputHandler::pressButton(QObject* watched, const QMouseEvent& event)
{
    if (m_views.contains(watched)) {
        m_tool.endTyping();
    }
    return openMenu(watched, event);
}

void DrawContextInputHandler::movePointer(const QObject* watched, const QMouseEvent& event)
{
    if (event.buttons() == Qt::NoButton && m_views.contains(watched)) {
        m_tool.releaseLost();
    }
}

void DrawContextInputHandler::followPen(const QObject* watched, const QTabletEvent& event)
{
    if (m_views.contains(watched)) {
        m_pen.follow(event);
    }
}

bool DrawContextInputHandler::openMenu(QObject* pressed, const QMouseEvent& event)
{
    QMenu* const menu = asksForContextMenu(event) ? menuOf(pressed) : nullptr;
    if (menu) {
        m_menu = menu;
        m_keys.clear();  // the menu takes the keyboard, with the releases
        popUpAtCursor(menu);
    }
    return menu != nullptr;
}

QMenu* DrawContextInputHandler::menuOf(QObject* pressed) const
{
    const Preferences& preferences = Preferences::instance();
    if (pressed == m_timeSlider) {
        return preferences.timelineContextMenu() ? new TimelineMenu(*m_timeSlider) : nullptr;
    }
    const bool isWanted = preferences.drawToolContextMenu() && !m_keys.sparesMenus() && m_views.contains(pressed);
    return isWanted ? new DrawToolMenu(static_cast<QWidget&>(*pressed)) : nullptr;
}
