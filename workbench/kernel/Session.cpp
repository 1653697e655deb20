#include "kernel/Session.h"

namespace kernel {

namespace {
Session* s_current = nullptr;
}

Session::Session() : scene(*this), m_before(s_current)
{
    s_current = this;
    undo.setListeners(
        [this] {
            events.setCondition("UndoAvailable", undo.canUndo());
            events.setCondition("RedoAvailable", undo.canRedo());
        },
        [this](const std::string& text) { output.error(text); });
    scene.reset();
}

Session::~Session()
{
    // What the queue holds may still reach for the scene, so it goes first.
    undo.flush();
    undo.setListeners({}, {});
    m_script.reset();
    s_current = m_before;
}

Session& Session::current()
{
    return *s_current;
}

bool Session::exists()
{
    return s_current != nullptr;
}

}  // namespace kernel
