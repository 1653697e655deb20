#include "app/HotKeys.h"

#include "api/Tools.h"
#include "mel/builtins/Quoting.h"
#include "view/Viewport.h"
#include "view/Viewports.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>

namespace app {

struct HotKeys::Row {
    int keys;                              ///< a key with its modifiers
    const char* script;                    ///< null: see `made`
    std::string (HotKeys::*made)() const;  ///< gives the script; empty when there is nothing to do
    bool repeats;                          ///< also while it is held down
};

const HotKeys::Row HotKeys::kRows[] = {
    {Qt::Key_Q, "setToolTo $gSelect", nullptr, false},
    {Qt::Key_W, "setToolTo $gMove", nullptr, false},
    {Qt::Key_E, "setToolTo $gRotate", nullptr, false},
    {Qt::Key_R, "setToolTo $gScale", nullptr, false},
    {Qt::Key_Y, nullptr, &HotKeys::lastTool, false},
    {Qt::Key_Z, "undo", nullptr, true},
    {Qt::CTRL | Qt::Key_Z, "undo", nullptr, true},
    {Qt::SHIFT | Qt::Key_Z, "redo", nullptr, true},
    {Qt::CTRL | Qt::Key_Y, "redo", nullptr, true},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, "redo", nullptr, true},
    {Qt::Key_G, nullptr, &HotKeys::lastAction, false},
    {Qt::Key_4, "modelEditor -edit -displayAppearance wireframe `getPanel -withFocus`", nullptr, false},
    {Qt::Key_5, "modelEditor -edit -displayAppearance smoothShaded `getPanel -withFocus`", nullptr, false},
    {Qt::Key_Space, nullptr, &HotKeys::swapOfViews, false},
    {Qt::CTRL | Qt::Key_Space, "workbenchView -panels (!`workbenchView -query -panels`)", nullptr, false},
    {Qt::Key_F, "viewFit", nullptr, false},
    {Qt::Key_A, "viewFit -all", nullptr, false},
    {Qt::Key_S, "setKeyframe", nullptr, false},
    {Qt::Key_Period, "currentTime `findKeyframe -which next`", nullptr, true},
    {Qt::Key_Comma, "currentTime `findKeyframe -which previous`", nullptr, true},
    {Qt::ALT | Qt::Key_V, nullptr, &HotKeys::playback, false},
    {Qt::ALT | Qt::SHIFT | Qt::Key_V, "currentTime `playbackOptions -q -min`", nullptr, false},
    {Qt::ALT | Qt::Key_Period, "currentTime (`currentTime -q` + `playbackOptions -q -by`)", nullptr, true},
    {Qt::ALT | Qt::Key_Comma, "currentTime (`currentTime -q` - `playbackOptions -q -by`)", nullptr, true},
};

namespace {

bool isPanZoomKey(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Backslash;
}

view::PanZoomKey& panZoomKey()
{
    return view::Viewports::installed()->panZoomKey();
}

}  // namespace

HotKeys::HotKeys(kernel::Session& session, std::function<bool(const std::string&)> run)
    : m_session(session), m_run(std::move(run))
{
    m_callback = m_session.events.add("PostToolChanged", [this] {
        // Select, move, rotate and scale, which have keys, are the host's own and have no context object.
        const api::ToolBox& tools = api::ToolBox::instance();
        if (tools.current()) {
            m_lastTool = tools.currentName();
        }
    });
}

HotKeys::~HotKeys()
{
    m_session.events.remove(m_callback);
}

const HotKeys::Row* HotKeys::rowOf(const QKeyEvent& event)
{
    const int keys = event.key() | int(event.modifiers() & ~Qt::KeypadModifier);
    for (const Row& row : kRows) {
        if (row.keys == keys) {
            return &row;
        }
    }
    return nullptr;
}

bool HotKeys::isHotKey(const QKeyEvent& event)
{
    return rowOf(event) != nullptr;
}

bool HotKeys::press(const QKeyEvent& event)
{
    if (isPanZoomKey(event)) {
        if (!event.isAutoRepeat()) {
            panZoomKey().press();
        }
        return true;
    }
    const Row* const row = rowOf(event);
    if (!row) {
        return false;
    }
    const std::string text = row->script ? row->script : (this->*row->made)();
    if (!text.empty() && (row->repeats || !event.isAutoRepeat())) {
        m_run(text);
    }
    return true;
}

bool HotKeys::release(const QKeyEvent& event)
{
    if (!isPanZoomKey(event)) {
        return false;
    }
    const std::string text = !event.isAutoRepeat() && panZoomKey().release() ? panZoomSwitch() : std::string();
    if (!text.empty()) {
        m_run(text);
    }
    return true;
}

std::string HotKeys::lastTool() const
{
    // Its module may be gone since.
    return api::ToolBox::instance().exists(m_lastTool) ? "setToolTo " + mel::quoted(m_lastTool) : std::string();
}

std::string HotKeys::lastAction() const
{
    return m_session.lastAction;
}

std::string HotKeys::playback() const
{
    return m_session.playback.isPlaying() ? "play -state off" : "play -state on";
}

std::string HotKeys::swapOfViews() const
{
    if (QApplication::mouseButtons() != Qt::NoButton) {
        return {};  // the view may be in the middle of a stroke
    }
    const auto* const view = qobject_cast<const view::Viewport*>(QApplication::widgetAt(QCursor::pos()));
    return view ? "workbenchView -swap -panel " + mel::quoted(view->panelName()) : "workbenchView -swap";
}

std::string HotKeys::panZoomSwitch() const
{
    const view::Viewport* const view = view::Viewports::installed()->active();
    const kernel::NodePtr camera = view ? view->camera() : nullptr;
    if (!camera) {
        return {};
    }
    const char* const state = camera->number("panZoomEnabled") != 0 ? " 0" : " 1";
    return "setAttr " + mel::quoted(m_session.scene.partialPath(*camera) + ".panZoomEnabled") + state;
}

}  // namespace app
