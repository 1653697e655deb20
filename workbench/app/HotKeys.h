#pragma once

#include "kernel/Session.h"

#include <functional>
#include <string>

class QKeyEvent;

namespace app {

/// The keys of the main window that stand for a script text.
class HotKeys {
public:
    /// run: executes a text as a user's action.
    HotKeys(kernel::Session& session, std::function<bool(const std::string&)> run);
    ~HotKeys();
    HotKeys(const HotKeys&) = delete;
    HotKeys& operator=(const HotKeys&) = delete;

    static bool isHotKey(const QKeyEvent& event);
    /// Runs what a key stands for; false when it is no hot key.
    bool press(const QKeyEvent& event);
    /// For a key that means something only when it was tapped; false when it is none.
    bool release(const QKeyEvent& event);

private:
    struct Row;
    static const Row kRows[];
    static const Row* rowOf(const QKeyEvent& event);
    std::string lastTool() const;
    std::string lastAction() const;
    std::string playback() const;       ///< starts or stops it
    std::string swapOfViews() const;    ///< for the one under the pointer
    std::string panZoomSwitch() const;  ///< of the active view's camera

    kernel::Session& m_session;
    const std::function<bool(const std::string&)> m_run;
    std::string m_lastTool;  ///< the last one that has no key of its own; empty when there was none
    unsigned m_callback;
};

}  // namespace app
